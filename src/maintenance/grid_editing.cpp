#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "session/ModCustSch.h"

// Editing cells in the lists: the tests before a cell is taken, what a cell of the assignment lists changes in the real
// tables, and the writing of the row.
namespace orcussch {

using platform::Value;

namespace {

constexpr int kYearLength = 4;
constexpr int kAssignColumn = 0;
constexpr int kTextColumn = 1;

bool IsEmpty(const std::string& V) { return V.empty(); }
bool NotNumeric(const std::string& V) { return !platform::IsNumeric(V); }
bool NoCardNumber(const std::string& V) { return V.empty() || !platform::IsNumeric(V); }
/// A text that is no number can't be compared: the failure is reported and the cell passes on.
bool NoMonth(const std::string& V) { return platform::CDbl(V) < 1 || platform::CDbl(V) > 12; }
bool NoYear(const std::string& V) { return platform::Len(V) != kYearLength; }

struct CellTest {
  int tab;
  const char* field;
  bool (*refused)(const std::string& V);
  const char* message;
};

/// Field names are compared to the letter: "CCLimt" and "Keyword" match no column of the lists, so a limit and a key word are
/// not tested here; the engine and the empty-cell rule below take care of them.
constexpr CellTest kCellTests[] = {
    {tab::Phones, "TypeDescription", IsEmpty, "You must have a type of phone number description!"},
    {tab::CreditCards, "CCNumber", NoCardNumber, "You must enter a numeric credit card number!"},
    {tab::CreditCards, "CCMonth", NoMonth, "You must enter a numeric credit card expiration month form 1 to 12!"},
    {tab::CreditCards, "CCYear", NoYear, "You must enter a 4 digit numeric credit card expiration year!"},
    {tab::CreditCards, "CCLimt", NotNumeric, "You must enter a numeric credit card limit!"},
    {tab::LaborRates, "Adjustment", NotNumeric, "You must enter a numeric adjustment%!"},
    {tab::CustomerTypes, "Description", IsEmpty, "You must have a customer type description!"},
    {tab::KeyWords, "Keyword", IsEmpty, "You must have a key word!"},
};

/// Where a tick of an assignment list is kept, and the entry's own table.
struct AssignmentTables {
  platform::RecordsetRef& assigned;
  const char* assignedIndex;
  const char* assignedField;
  platform::RecordsetRef& entries;
  const char* entryField;
  const char* keyField;
};

AssignmentTables TablesOf(int Tab) {
  if (Tab == tab::CustomerTypes) return {rsCustCodes, "AcctCode", "CustCodes", rsDataCodes, "Description", "Code"};
  return {rsLookups, "ByAcct", "Text", rsKeywords, "Keyword", "Keyword"};
}

}  // namespace

void frmCustMain::grid_BeforeColUpdate(int Index, int ColIndex, const Value& OldValue, bool& Cancel) {
  ResumeNext on("frmCustMain.grid_BeforeColUpdate");
  platform::Grid& list = grid[static_cast<std::size_t>(Index)];
  std::string V;
  on([&] { V = platform::Trim(platform::CStr(platform::Concat("", list.ColumnValue(ColIndex)))); });

  std::string Message;
  for (const CellTest& test : kCellTests) {
    if (test.tab != Index || list.Column(ColIndex).dataField != test.field) continue;
    bool Refused = false;
    on([&] { Refused = test.refused(V); });
    if (Refused) Message = test.message;
  }
  if (Message.empty()) return;
  on([&] {
    orcussch::App().MsgBox(Message, platform::box::Information + platform::box::OkOnly,
                           SSIndexTab1.TabCaption(Tab()) + "-  Invalid Grid Entry");
  });
  Cancel = true;
  on([&] { list.ColumnValue(ColIndex, OldValue); });
}

void frmCustMain::grid_AfterColUpdate(int Index, int ColIndex) {
  if (Index <= tab::LaborRates) return;  // there the binding has done it all
  Trap("frmCustMain.grid_AfterColUpdate", [&] {
    if (ColIndex == kAssignColumn)
      Assign(Index);
    else if (ColIndex == kTextColumn)
      Rename(Index);
  });
}

/// A tick adds the customer's row, taking it away deletes that row. The customer is the one for whom the list was filled: in a
/// yield of a longer command the customers' list may have moved on.
void frmCustMain::Assign(int Tab) {
  const auto n = static_cast<std::size_t>(Tab);
  const AssignmentTables tables = TablesOf(Tab);
  const Value Acct = mAssignAcct[n] ? Value(*mAssignAcct[n]) : data[tab::Customers].Recordset()->Field("AcctNum");
  const Value Key = data[n].Recordset()->Field(tables.keyField);
  tables.assigned->SetIndex(tables.assignedIndex);
  tables.assigned->Seek("=", {Acct, Key});
  const bool Found = !tables.assigned->NoMatch();
  const bool Ticked = platform::CBool(grid[n].ColumnValue(kAssignColumn));
  if (!Found && Ticked) {
    tables.assigned->AddNew();
    tables.assigned->SetField("AcctNum", Acct);
    tables.assigned->SetField(tables.assignedField, Key);
    tables.assigned->Update();
    grid[n].RefreshRow();
  } else if (Found && !Ticked) {
    tables.assigned->Delete();
    grid[n].RefreshRow();
  }
  orcussch::App().DoEvents();
}

/// The list's row still holds the old key word at this moment. An empty cell changes nothing.
void frmCustMain::Rename(int Tab) {
  const auto n = static_cast<std::size_t>(Tab);
  const Value Cell = grid[n].ColumnValue(kTextColumn);
  if (platform::CStr(platform::Concat("", Cell)).empty()) return;
  const AssignmentTables tables = TablesOf(Tab);
  tables.entries->SetIndex("PrimaryKey");
  tables.entries->Seek("=", {data[n].Recordset()->Field(tables.keyField)});
  if (tables.entries->NoMatch()) return;
  tables.entries->Edit();
  tables.entries->SetField(tables.entryField, Cell);
  tables.entries->Update();
  grid[n].RefreshRow();
}

/// Writes the changed row when the cell is left, not only when the list moves on.
void frmCustMain::grid_AfterColEdit(int Index) {
  Trap("frmCustMain.grid_AfterColEdit", [&] {
    const platform::RecordsetRef Rs = data[static_cast<std::size_t>(Index)].Recordset();
    Rs->Edit();
    Rs->Update();
  });
}

void frmCustMain::grdTaxBasis_AfterColUpdate() {
  Trap("frmCustMain.gridTaxBasis_AfterColEdit", [this] {
    DataTaxBasis.Recordset()->Edit();
    DataTaxBasis.Recordset()->Update();
  });
}

}  // namespace orcussch
