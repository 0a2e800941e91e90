#pragma once

#include <string>

#include "platform/services/report_engine.h"

namespace orcussch {

/// A formula with a text: NAME="value". The text may itself hold quotes; the report takes what stands between the first and the last.
std::string TextFormula(const std::string& Name, const std::string& Text);

/// The working company's head, numbers 0 to 4: CompanyName, CompanyAddr1, CompanyAddr2, CompanyCityStZip, CompanyPhone.
void SetCompanyFormulas(platform::ReportJob& Job);

/// Period: the day of the report.
std::string PeriodFormula();

}  // namespace orcussch
