#pragma once

#include <functional>

#include "library/orcussch.h"
#include "platform/services/accounts_lookup.h"

namespace library {

/// A look-up of accounts as a call.
using AccountsCall = std::function<platform::ChosenAccount(const platform::AccountsLookupInput&)>;

/// The host's picker; an empty call when it has none. Raises platform::Error for texts that are not UTF-8 or have no end.
AccountsCall HostAccounts(orcussch_accounts_lookup lookup, void* data);

}  // namespace library
