#pragma once

#include <memory>

#include "platform/services/accounts_lookup.h"

namespace orcussch {

/// The look-up of accounts that the program brings itself, for hosts that have none: a list of the general ledger's accounts
/// (frmAccounts) over the attached application. The number 2 asks for liability accounts, any other for all.
std::unique_ptr<platform::AccountsLookup> MakeAccountsPicker();

}  // namespace orcussch
