#include "reports/company_formulas.h"

#include "platform/values/convert.h"
#include "platform/values/format.h"
#include "session/ModCustSch.h"

namespace orcussch {

using platform::RTrim;
using platform::Trim;

namespace {

/// The ten places of a number as they are stored: where none is stored the punctuation stands alone.
std::string PhoneText(const std::string& Number) { return platform::Format(Number, "(@@@) @@@-@@@@"); }

}  // namespace

std::string TextFormula(const std::string& Name, const std::string& Text) { return Name + "=\"" + Text + "\""; }

void SetCompanyFormulas(platform::ReportJob& Job) {
  Job.Formulas[0] = TextFormula("CompanyName", Trim(gCompany.CompName));
  Job.Formulas[1] = TextFormula("CompanyAddr1", Trim(gCompany.Addr1));
  Job.Formulas[2] = TextFormula("CompanyAddr2", Trim(gCompany.Addr2));
  // State and ZIP keep their fixed width.
  Job.Formulas[3] = TextFormula("CompanyCityStZip", RTrim(gCompany.City) + ", " + gCompany.State + " " + gCompany.Zip);
  Job.Formulas[4] = TextFormula("CompanyPhone", PhoneText(gCompany.Phone) + " Fax:" + PhoneText(gCompany.Fax));
}

std::string PeriodFormula() { return TextFormula("Period", "Report Date: " + platform::CStr(App().Today())); }

}  // namespace orcussch
