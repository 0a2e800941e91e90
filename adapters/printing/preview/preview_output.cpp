#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QPointer>
#include <QProgressDialog>
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

namespace printing {

namespace {

constexpr int kPatienceMs = 400;
constexpr int kEventsEveryMs = 30;

}  // namespace

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
    QProgressDialog box(what, tr("Stop"), 0, 0, this);
    box.setWindowTitle(windowTitle());
    box.setWindowModality(Qt::ApplicationModal);
    box.setAutoClose(false);
    box.setAutoReset(false);
    QElapsedTimer clock;
    QElapsedTimer whole;
    clock.start();
    whole.start();
    const Progress progress = [&](std::int64_t done) {
      if (clock.elapsed() < kEventsEveryMs) return !closing_;
      clock.restart();
      box.setLabelText(tr("%1 %L2").arg(what).arg(done));
      if (!box.isVisible() && whole.elapsed() > kPatienceMs) box.show();
      // Without the box in front of them other windows would take input in the middle of this.
      QCoreApplication::processEvents(box.isVisible() ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
      return !closing_ && !box.wasCanceled();
    };
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
