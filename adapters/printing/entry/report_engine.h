#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/services/list_export.h"
#include "platform/services/report_engine.h"
#include "printing/run/report_run.h"

namespace printing {

/// What the report engine needs of the program around it.
struct EngineServices {
  /// Of the moment: asked at each run, since the company and the day may be others.
  std::function<RunServices()> forRun;
  /// Whether some other work is under way, in which an open preview must not go on by itself.
  std::function<bool()> busy;
  /// One line for whoever looks after the program: what of a report is wrong, and where.
  std::function<void(const std::string& line)> log;
};

/// Reports into preview windows and on paper. Needs the toolkit's application object.
std::unique_ptr<platform::ReportEngine> MakeReportEngine(EngineServices services);

/// Lists into files of values, workbooks and pages. Needs the toolkit's application object.
std::unique_ptr<platform::ListExport> MakeListExport();

/// A report into a file, by the ending of its name: ".pdf", ".csv" or ".xlsx". Returns 0 or the number of what went wrong.
int WriteReport(const platform::ReportJob& job, const EngineServices& services, const std::string& path, const Progress& progress);

}  // namespace printing
