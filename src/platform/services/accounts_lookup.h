#pragma once

#include <array>
#include <string>

#include "platform/values/value.h"

namespace platform {

/// What the chart of accounts picker is given, in the order in which it takes it: company name, user number, company
/// number, accounting year, the number 2, False, False, four times 0, False.
using AccountsLookupInput = std::array<Value, 12>;

/// What the user chose there.
struct ChosenAccount {
  bool chosen = false;
  std::string account;         ///< five digits
  std::string department;      ///< three digits
  std::string accountText;     ///< the account's description
  std::string departmentText;  ///< the department's description
};

/// The suite's chart of accounts picker, a dialog of its own.
class AccountsLookup {
 public:
  virtual ~AccountsLookup() = default;
  /// Runs it modally; `chosen` is false when the user left it without an account.
  virtual ChosenAccount Run(const AccountsLookupInput& input) = 0;
};

}  // namespace platform
