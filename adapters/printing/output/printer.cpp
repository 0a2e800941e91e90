#include "printing/output/printer.h"

#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>

#include "printing/data/report_errors.h"

namespace printing {

namespace {

QString ToShown(const std::string& text) { return QString::fromStdString(text); }

void Choose(QPrinter& printer, const PrinterRun& run) {
  if (!run.toFile.empty()) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(ToShown(run.toFile));
    return;
  }
  const std::string name = run.printer.empty() ? DefaultPrinter() : run.printer;
  if (name.empty()) throw ReportFailure(ReportError::NoPrinter, "there is no printer");
  const QPrinterInfo info = QPrinterInfo::printerInfo(ToShown(name));
  if (info.isNull()) throw ReportFailure(ReportError::NoPrinter, "there is no printer " + name);
  printer.setOutputFormat(QPrinter::NativeFormat);
  printer.setPrinterName(info.printerName());
}

}  // namespace

std::string DefaultPrinter() {
  const QPrinterInfo info = QPrinterInfo::defaultPrinter();
  return info.isNull() ? std::string() : info.printerName().toStdString();
}

void Print(const PageSpool& pages, const FontSet& fonts, const PrinterRun& run, const Progress& progress) {
  const std::int64_t first = std::max<std::int64_t>(run.from, 1);
  const std::int64_t last = run.to > 0 ? std::min(run.to, pages.Count()) : pages.Count();
  QPrinter printer(QPrinter::HighResolution);
  Choose(printer, run);
  if (first > last) return;
  Page page = pages.Read(first - 1);
  printer.setDocName(ToShown(run.title));
  printer.setFullPage(true);
  printer.setPageSize(QPageSize(QSizeF(page.width, page.height), QPageSize::Inch, {}, QPageSize::FuzzyMatch));
  printer.setPageMargins(QMarginsF());
  printer.setCopyCount(std::max(1, run.copies));
  printer.setCollateCopies(run.collated);
  const auto fail = [&printer] {
    throw ReportFailure(ReportError::OutputFailed, "the printer " + printer.printerName().toStdString() + " takes nothing");
  };
  QPainter painter;
  if (!painter.begin(&printer)) fail();
  PagePainter painting(fonts, run.settings);
  try {
    for (std::int64_t number = first; number <= last; ++number) {
      if (number > first) {
        page = pages.Read(number - 1);
        if (!printer.newPage()) fail();
      }
      painting.Paint(painter, page, printer.resolution(), pages.Count());
      Ask(progress, number - first + 1);
    }
  } catch (...) {
    // Nothing is printed of what is not whole.
    printer.abort();
    throw;
  }
  if (!painter.end() || printer.printerState() == QPrinter::Error) fail();
}

}  // namespace printing
