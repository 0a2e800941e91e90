#pragma once

#include <string>

#include "session/ModCustSch.h"

namespace orcussch {

/// "Queried Billable Customers", "All Customers": what the customer list shows. Its first letter tells the two apart. `Which`:
/// "Queried" or "All".
inline std::string TitleOfCustomers(const std::string& Which) {
  const std::string kind = gBillingStatus == "B" ? "Billable " : gBillingStatus == "N" ? "Non-Billable " : "";
  return Which + " " + kind + "Customers";
}

}  // namespace orcussch
