#include "hostile/setup_screens.h"

#include <sstream>

#include "platform/controls/form/form.h"

namespace hostile {
namespace {

void LookUp(const Desk& desk) {
  desk.Click("miEditRec");
  desk.Click("cmdMapCode");
}

bool Usable(const platform::Form& screen, const std::string& name) { return screen.Find(name)->OpenToUser(); }

std::string KeyOf(const std::string& row) { return row.substr(0, row.find('|') + 1); }

bool HasKey(const Books::Rows& rows, const std::string& key) {
  const auto found = rows.lower_bound(key);
  return found != rows.end() && found->starts_with(key);
}

/// Whether a question named one of the row's fields.
bool WasAskedAbout(const std::string& row, const std::vector<std::string>& asked) {
  std::istringstream fields(row);
  for (std::string field; std::getline(fields, field, '|');)
    for (const std::string& question : asked)
      if (question.find("'" + field + "'") != std::string::npos) return true;
  return false;
}

}  // namespace

const std::vector<SetupScreenAtWork>& SetupScreens() {
  static const std::vector<SetupScreenAtWork> screens = {
      {.name = "phone-types",
       .form = "frmPhoneSetup",
       .open = [](const Desk& desk) { desk.Click("tb_PhoneSetup"); },
       .list = "grdPhoneTypes",
       .table = "PhoneTypes",
       .key = "Type",
       .freeRow = "7",
       .usedRow = "W",
       .entries = {{"txtPhone", "Barn"}}},
      {.name = "card-types",
       .form = "frmCreditCardSetup",
       .open = [](const Desk& desk) { desk.Click("tb_CreditCardSetup"); },
       .list = "grdCreditCard",
       .table = "CreditCardTypes",
       .key = "CreditCardType",
       .freeRow = "7",
       .usedRow = "V",
       .entries = {{"txtCreditCardName", "Trade"}, {"txtBankCharge", "1.5"}}},
      {.name = "map-codes",
       .form = "frmMapCode",
       .open = [](const Desk& desk) { desk.Click("miSetupMapCodes"); },
       .list = "grdLocations",
       .table = "Locations",
       .key = "MapCode",
       .freeRow = "F-7",
       .usedRow = "U-1",
       .entries = {{"txtMapCode", "N-9"}, {"txtLocation", "Newtown"}}},
      {.name = "map-lookup",
       .form = "frmMapCode",
       .open = LookUp,
       .list = "grdLocations",
       .table = "Locations",
       .key = "MapCode",
       .freeRow = "F-7",
       .usedRow = "U-1",
       .entries = {{"txtMapCode", "N-9"}, {"txtLocation", "Newtown"}}},
  };
  return screens;
}

std::vector<std::string> Mismatches(const SetupScreenAtWork& setup, const platform::Form& screen) {
  std::vector<std::string> faults;
  const bool card = screen.Find(setup.entries.front().first)->EffectivelyVisible();
  const auto demand = [&](bool holds, const std::string& what) {
    if (!holds) faults.push_back(screen.Name() + (card ? " on a card: " : " in the list: ") + what);
  };
  demand(screen.Find("Toolbar1")->Enabled(), "the toolbar stays shut");
  demand(screen.Find(setup.list)->EffectivelyVisible() != card, "list and card together");
  for (const char* name : {"tb_SaveRec", "tb_CancelRec"}) demand(Usable(screen, name) == card, name);
  for (const char* name : {"tb_AddRec", "txtSearch", "cmdClose"}) demand(Usable(screen, name) != card, name);
  return faults;
}

std::vector<std::string> Unasked(const Books& before, const Books& after, const std::vector<std::string>& asked) {
  std::vector<std::string> faults;
  for (const SetupScreenAtWork& setup : SetupScreens()) {
    const Books::Table& was = before.Tables().at(setup.table);
    const Books::Table& is = after.Tables().at(setup.table);
    for (const auto& [account, rows] : was)
      for (const std::string& row : rows)
        if (const auto now = is.find(account); now == is.end() || !HasKey(now->second, KeyOf(row)))
          if (!WasAskedAbout(row, asked)) faults.push_back("deleted without a question: " + setup.table + " <" + row + ">");
  }
  return faults;
}

}  // namespace hostile
