#include "printing/entry/windowed_engine.h"

#include <QApplication>
#include <utility>

#include "platform/host/long_run.h"
#include "printing/data/report_folder.h"
#include "printing/entry/numbered.h"
#include "printing/layout/alignment_sheet.h"
#include "printing/preview/alignment_dialog.h"

namespace printing {

namespace {

using platform::ReportJob;

constexpr int kMaximised = 2;
constexpr int kPaper = 1;

}  // namespace

int WindowedEngine::PrintReport(const ReportJob& job) {
  return Numbered(services_, job, [&] {
    const Details details = job.Destination == kPaper ? Details::Once : Details::Again;
    auto run = std::make_unique<ReportRun>(job, services_.forRun(), *previews_.Fonts(), details);
    if (job.Destination == kPaper)
      Print(std::move(run), job);
    else
      Preview(std::move(run), job);
  });
}

void WindowedEngine::Preview(std::unique_ptr<ReportRun> run, const ReportJob& job) {
  PreviewSettings settings;
  settings.title = static_cast<const std::string&>(job.WindowTitle);
  if (settings.title.empty()) settings.title = run->Title();
  settings.maximised = job.WindowState == kMaximised;
  settings.copies = job.CopiesToPrinter;
  settings.from = static_cast<int>(job.PrinterStartPage);
  settings.to = static_cast<int>(job.PrinterStopPage);
  settings.alignment = services_.alignment;
  previews_.Open(std::move(run), std::move(settings));
}

void WindowedEngine::Print(std::unique_ptr<ReportRun> run, const ReportJob& job) {
  platform::LongRun shown(services_.watcher ? services_.watcher() : nullptr, QObject::tr("Printing").toStdString(), 0);
  const Progress progress = [&](std::int64_t done) { return shown.Reached(done); };
  while (run->Advance()) Ask(progress, run->RowsDone());
  PrinterRun printer;
  printer.title = static_cast<const std::string&>(job.WindowTitle);
  printer.copies = job.CopiesToPrinter;
  printer.from = static_cast<int>(job.PrinterStartPage);
  printer.to = static_cast<int>(job.PrinterStopPage);
  printer.settings = AlignmentOf(DefaultPrinter());
  ToPrinter(std::move(run), printer, progress);
}

void WindowedEngine::ToPrinter(std::unique_ptr<ReportRun> run, const PrinterRun& printer, const Progress& progress) {
  printing::Print(run->Pages(), *previews_.Fonts(), printer, progress);
}

PaintSettings WindowedEngine::AlignmentOf(const std::string& printer) const {
  return services_.alignment ? services_.alignment(printer) : PaintSettings{};
}

void WindowedEngine::AlignPrinter(const std::string& reportFileName) {
  const std::string printer = DefaultPrinter();
  AlignmentDialog dialog(QApplication::activeWindow(), printer, AlignmentOf(printer), [&](const PaintSettings& settings) {
    PrintAlignmentSheet(dialog, reportFileName, printer, settings);
  });
  if (dialog.exec() == QDialog::Accepted && services_.keepAlignment) services_.keepAlignment(printer, dialog.Chosen());
}

void WindowedEngine::PrintAlignmentSheet(QWidget& over, const std::string& reportFileName, const std::string& printer,
                                         const PaintSettings& settings) {
  ReportJob job;
  job.ReportFileName = reportFileName;
  const int number = Numbered(services_, job, [&] {
    PageSpool sheet;
    sheet.Add(AlignmentSheet(LoadReport(services_.forRun().folder, reportFileName)));
    PrinterRun run;
    run.printer = printer;
    run.title = "Alignment";
    run.settings = settings;
    printing::Print(sheet, *previews_.Fonts(), run, [](std::int64_t) { return true; });
  });
  if (number != 0) previews_.dialogs.tell(over, QObject::tr("The sheet could not be printed (%1).").arg(number));
}

}  // namespace printing
