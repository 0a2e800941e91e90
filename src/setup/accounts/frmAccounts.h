#pragma once

#include <cstdint>
#include <string>

#include "platform/controls/data_control.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "platform/controls/text_box.h"
#include "platform/controls/toolbar.h"
#include "platform/host/screen.h"
#include "platform/services/accounts_lookup.h"

namespace orcussch {

/// Which accounts are to be chosen from.
struct AccountsAsked {
  std::int32_t company = 0;
  std::int32_t year = 0;
  std::string type;  ///< as the chart of accounts has it ("L" liability); "" for all
};

/// The accounts of one year, each with its departments, to choose one from: what is typed narrows the list to the accounts whose
/// number begins so or whose description holds it. One that the ledger would refuse, for its department has gone, is not listed.
class frmAccounts final : public platform::Screen {
 public:
  frmAccounts(platform::Application& application, AccountsAsked asked);

  /// Opens the list; call it before the screen is shown. False when there is nothing to choose from, which the user has been told.
  bool Open();
  /// What the user has chosen, when the screen has gone.
  const platform::ChosenAccount& Chosen() const noexcept { return mChosen; }

  // --- Controls, in tab order -----------------------------------------------------------------------------------------
  platform::Toolbar Toolbar1;
  platform::Label lblYear;
  platform::Label lblSearch;
  platform::TextBox txtSearch;
  platform::Label lblFound;  ///< says so when no account fits
  platform::DataControl data;
  platform::Grid grid;

 private:
  std::string Statement() const;
  void ListAccounts();
  void OrderBy(int column, bool descending);
  void Choose();

  AccountsAsked mAsked;
  platform::ChosenAccount mChosen;
  std::string mOrder;
};

}  // namespace orcussch
