#include "setup/accounts/accounts_picker.h"

#include <cstddef>

#include "platform/values/convert.h"
#include "session/ModCustSch.h"
#include "setup/accounts/frmAccounts.h"

namespace orcussch {

namespace {

using platform::AccountsLookupInput;
using platform::CLng;

/// Places of what the picker is given.
constexpr std::size_t kCompany = 2;
constexpr std::size_t kYear = 3;
constexpr std::size_t kKind = 4;

constexpr std::int32_t kLiabilities = 2;

AccountsAsked Asked(const AccountsLookupInput& input) {
  return {CLng(input[kCompany]), CLng(input[kYear]), CLng(input[kKind]) == kLiabilities ? "L" : ""};
}

class AccountsPicker final : public platform::AccountsLookup {
 public:
  platform::ChosenAccount Run(const AccountsLookupInput& input) override {
    auto screen = std::make_unique<frmAccounts>(App(), Asked(input));
    if (screen->Open()) App().Show(*screen);
    platform::ChosenAccount chosen = screen->Chosen();
    App().Bury(std::move(screen));
    return chosen;
  }
};

}  // namespace

std::unique_ptr<platform::AccountsLookup> MakeAccountsPicker() { return std::make_unique<AccountsPicker>(); }

}  // namespace orcussch
