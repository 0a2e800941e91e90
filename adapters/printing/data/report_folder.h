#pragma once

#include <string>
#include <string_view>

#include "printing/definition/report_definition.h"

namespace printing {

/// The library's folder, in which alone report files lie.
struct ReportFolder {
  std::string asWritten;  ///< as the program writes it
  std::string host;       ///< the folder of the host that this is
};

/// Reads the report of that file: a bare name, or one behind the folder as the program writes it. A name that leads anywhere else, and
/// a link, is refused. Raises ReportFailure.
ReportDefinition LoadReport(const ReportFolder& folder, std::string_view file);

}  // namespace printing
