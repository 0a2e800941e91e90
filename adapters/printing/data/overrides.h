#pragma once

#include <map>
#include <string>

#include "printing/definition/report_definition.h"

namespace printing {

/// Gives formulas of the report the values of the job's texts: the name, an equals sign and the value. A text stands between the first
/// and the last double quote behind the sign and may itself hold such quotes; a Boolean, number or date (Date(1999, 1, 31)) stands bare.
/// Raises ReportFailure for an unknown name and for a value of another type than the formula's.
void ApplyFormulas(ReportDefinition& report, const std::map<int, std::string>& formulas);

}  // namespace printing
