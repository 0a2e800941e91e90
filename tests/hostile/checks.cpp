#include "hostile/checks.h"

#include <regex>

#include "hostile/desk.h"
#include "platform/values/convert.h"
#include "platform/values/text.h"
#include "support/controls.h"

namespace hostile {
namespace {

using namespace orcussch;
using Faults = std::vector<std::string>;

constexpr int kManyRows = 200;
constexpr const char* kTyped = "Brand";  ///< what the user's own types and key words begin with

std::string Shown(const platform::Value& value) { return platform::CStr(platform::Concat("", value)); }

std::string Trimmed(const platform::Recordset& row, const char* field) { return platform::Trim(Shown(row.Field(field))); }

std::string NameOf(const platform::Recordset& row) {
  const std::string title = Trimmed(row, "Title");
  const std::string first = Trimmed(row, "FirstName");
  const std::string name = first.empty() ? title : title + " " + first;
  return (name.empty() ? "" : name + " ") + Trimmed(row, "LastName");
}

/// The name and the number above the tabs against the row of the customer list.
void CheckHead(const frmCustMain& screen, const Books& books, Faults& faults) {
  const platform::DataControl& customers = screen.data[tab::Customers];
  const std::int32_t named = NamedAccount(screen);
  if (!customers.OnRecord()) {
    if (named != 0 || !screen.lblCustomer.Caption().empty())
      faults.push_back("names " + screen.lblAcctNum.Caption() + " \"" + screen.lblCustomer.Caption() +
                       "\" while the list stands on no row");
    return;
  }
  const platform::Recordset& row = RowsOf(customers.Recordset());
  const std::int32_t account = platform::CLng(row.Field("AcctNum"));
  if (account != named) faults.push_back("names account " + screen.lblAcctNum.Caption() + " on the row of " + std::to_string(account));
  if (screen.lblCustomer.Caption() != NameOf(row))
    faults.push_back("names \"" + screen.lblCustomer.Caption() + "\" on the row of \"" + NameOf(row) + "\"");
  if (!books.HasCustomer(account)) faults.push_back("stands on customer " + std::to_string(account) + ", who is gone");
}

/// The account whose rows the tab's list was opened for, by the text of its statement; 0 when it names none.
std::int32_t AccountOfStatement(const std::string& statement) {
  static const std::regex condition("\\((?:AcctNum|Customer)=(-?[0-9]+)\\)");
  std::smatch match;
  return std::regex_search(statement, match, condition) ? std::stoi(match[1]) : 0;
}

void CheckDependent(const frmCustMain& screen, int tab, Faults& faults) {
  const platform::DataControl& data = screen.data[tab];
  const std::int32_t named = NamedAccount(screen);
  const platform::Recordset& rows = RowsOf(data.Recordset());
  const std::string list = "the list of tab " + std::to_string(tab);
  if (const std::int32_t owner = AccountOfStatement(rows.Name()); owner != named)
    faults.push_back(list + " is that of customer " + std::to_string(owner) + " under the name of " + std::to_string(named));
  const char* field = tab == tab::Addresses ? "Customer" : tab == tab::LaborRates ? nullptr : "AcctNum";
  if (field != nullptr && data.Window() != nullptr) {
    const auto at = static_cast<std::size_t>(rows.FieldIndex(field));
    for (const platform::ListRow& row : data.Window()->RowsAt(0, kManyRows))
      if (at < row.cells.size() && Shown(row.cells[at]) != std::to_string(named))
        faults.push_back(list + " has a row of customer " + Shown(row.cells[at]) + " under the name of " + std::to_string(named));
  }
  const std::string caption = screen.lblCustomer.Caption() + " - " + TrimmedCaption(screen, tab);
  if (screen.grid[tab].Caption() != caption)
    faults.push_back(list + " is headed \"" + screen.grid[tab].Caption() + "\", not \"" + caption + "\"");
}

/// The ticks of types and key words against what the named customer has.
void CheckAssignments(const frmCustMain& screen, int tab, const Books& books, Faults& faults) {
  const bool types = tab == tab::CustomerTypes;
  const platform::DataControl& data = screen.data[tab];
  const std::set<std::string> assigned = books.Assigned(types ? "CustCodes" : "Lookups", NamedAccount(screen));
  const platform::Recordset& rows = RowsOf(data.Recordset());
  const auto tick = static_cast<std::size_t>(rows.FieldIndex("Assign"));
  const auto key = static_cast<std::size_t>(rows.FieldIndex(types ? "Code" : "Keyword"));
  if (data.Window() == nullptr) return;
  for (const platform::ListRow& row : data.Window()->RowsAt(0, kManyRows)) {
    if (row.cells.empty()) continue;
    const bool ticked = platform::CBool(row.cells[tick]);
    if (ticked != assigned.contains(Shown(row.cells[key])))
      faults.push_back("tab " + std::to_string(tab) + ": " + Shown(row.cells[key]) + (ticked ? " is ticked" : " is not ticked") +
                       " against what customer " + std::to_string(NamedAccount(screen)) + " has");
  }
  const char* display = types ? "optCustTypeDisp" : "optKeyWordDisp";
  const std::string list = TrimmedCaption(screen, tab);
  const std::string& customer = screen.lblCustomer.Caption();
  const std::string caption = OptionOf(screen, display, 1).Value()   ? customer + " assigned " + list
                              : OptionOf(screen, display, 2).Value() ? list + "  not assigned to " + customer
                                                                     : "All " + list;
  if (screen.grid[tab].Caption() != caption)
    faults.push_back("the list of tab " + std::to_string(tab) + " is headed \"" + screen.grid[tab].Caption() + "\", not \"" + caption + "\"");
}

/// The keys of a card are open with it, those that leave it too.
void CheckKeys(const frmCustMain& screen, Faults& faults) {
  const bool card = screen.SSIndexTab1.Page() == 1;
  for (const char* key : {"tb_SaveRec", "tb_CancelRec"})
    if (screen.Toolbar1.Button(key).Enabled() != card) faults.push_back(std::string(card ? "on a card: " : "in the list: ") + key);
}

/// An open card of a stored record against the row on which its list stands.
void CheckCard(const frmCustMain& screen, Faults& faults) {
  if (screen.SSIndexTab1.Page() != 1 || screen.mRecordMode != "E") return;
  struct Card {
    int tab;
    const char* field;
    std::string shown;
  };
  const std::string& typed =
      screen.Tab() == tab::CustomerTypes ? EditOf(screen, "txtCustomerType").Text() : EditOf(screen, "txtKeyWord").Text();
  const std::string entry = typed.starts_with(kTyped) ? "" : typed;
  const Card cards[] = {{tab::Customers, "LastName", EditOf(screen, "txtLastName").Text()},
                        {tab::Phones, "RecordID", LabelOf(screen, "lblPhoneRecordID").Caption()},
                        {tab::Addresses, "addressID", LabelOf(screen, "lblAltAddressID").Caption()},
                        {tab::CreditCards, "CCHolder", EditOf(screen, "txtCCHolder").Text()},
                        {tab::LaborRates, "Dept", Shown(ComboOf(screen, "cboDepts").BoundValue())},
                        {tab::CustomerTypes, "Description", entry},
                        {tab::KeyWords, "Keyword", entry}};
  for (const Card& card : cards) {
    const platform::DataControl& data = screen.data[card.tab];
    if (card.tab != screen.Tab() || !data.OnRecord()) continue;
    const std::string row = Shown(RowsOf(data.Recordset()).Field(card.field));
    if (!card.shown.empty() && row != card.shown)
      faults.push_back("the card shows " + std::string(card.field) + " " + card.shown + " on the row of " + row);
  }
}

}  // namespace

std::int32_t NamedAccount(const frmCustMain& screen) {
  const std::string& text = screen.lblAcctNum.Caption();
  return text.empty() ? 0 : std::stoi(text);
}

std::vector<std::string> Mismatches(const frmCustMain& screen, const Books& books) {
  Faults faults;
  try {
    CheckHead(screen, books, faults);
    const int tab = screen.Tab();
    if (screen.data[tab].HasRecordset()) {
      if (tab >= tab::Phones && tab <= tab::LaborRates) CheckDependent(screen, tab, faults);
      if (tab > tab::LaborRates) CheckAssignments(screen, tab, books, faults);
    }
    CheckCard(screen, faults);
    CheckKeys(screen, faults);
  } catch (const platform::Error& error) {
    faults.push_back("what stands there can't be read: " + std::to_string(error.Number()) + " " + error.Description());
  }
  return faults;
}

}  // namespace hostile
