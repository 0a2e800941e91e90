#include "printing/entry/report_engine.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QProgressDialog>
#include <exception>
#include <utility>

#include "printing/data/report_errors.h"
#include "printing/output/csv_file.h"
#include "printing/output/pdf_file.h"
#include "printing/output/printer.h"
#include "printing/output/xlsx_file.h"
#include "printing/preview/previews.h"

namespace printing {

namespace {

using platform::ReportJob;

constexpr int kMaximised = 2;
constexpr int kPaper = 1;
constexpr int kPatienceMs = 400;
constexpr int kEventsEveryMs = 30;

/// Runs `work`; a report that can't be run is a number for the caller and a line for the log.
template <class Work>
int Numbered(const EngineServices& services, const ReportJob& job, Work&& work) {
  const auto told = [&](int number, const std::string& what) {
    if (services.log)
      services.log("report " + static_cast<const std::string&>(job.ReportFileName) + ": " + std::to_string(number) + ", " + what);
    return number;
  };
  try {
    std::forward<Work>(work)();
    return 0;
  } catch (const ReportFailure& failure) {
    return failure.Error() == ReportError::Stopped ? 0 : told(failure.Number(), failure.what());
  } catch (const platform::Error& error) {
    return told(static_cast<int>(ReportError::ReadingFailed), error.Description());
  } catch (const std::bad_alloc&) {
    return told(static_cast<int>(ReportError::NoRoom), "out of memory");
  }
}

/// A window that shows how far a long run is, and a button that ends it.
class LongRun {
 public:
  explicit LongRun(const QString& what) : what_(what), box_(what, QObject::tr("Stop"), 0, 0) {
    box_.setObjectName("printProgress");
    box_.setWindowModality(Qt::ApplicationModal);
    box_.setMinimumDuration(kPatienceMs);
    clock_.start();
  }
  bool Asked(std::int64_t done) {
    if (clock_.elapsed() < kEventsEveryMs) return true;
    clock_.restart();
    box_.setLabelText(QObject::tr("%1 %L2").arg(what_).arg(done));
    box_.setValue(0);
    QCoreApplication::processEvents();
    return !box_.wasCanceled();
  }

 private:
  QString what_;
  QProgressDialog box_;
  QElapsedTimer clock_;
};

class WindowedEngine final : public platform::ReportEngine {
 public:
  explicit WindowedEngine(EngineServices services) : services_(std::move(services)), previews_(services_.busy) {}

  int PrintReport(const ReportJob& job) override {
    return Numbered(services_, job, [&] {
      const Details details = job.Destination == kPaper ? Details::Once : Details::Again;
      auto run = std::make_unique<ReportRun>(job, services_.forRun(), *previews_.Fonts(), details);
      if (job.Destination == kPaper)
        Print(*run, job);
      else
        Preview(std::move(run), job);
    });
  }

  void CloseAll() override { previews_.CloseAll(); }

 private:
  void Preview(std::unique_ptr<ReportRun> run, const ReportJob& job) {
    PreviewSettings settings;
    settings.title = static_cast<const std::string&>(job.WindowTitle);
    if (settings.title.empty()) settings.title = run->Title();
    settings.maximised = job.WindowState == kMaximised;
    settings.copies = job.CopiesToPrinter;
    settings.from = static_cast<int>(job.PrinterStartPage);
    settings.to = static_cast<int>(job.PrinterStopPage);
    previews_.Open(std::move(run), std::move(settings));
  }

  void Print(ReportRun& run, const ReportJob& job) {
    LongRun window(QObject::tr("Printing:"));
    const Progress progress = [&](std::int64_t done) { return window.Asked(done); };
    while (run.Advance()) Ask(progress, run.RowsDone());
    PrinterRun printer;
    printer.title = static_cast<const std::string&>(job.WindowTitle);
    printer.copies = job.CopiesToPrinter;
    printer.from = static_cast<int>(job.PrinterStartPage);
    printer.to = static_cast<int>(job.PrinterStopPage);
    printing::Print(run.Pages(), *previews_.Fonts(), printer, progress);
  }

  EngineServices services_;
  Previews previews_;
};

bool Ends(const std::string& path, const char* ending) {
  return QString::fromStdString(path).endsWith(QLatin1String(ending), Qt::CaseInsensitive);
}

template <class File>
void WriteDetails(const ReportJob& job, const EngineServices& services, File&& file, const Progress& progress) {
  ExportDetails(job, services.forRun(), file, progress);
  file.Finish();
}

void WritePages(const ReportJob& job, const EngineServices& services, const std::string& path, const Progress& progress) {
  const FontSet fonts;
  ReportRun run(job, services.forRun(), fonts, Details::Once);
  while (run.Advance()) Ask(progress, run.RowsDone());
  WritePdf(run.Pages(), path, run.Title(), fonts, progress);
}

}  // namespace

std::unique_ptr<platform::ReportEngine> MakeReportEngine(EngineServices services) {
  return std::make_unique<WindowedEngine>(std::move(services));
}

namespace {

/// Fonts need the toolkit's application object: the program's own, or one that draws into memory.
std::unique_ptr<QGuiApplication> ToolkitWithoutDisplay() {
  if (QCoreApplication::instance() != nullptr) return nullptr;
  static int count = 3;
  static char name[] = "report", option[] = "-platform", platform[] = "offscreen";
  static char* words[] = {name, option, platform, nullptr};
  return std::make_unique<QGuiApplication>(count, words);
}

}  // namespace

int WriteReport(const ReportJob& job, const EngineServices& services, const std::string& path, const Progress& progress) {
  const auto toolkit = ToolkitWithoutDisplay();
  return Numbered(services, job, [&] {
    if (Ends(path, ".csv")) return WriteDetails(job, services, CsvFile(path), progress);
    if (Ends(path, ".xlsx")) return WriteDetails(job, services, XlsxFile(path, job.WindowTitle), progress);
    WritePages(job, services, path, progress);
  });
}

}  // namespace printing
