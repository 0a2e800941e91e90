#include "suite/accounts_lookup.h"

namespace suite {

namespace {

class MissingAccountsLookup final : public platform::AccountsLookup {
 public:
  platform::ChosenAccount Run(const platform::AccountsLookupInput& /*input*/) override { return {}; }
};

}  // namespace

std::unique_ptr<platform::AccountsLookup> MakeMissingAccountsLookup() { return std::make_unique<MissingAccountsLookup>(); }

}  // namespace suite
