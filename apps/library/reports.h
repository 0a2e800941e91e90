#pragma once

#include <functional>
#include <memory>
#include <string>

#include "library/places.h"
#include "platform/host/application.h"
#include "platform/services/readable_reports.h"

/// The report engine and the export of lists, where the build has them; without the toolkit there are none.
namespace library {

/// What reports know of the session, whatever company it has open. `app` must be there as long as the engine is.
struct ReportPlaces {
  std::function<platform::Application*()> app;
  std::string libraryFolder;  ///< as the program writes it
  std::string hostFolder;     ///< the same as a folder of the host
};

std::unique_ptr<platform::ReportEngine> MakeReports(const ReportPlaces& places);
/// The same for a scripted user, who reads the pages; what is printed goes nowhere else.
std::unique_ptr<platform::ReadableReports> MakeReadableReports(const ReportPlaces& places);
std::unique_ptr<platform::ListExport> MakeListExport();

/// A report of the library's folder into a file, by the ending of its name: .pdf, .csv or .xlsx. Returns 0 or the engine's number, whose
/// reason `log` is told. `goOn` is asked with how much is done; false stops it.
int WriteReport(const ReportPlaces& places, const platform::ReportJob& job, const std::string& file,
                const std::function<void(const std::string&)>& log, const std::function<bool(std::int64_t)>& goOn);

}  // namespace library
