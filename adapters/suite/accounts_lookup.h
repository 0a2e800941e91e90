#pragma once

#include <memory>

#include "platform/services/accounts_lookup.h"

namespace suite {

/// Stands in where the suite's chart of accounts picker is not installed: never an account is chosen.
std::unique_ptr<platform::AccountsLookup> MakeMissingAccountsLookup();

}  // namespace suite
