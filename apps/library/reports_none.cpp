#include "library/reports.h"

namespace library {

std::unique_ptr<platform::ReportEngine> MakeReports(const ReportPlaces&) { return nullptr; }
std::unique_ptr<platform::ReadableReports> MakeReadableReports(const ReportPlaces&) { return nullptr; }
std::unique_ptr<platform::ListExport> MakeListExport() { return nullptr; }

int WriteReport(const ReportPlaces&, const platform::ReportJob&, const std::string&, const std::function<void(const std::string&)>& log,
                const std::function<bool(std::int64_t)>&) {
  log("this build has no report engine");
  return 1;
}

}  // namespace library
