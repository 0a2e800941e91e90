#include <QFileInfo>
#include <QPointer>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QStatusBar>
#include <exception>

#include "printing/data/report_errors.h"
#include "printing/output/csv_file.h"
#include "printing/output/pdf_file.h"
#include "printing/output/printer.h"
#include "printing/output/xlsx_file.h"
#include "printing/preview/preview_window.h"
#include "printing/preview/run_box.h"

namespace printing {

QString PreviewWindow::Suggestion() const {
  QString name = windowTitle().simplified();
  name.remove(QRegularExpression(QStringLiteral(R"([/\\:*?"<>|])")));
  return name.isEmpty() ? tr("Report") : name;
}

void PreviewWindow::RunLong(const QString& what, const Work& work) {
  if (working_) return;
  const QScopedValueRollback<bool> working(working_, true);
  QString failed;
  {
    RunBox box(what, this);
    const Progress progress = [&](std::int64_t done) { return !closing_ && box.GoOn(done) && !closing_; };
    try {
      work(progress);
    } catch (const ReportFailure& failure) {
      failed = failure.Error() == ReportError::Stopped ? tr("Stopped.") : QString::fromUtf8(failure.what());
    } catch (const std::exception& other) {
      failed = QString::fromUtf8(other.what());
    }
  }
  if (closing_) {
    deleteLater();
    return;
  }
  if (failed.isEmpty()) return;
  if (failed == tr("Stopped.")) {
    statusBar()->showMessage(failed);
  } else {
    dialogs_.tell(*this, failed);
  }
}

void PreviewWindow::PrintPages() {
  RunLong(tr("Pages laid out:"), [this](const Progress& progress) { LayOutRest(progress); });
  if (!complete_ || closing_) return;
  PrinterRun run;
  run.printer = settings_.printer;
  run.title = settings_.title;
  run.copies = settings_.copies;
  run.from = settings_.from;
  run.to = settings_.to;
  const QPointer<PreviewWindow> alive(this);
  if (!dialogs_.askPrinter(*this, run, run_->Pages().Count()) || !alive || closing_) return;
  if (settings_.alignment && run.toFile.empty()) run.settings = settings_.alignment(run.printer);
  RunLong(tr("Pages printed:"), [&](const Progress& progress) {
    Print(run_->Pages(), *fonts_, run, progress);
    statusBar()->showMessage(tr("Printed."));
  });
}

void PreviewWindow::ExportTo(const QString& kind) {
  const QPointer<PreviewWindow> alive(this);
  const std::optional<QString> chosen = dialogs_.askFile(*this, kind, Suggestion());
  if (!chosen || !alive || closing_) return;
  const std::string path = chosen->toStdString();
  const auto done = [&] { statusBar()->showMessage(tr("Exported to %1.").arg(QFileInfo(*chosen).fileName())); };
  if (kind == QStringLiteral("pdf")) {
    RunLong(tr("Pages exported:"), [&](const Progress& progress) {
      LayOutRest(progress);
      WritePdf(run_->Pages(), path, settings_.title, *fonts_, progress);
      done();
    });
    return;
  }
  RunLong(tr("Rows exported:"), [&](const Progress& progress) {
    if (kind == QStringLiteral("csv")) {
      CsvFile file(path);
      run_->Export(file, progress);
      file.Finish();
    } else {
      XlsxFile file(path, settings_.title);
      run_->Export(file, progress);
      file.Finish();
    }
    done();
  });
}

}  // namespace printing
