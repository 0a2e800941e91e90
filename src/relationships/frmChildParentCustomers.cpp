#include "relationships/frmChildParentCustomers.h"

#include <utility>
#include <vector>

#include "platform/values/convert.h"
#include "records/columns.h"
#include "records/fields.h"
#include "records/list_search.h"
#include "records/lists.h"
#include "session/ModCustSch.h"
#include "session/failures.h"

namespace orcussch {

namespace screens {
platform::ScreenRef<orcussch::frmChildParentCustomers> frmChildParentCustomers{App};
}  // namespace screens

namespace {

constexpr int kChildren = 0;
constexpr int kParents = 1;
constexpr int kEnter = 13;

/// Both lists have all of them, the state too, which no statement selects: offices know the column as an empty one.
std::vector<platform::GridColumn> Columns() {
  std::vector<platform::GridColumn> columns;
  const std::pair<const char*, const char*> fields[] = {{"Account No.", "AcctNum"},
                                                        {"Customer Last Name", "Lastname"},
                                                        {"Customer First Name", "Firstname"},
                                                        {"Title", "Title"},
                                                        {"Address 1", "Addr1"},
                                                        {"Address 2", "Addr2"},
                                                        {"City", "City"},
                                                        {"State", "State"},
                                                        {"Zip", "Zip"},
                                                        {"Country", "Country"}};
  for (const auto& [caption, field] : fields) columns.push_back(column::Closed(column::Plain(caption, field)));
  return columns;
}

}  // namespace

frmChildParentCustomers::frmChildParentCustomers(platform::Application& application)
    : Screen(application, "frmChildParentCustomers", "Customer Child/Parent Relationships"),
      fraSearch(*this, "fraSearch", "Search First:"),
      lblSearch(*this, "lblSearch", "Customer Last Name"),
      txtSearch(*this, "txtSearch", 0, ""),
      fraOrder(*this, "fraOrder", "Order By:"),
      optOrder(*this, "optOrder"),
      DataCustomers(*this, "DataCustomers"),
      fraCustomers(*this, "fraCustomers", ""),
      lblCurrentCustomer(*this, "lblCurrentCustomer", ""),
      grdCustomers(*this, "grdCustomers"),
      StatusBar1(*this, "StatusBar1") {
  LeavesByEscape(true);
  fraSearch.Tag("LastName");
  fraOrder.Tag("LastName");
  lblSearch.Container(fraSearch);
  txtSearch.Container(fraSearch);
  optOrder[0].Caption("Ascending Customer Last Name");
  optOrder[1].Caption("Descending Customer Last Name");
  optOrder[0].Design(true);
  fraCustomers[kParents].Caption("Parent Customers:");
  fraCustomers[kChildren].Caption("Child Customers:");
  grdCustomers[kChildren].Tag("LastName");
  for (int i : {kParents, kChildren}) {
    optOrder[i].Container(fraOrder);
    DataCustomers[i].RecordSource("Select * From Customers Order By LastName");
    lblCurrentCustomer[i].Container(fraCustomers[i]);
    grdCustomers[i].Container(fraCustomers[i]);
    grdCustomers[i].BindTo(DataCustomers[i]);
    grdCustomers[i].DefineColumns(Columns());
    DataCustomers[i].Reposition = [this, i] { DataCustomers_Reposition(i); };
    grdCustomers[i].HeadClick = [this, i](int ColIndex) { grdCustomers_HeadClick(i, ColIndex); };
    optOrder[i].Click = [this, i] { optOrder_Click(i); };
    fraCustomers[i].MouseMove = [this] { StatusBar1.Panel(1, ""); };
  }
  grdCustomers[kParents].SearchBox(txtSearch);
  grdCustomers[kParents].Sort = [this](int ColIndex, bool descending) { SortParents(ColIndex, descending); };
  txtSearch.Change = [this] { fraSearch.Caption(kSearchFirst); };
  txtSearch.KeyPress = [this](int& KeyAscii) {
    if (KeyAscii == kEnter && !txtSearch.Text().empty()) SearchRecord(DataCustomers[kParents].Recordset());
  };
  TabOrder({&txtSearch, &optOrder[0], &optOrder[1], &grdCustomers[kParents], &grdCustomers[kChildren]});
}

void frmChildParentCustomers::Form_Load() {
  Trap("frmChildParentCustomers.Form_Load", [this] {
    for (int i : {kChildren, kParents}) DataCustomers[i].DatabaseName(gCustomerPath);
    SQLCustomers(0, kParents);
    if (!Loaded()) return;
    StatusBar1.Panel(1, "Customer relationship are setup in the Accounts Receivable module");
    App().DoEvents();
  });
}

void frmChildParentCustomers::Form_Unload() {
  App().DoEvents();
  screens::frmChildParentCustomers.release();
}

void frmChildParentCustomers::SQLCustomers(std::int32_t AcctNum, int Index) {
  Trap("frmChildParentCustomers.SQLCustomers", [this, AcctNum, Index] {
    App().MousePointer(platform::pointer::Hourglass);
    App().DoEvents();
    if (!Loaded()) return;
    const int LeftCol = grdCustomers[Index].LeftCol(0);
    DataCustomers[Index].RecordSource(Statement(AcctNum, Index));
    DataCustomers[Index].Refresh();
    if (!Loaded()) return;
    grdCustomers[Index].LeftCol(0, LeftCol);
    App().MousePointer(platform::pointer::Default);
    App().DoEvents();
  });
}

/// The children's list has neither a direction nor an end sign: its order is turned by a heading alone.
std::string frmChildParentCustomers::Statement(std::int32_t AcctNum, int Index) const {
  std::string sql =
      "SELECT DISTINCTROW Customers.AcctNum, Customers.LastName, Customers.FirstName, Customers.Title, Customers.Addr1, Customers.Addr2, "
      "Customers.City, Customers.Zip, Customers.Country";
  if (Index != kChildren) {
    sql += " FROM SuperCustomers INNER JOIN Customers ON SuperCustomers.Primary = Customers.AcctNum";
    return sql + " ORDER By " + fraOrder.Tag() + (optOrder[1].Value() ? " DESC" : "") + ";";
  }
  sql += " FROM SuperCustomers INNER JOIN Customers ON SuperCustomers.Subordinate = Customers.AcctNum";
  sql += " WHERE (SuperCustomers.Primary=" + std::to_string(AcctNum) + ")";
  return sql + " ORDER By " + grdCustomers[kChildren].Tag();
}

std::int32_t frmChildParentCustomers::CurrentParent() const {
  const platform::DataControl& parents = DataCustomers[kParents];
  if (!parents.OnRecord()) return 0;
  const platform::Value AcctNum = parents.Recordset()->Field("AcctNum");
  return AcctNum.IsNull() ? 0 : platform::CLng(AcctNum);
}

/// The children follow the parent.
void frmChildParentCustomers::DataCustomers_Reposition(int Index) {
  if (Index == kParents) {
    SQLCustomers(CurrentParent(), kChildren);
    if (!Loaded()) return;
    App().DoEvents();
    if (!Loaded()) return;
  }
  std::string Name;
  if (DataCustomers[Index].OnRecord()) {
    for (const char* field : {"Title", "FirstName", "LastName"}) {
      const std::string part = TextOf(DataCustomers[Index].Recordset(), field);
      if (!part.empty()) Name += part + " ";
    }
  }
  lblCurrentCustomer[Index].Caption(Name);
  if (Index == kParents) fraCustomers[kChildren].Caption("Child Customers of " + lblCurrentCustomer[kParents].Caption());
}

void frmChildParentCustomers::OrderParentsBy(int ColIndex) {
  const platform::GridColumn& column = grdCustomers[kParents].Column(ColIndex);
  fraSearch.Tag(column.dataField);
  fraOrder.Tag("Customers." + column.dataField);
  lblSearch.Caption(column.caption);
  optOrder[0].Caption("Ascending " + column.caption);
  optOrder[1].Caption("Descending " + column.caption);
}

void frmChildParentCustomers::grdCustomers_HeadClick(int Index, int ColIndex) {
  if (Index == kChildren)
    grdCustomers[kChildren].Tag("Customers." + grdCustomers[kParents].Column(ColIndex).dataField);
  else
    OrderParentsBy(ColIndex);
  if (HasRecords(DataCustomers[Index])) SQLCustomers(CurrentParent(), Index);
}

/// As a click on the heading and one on the option, with one rebuild.
void frmChildParentCustomers::SortParents(int ColIndex, bool descending) {
  OrderParentsBy(ColIndex);
  const int opened = DataCustomers[kParents].RefreshCount();
  platform::OptionButton& direction = optOrder[descending ? 1 : 0];
  if (!direction.Value()) direction.Value(true);
  if (!Loaded() || DataCustomers[kParents].RefreshCount() != opened) return;
  if (HasRecords(DataCustomers[kParents])) SQLCustomers(CurrentParent(), kParents);
}

/// Each option asks the list of its own number, although both order the parents: without children "Ascending" changes nothing.
void frmChildParentCustomers::optOrder_Click(int Index) {
  if (HasRecords(DataCustomers[Index])) SQLCustomers(0, kParents);
}

void frmChildParentCustomers::SearchRecord(const platform::RecordsetRef& rows) {
  SearchList(App(), rows, {fraSearch.Tag(), fraSearch, lblSearch, txtSearch}, FixQuotes(txtSearch.Text()), "Parent Customer Search");
}

}  // namespace orcussch
