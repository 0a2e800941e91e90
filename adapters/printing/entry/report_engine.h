#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/host/run_watcher.h"
#include "platform/services/list_export.h"
#include "platform/services/readable_reports.h"
#include "platform/services/report_engine.h"
#include "printing/output/page_painter.h"
#include "printing/run/report_run.h"

namespace printing {

/// What the report engine needs of the program around it.
struct EngineServices {
  /// Of the moment: asked at each run, since the company and the day may be others.
  std::function<RunServices()> forRun;
  /// Whether some other work is under way, in which an open preview must not go on by itself.
  std::function<bool()> busy;
  /// How a printer's pages are moved, and to keep it; either may be empty.
  std::function<PaintSettings(const std::string& printer)> alignment;
  std::function<void(const std::string& printer, const PaintSettings& settings)> keepAlignment;
  /// Who shows long runs on their way to paper; may be empty.
  std::function<platform::RunWatcher*()> watcher;
  /// One line for whoever looks after the program: what of a report is wrong, and where.
  std::function<void(const std::string& line)> log;
};

/// Reports into preview windows and on paper. Needs the toolkit's application object.
std::unique_ptr<platform::ReportEngine> MakeReportEngine(EngineServices services);

/// The same for a scripted user: what is laid out can be read, and printed pages are kept in the printer's stead, as long as there is a
/// `defaultPrinter`. Makes an application object of the toolkit's that draws into memory where the program has none.
std::unique_ptr<platform::ReadableReports> MakeReadableReports(EngineServices services, std::function<std::string()> defaultPrinter);

/// Lists into files of values, workbooks and pages. Needs the toolkit's application object.
std::unique_ptr<platform::ListExport> MakeListExport();

/// A report into a file, by the ending of its name: ".pdf", ".csv" or ".xlsx". Returns 0 or the number of what went wrong.
int WriteReport(const platform::ReportJob& job, const EngineServices& services, const std::string& path, const Progress& progress);

}  // namespace printing
