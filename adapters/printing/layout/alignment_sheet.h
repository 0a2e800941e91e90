#pragma once

#include "printing/definition/report_definition.h"
#include "printing/layout/page.h"

namespace printing {

/// A page to hold against a sheet of the report's labels: a frame where each label has to be, with its number, and a cross through its
/// middle. A report that isn't labels gives its margins' frame.
Page AlignmentSheet(const ReportDefinition& report);

}  // namespace printing
