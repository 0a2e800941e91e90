#pragma once

#include <vector>

#include "platform/services/list_export.h"
#include "printing/definition/report_definition.h"

namespace printing {

/// A list as a report: its title and notes above the headings on each page, a line a row, the columns as wide to each other as they
/// are shown. A list that doesn't fit on the width of a page gets wider paper, so that nothing is cut.
ReportDefinition ListReport(const platform::ExportedList& list, const std::vector<bool>& figures);

}  // namespace printing
