#pragma once

#include "printing/definition/report_definition.h"

namespace printing {

/// Checks that can be made of what was read last, when its line is read: names that are taken, tables that a join names before they
/// are there, levels without a group. Raises LineError.
void CheckNewest(const ReportDefinition& report);

/// Checks of the whole. Raises LineError.
void CheckReport(const ReportDefinition& report);

}  // namespace printing
