#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/data/data.h"

namespace orcussch {

/// An account of the general ledger: five digits and the department's three.
struct LedgerAccount {
  std::string GLAcct;
  std::string GLDept;
};

/// No account.
inline constexpr const char* kNoAccount = "00000000";

/// The type of the accounts that take taxes.
inline constexpr const char* kLiability = "L";

/// Takes eight digits apart; missing ones are zeros in front.
LedgerAccount SplitAccount(std::string_view digits);

/// Whether the account has a row in that year's ledger, is of that type and has a known department. `GLDesc` is its description
/// with the department's behind a hyphen: of department "000", which is none, the account's alone; "" when the account is refused,
/// but for the department. A type that is not exactly one character is not tested. The tables keep the indexes that they get here.
bool ValidGL(const platform::RecordsetRef& GL_Tb, const platform::RecordsetRef& GLAccounts_Tb,
             const platform::RecordsetRef& GLDepartments_Tb, std::int16_t ActgYear, const LedgerAccount& account, std::string& GLDesc,
             const std::string& AcctType);

}  // namespace orcussch
