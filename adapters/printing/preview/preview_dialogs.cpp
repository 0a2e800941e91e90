#include "printing/preview/preview_dialogs.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>
#include <limits>

namespace printing {

namespace {

int Clamped(std::int64_t number) { return static_cast<int>(std::min<std::int64_t>(number, std::numeric_limits<int>::max())); }

bool AskPrinter(QWidget& parent, PrinterRun& run, std::int64_t pages) {
  QPrinter printer(QPrinter::HighResolution);
  const QPrinterInfo chosen = QPrinterInfo::printerInfo(QString::fromStdString(run.printer));
  if (!chosen.isNull()) printer.setPrinterName(chosen.printerName());
  printer.setDocName(QString::fromStdString(run.title));
  printer.setCopyCount(run.copies);
  QPrintDialog dialog(&printer, &parent);
  dialog.setWindowModality(Qt::WindowModal);
  dialog.setOption(QAbstractPrintDialog::PrintPageRange);
  dialog.setMinMax(1, Clamped(std::max<std::int64_t>(1, pages)));
  if (run.from > 0) {
    dialog.setPrintRange(QAbstractPrintDialog::PageRange);
    dialog.setFromTo(Clamped(run.from), Clamped(run.to > 0 ? run.to : pages));
  }
  if (dialog.exec() != QDialog::Accepted) return false;
  run.printer = printer.printerName().toStdString();
  run.toFile = printer.outputFileName().toStdString();
  run.copies = printer.copyCount();
  run.collated = printer.collateCopies();
  const bool range = dialog.printRange() == QAbstractPrintDialog::PageRange;
  run.from = range ? dialog.fromPage() : 0;
  run.to = range ? dialog.toPage() : 0;
  return true;
}

std::optional<QString> AskFile(QWidget& parent, const QString& kind, const QString& suggestion) {
  QFileDialog dialog(&parent, QObject::tr("Export"));
  dialog.setWindowModality(Qt::WindowModal);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(kind);
  dialog.setNameFilter(QObject::tr("%1 files (*.%2)").arg(kind.toUpper(), kind));
  dialog.selectFile(suggestion + '.' + kind);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  return dialog.selectedFiles().front();
}

void Tell(QWidget& parent, const QString& text) {
  QMessageBox box(QMessageBox::Warning, parent.windowTitle(), QString(), QMessageBox::Ok, &parent);
  box.setWindowModality(Qt::WindowModal);
  box.setTextFormat(Qt::PlainText);
  box.setText(text);
  box.exec();
}

}  // namespace

PreviewDialogs ToolkitDialogs() { return {AskPrinter, AskFile, Tell}; }

}  // namespace printing
