#include "suitefiles/company/company_links.h"

#include "platform/values/text.h"

namespace suitefiles {

suite::DataFile FileOfLink(const std::string& name) {
  if (platform::EqualsNoCase(name, "Departments")) return suite::DataFile::Ledger;
  if (platform::EqualsNoCase(name, "Transactions")) return suite::DataFile::Transactions;
  return suite::DataFile::Customer;
}

}  // namespace suitefiles
