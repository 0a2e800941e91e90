#include "hostile/setup_screens.h"

#include <sstream>

#include "platform/controls/form/form.h"

namespace hostile {
namespace {

void LookUp(const Desk& desk) {
  desk.Click("miEditRec");
  desk.Click("cmdMapCode");
}

/// By its name, or "txtSearch(0)".
const platform::Control& Named(const platform::Form& screen, const std::string& name) {
  const std::size_t at = name.find('(');
  return at == std::string::npos ? *screen.Find(name) : *screen.Find(name.substr(0, at), std::stoi(name.substr(at + 1)));
}

bool Usable(const platform::Form& screen, const std::string& name) { return Named(screen, name).OpenToUser(); }

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
      for (const std::string& named : {"'" + field + "'", ": " + field + "?"})
        if (question.find(named) != std::string::npos) return true;
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
      {.name = "tax-types",
       .form = "frmTaxSetup",
       .open = [](const Desk& desk) { desk.Click("tb_TaxSetup"); },
       .list = "grid(0)",
       .table = "TaxTypes",
       .key = "TaxType",
       .freeRow = "2",
       .usedRow = "1",
       .entries = {{"txtTaxType", "Fee"}},
       .search = "txtSearch(0)",
       .order = "optOrder0(1)",
       .tab = 0},
      {.name = "tax-entities",
       .form = "frmTaxSetup",
       .open = [](const Desk& desk) { desk.Click("tb_TaxSetup"); },
       .list = "grid(1)",
       .table = "TaxEntities",
       .key = "TaxEntity",
       .freeRow = "2",
       .usedRow = "1",
       .entries = {{"txtTaxEntity", "Duluth"}},
       .search = "txtSearch(1)",
       .order = "optOrder1(1)",
       .tab = 1},
      {.name = "tax-rates",
       .form = "frmTaxSetup",
       .open = [](const Desk& desk) { desk.Click("tb_TaxSetup"); },
       .list = "grid(2)",
       .table = "TaxGrid",
       .key = "TaxID",
       .freeRow = "5",
       .usedRow = "1",
       .entries = {{"txtDescription", "City"}, {"cboTypes", "Free"}, {"cboEntities", "Free"}},
       .search = "txtSearch(2)",
       .order = "optOrder2(1)",
       .tab = 2},
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
  demand(Named(screen, setup.list).EffectivelyVisible() != card, "list and card together");
  for (const char* name : {"tb_SaveRec", "tb_CancelRec"}) demand(Usable(screen, name) == card, name);
  for (const std::string& name : {std::string("tb_AddRec"), setup.search, std::string("cmdClose")})
    demand(Usable(screen, name) != card, name);
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
