#include "maintenance/assignment_tab.h"

#include "maintenance/display_options.h"
#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "session/ModCustSch.h"

namespace orcussch {

using platform::Value;

namespace {

constexpr int kAssignColumn = 0;
constexpr int kTextColumn = 1;

/// Lasts as long as the copy is filled; a fill within another one is part of it.
class Filling {
 public:
  explicit Filling(bool& flag) : mFlag(flag), mBefore(flag) { mFlag = true; }
  ~Filling() { mFlag = mBefore; }
  Filling(const Filling&) = delete;
  Filling& operator=(const Filling&) = delete;

 private:
  bool& mFlag;
  bool mBefore;
};

void Run(const platform::DatabaseRef& Db, const std::string& SQL) {
  bool errorFlag = false;
  ExecuteSQLStmt(Db, SQL, false, errorFlag);
}

}  // namespace

AssignmentTab::AssignmentTab(frmCustMain& screen, int tab, const char* key, TabDesign design, const AssignmentDesign& assignment)
    : RecordTab(screen, tab, key, std::move(design)), mAssignment(assignment), optDisplay(screen, assignment.display) {
  CaptionOptions(optDisplay, kDisplayFilters);
  optDisplay.Each([this](platform::OptionButton& option, int) {
    PutOnListPage({&option});
    option.Click = [this] {
      s.SQLData(mTab);
      CaptionByFilter();
    };
  });
}

std::string AssignmentTab::Statement(std::int32_t) {
  return std::string("Select * From ") + mAssignment.listTable + " WHERE (Instance=" + std::to_string(s.mInstance) + ")" +
         AssignFilter(optDisplay);
}

TickList AssignmentTab::Ticks() { return {&s.grid[mTab], &s.data[mTab], 0}; }

void AssignmentTab::Visit(const std::string& Caption) {
  s.grid[mTab].Caption("All " + Caption);
  optDisplay[0].Value(true);
  Load();
}

void AssignmentTab::Load() {
  const Filling filling(mFilling);
  Trap(mAssignment.literal, [this] {
    const std::string instance = std::to_string(s.mInstance);
    const std::string head = std::string("INSERT INTO ") + mAssignment.workTable + " ( Instance, Assign, " + mAssignment.columns + " )" +
                             InFile(gTempPath) + " SELECT " + instance + " As Instance, ";
    s.App().DoEvents();
    Run(dbTemp, std::string("Delete * From ") + mAssignment.workTable + " Where (Instance = " + instance + ");");
    mFilledFor.reset();
    if (s.data[tab::Customers].OnRecord()) {
      const std::int32_t acct = platform::CLng(Customer()->Field("AcctNum"));
      mFilledFor = acct;
      Run(dbCustomer, head + "True AS Assign, " + mAssignment.assigned + std::to_string(acct) + ");");
    }
    // The ticked rows stand already: the table's key refuses them here, so that the ticks survive.
    Run(dbCustomer, head + "False AS Assign, " + mAssignment.all + ";");
    s.App().DoEvents();
  });
}

void AssignmentTab::LoadAnew(ResumeNext& on) {
  Load();
  on([this] { List().Refresh(); });
}

void AssignmentTab::CellTaken(int ColIndex) {
  Trap("frmCustMain.grid_AfterColUpdate", [&] {
    if (ColIndex == kAssignColumn)
      Assign();
    else if (ColIndex == kTextColumn)
      Rename();
  });
}

/// A tick adds the customer's row, taking it away deletes that row. The customer is the one for whom the list was filled: in a
/// yield of a longer command the customers' list may have moved on.
void AssignmentTab::Assign() {
  platform::Grid& list = s.grid[mTab];
  const AssignmentTables& tables = mAssignment.tables;
  const Value acct = mFilledFor ? Value(*mFilledFor) : Customer()->Field("AcctNum");
  const Value entry = Rows()->Field(Key());
  tables.assigned->SetIndex(tables.assignedIndex);
  tables.assigned->Seek("=", {acct, entry});
  const bool found = !tables.assigned->NoMatch();
  const bool ticked = platform::CBool(list.ColumnValue(kAssignColumn));
  if (!found && ticked) {
    tables.assigned->AddNew();
    tables.assigned->SetField("AcctNum", acct);
    tables.assigned->SetField(tables.assignedField, entry);
    tables.assigned->Update();
    list.RefreshRow();
  } else if (found && !ticked) {
    tables.assigned->Delete();
    list.RefreshRow();
  }
  s.App().DoEvents();
}

/// The list's row still holds the old key word at this moment. An empty cell changes nothing.
void AssignmentTab::Rename() {
  platform::Grid& list = s.grid[mTab];
  const Value cell = list.ColumnValue(kTextColumn);
  if (platform::CStr(platform::Concat("", cell)).empty()) return;
  const AssignmentTables& tables = mAssignment.tables;
  tables.entries->SetIndex("PrimaryKey");
  tables.entries->Seek("=", {Rows()->Field(Key())});
  if (tables.entries->NoMatch()) return;
  tables.entries->Edit();
  tables.entries->SetField(tables.entryField, cell);
  tables.entries->Update();
  list.RefreshRow();
}

/// By the filter that is on now: another one may have been chosen while the list was built.
void AssignmentTab::CaptionByFilter() {
  const std::string entries = TrimmedCaption(s, mTab);
  const std::string customer = s.lblCustomer.Caption();
  platform::Grid& list = s.grid[mTab];
  if (optDisplay[1].Value())
    list.Caption(customer + " assigned " + entries);
  else if (optDisplay[2].Value())
    list.Caption(entries + "  not assigned to " + customer);
  else
    list.Caption("All " + entries);
}

void LoadEntries(const frmCustMain& screen, int Tab) { dynamic_cast<AssignmentTab&>(screen.Record(Tab)).Load(); }

}  // namespace orcussch
