#pragma once

#include <span>
#include <vector>

#include "printing/definition/report_definition.h"

namespace printing {

/// The fields that expressions use, by way of formulas too, each once, in the order of their first use. Their nodes live in the report
/// or in the expressions.
std::vector<const Expression*> FieldsOf(const ReportDefinition& report, std::span<const Expression* const> expressions);

/// All expressions of a report for which a row's fields are needed: those of bands, totals and groups.
std::vector<const Expression*> ExpressionsOfRows(const ReportDefinition& report);

}  // namespace printing
