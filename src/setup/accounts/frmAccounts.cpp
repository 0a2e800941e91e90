#include "setup/accounts/frmAccounts.h"

#include <utility>

#include "platform/values/convert.h"
#include "records/columns.h"
#include "session/ModCustSch.h"
#include "session/failures.h"
#include "setup/accounts/account_words.h"

namespace orcussch {

namespace {

using platform::CStr;

constexpr int kEnter = 13;

constexpr platform::Shortcut kShortcuts[] = {{"tb_Select", "Ctrl+Enter", ""}, {"tb_CancelRec", "Escape", ""}};

struct ListColumn {
  const char* caption;
  const char* field;
  const char* source;
  int width;  ///< in characters
};

constexpr ListColumn kColumns[] = {
    {"Account No.", "Account", "GL.Account", 17},
    {"Description", "AccountDescription", "Accounts.AccountDescription", 38},
    {"Dept. No.", "DeptNumber", "GL.DeptNumber", 13},
    {"Department", "DeptDescription", "Departments.DeptDescription", 25},
};

std::vector<platform::GridColumn> Columns() {
  std::vector<platform::GridColumn> columns;
  for (const ListColumn& each : kColumns) {
    columns.push_back(column::Closed(column::Plain(each.caption, each.field)));
    columns.back().width = each.width;
  }
  return columns;
}

/// Equal texts stand in the order of the numbers.
std::string OrderOf(int column, bool descending) {
  const std::string first = kColumns[column].source;
  std::string order = first + (descending ? " DESC" : "");
  for (const char* number : {"GL.Account", "GL.DeptNumber"})
    if (first != number) order += std::string(", ") + number;
  return order;
}

}  // namespace

frmAccounts::frmAccounts(platform::Application& application, AccountsAsked asked)
    : Screen(application, "frmAccounts", "Accounts"),
      Toolbar1(*this, "Toolbar1", {{"tb_Select", "Select Current Account"}, {"tb_CancelRec", "Leave Without an Account"}}),
      lblYear(*this, "lblYear",
              (asked.type == "L" ? "Liability accounts of accounting year " : "Accounts of accounting year ") + std::to_string(asked.year)),
      lblSearch(*this, "lblSearch", "Number or Description"),
      txtSearch(*this, "txtSearch"),
      lblFound(*this, "lblFound"),
      data(*this, "data"),
      grid(*this, "grid"),
      mAsked(std::move(asked)),
      mOrder(OrderOf(0, false)) {
  Shortcuts(kShortcuts);
  grid.BindTo(data);
  grid.DefineColumns(Columns());
  grid.SearchBox(txtSearch);
  grid.ChoosesRows(true);
  grid.RowCommands({{"Select", &Toolbar1.Button("tb_Select"), true}});
  grid.HeadClick = [this](int column) { OrderBy(column, false); };
  grid.Sort = [this](int column, bool descending) { OrderBy(column, descending); };
  txtSearch.Change = [this] { Trap("frmAccounts.txtSearch_Change", [this] { ListAccounts(); }); };
  txtSearch.KeyPress = [this](int& KeyAscii) {
    if (KeyAscii == kEnter) Choose();
  };
  Toolbar1.ButtonClick = [this](const std::string& Key) {
    if (Key == "tb_Select") return Choose();
    App().Unload(*this);
  };
}

/// The tables are joined as the ledger's test of an account goes: the year's pair of account and department, the account, and, where
/// there is a department, its row.
std::string frmAccounts::Statement() const {
  std::string statement =
      "SELECT GL.Account, GL.DeptNumber, Accounts.AccountDescription, Departments.DeptDescription FROM (GL LEFT JOIN Departments ON "
      "GL.DeptNumber = Departments.DeptNumber) INNER JOIN Accounts ON GL.Account = Accounts.AccountNumber WHERE (GL.[Year] = " +
      std::to_string(mAsked.year) + ") And (GL.DeptNumber = '000' Or Departments.DeptNumber Is Not Null)";
  if (!mAsked.type.empty()) statement += " And (Accounts.AccountType = " + Quoted(mAsked.type) + ")";
  const std::string criterion = AccountCriterion(txtSearch.Text());
  if (!criterion.empty()) statement += " And " + criterion;
  return statement + " ORDER BY " + mOrder + ";";
}

void frmAccounts::ListAccounts() {
  data.RecordSource(Statement());
  data.Refresh();
  const bool rows = data.Recordset()->HasRows();
  Toolbar1.Button("tb_Select").Enabled(rows);
  lblFound.Caption(rows ? "" : "No account fits.");
}

bool frmAccounts::Open() {
  data.DatabaseName(GetDataPath(mAsked.company, "GL.zdb"));
  if (data.DatabaseName().empty()) return false;
  if (!Trap("frmAccounts.ListAccounts", [this] { ListAccounts(); })) return false;
  if (data.Recordset()->HasRows()) return true;
  const char* kind = mAsked.type == "L" ? "liability accounts" : "accounts";
  App().MsgBox(std::string("The general ledger has no ") + kind + " for accounting year " + std::to_string(mAsked.year) + ".",
               platform::box::Information + platform::box::OkOnly, Caption());
  return false;
}

void frmAccounts::OrderBy(int column, bool descending) {
  mOrder = OrderOf(column, descending);
  Trap("frmAccounts.OrderBy", [this] { ListAccounts(); });
}

void frmAccounts::Choose() {
  if (!data.OnRecord()) return;
  const bool taken = Trap("frmAccounts.Choose", [this] {
    const platform::RecordsetRef row = data.Recordset();
    const auto text = [&](const char* field) { return CStr(platform::Concat("", row->Field(field))); };
    mChosen = {true, text("Account"), text("DeptNumber"), text("AccountDescription"), text("DeptDescription")};
  });
  if (taken) App().Unload(*this);
}

}  // namespace orcussch
