#include "maintenance/frmCustMain.h"
#include "maintenance/tabs/record_tab.h"
#include "platform/convert.h"
#include "session/ModCustSch.h"

// The record operations: one frame for all tabs, the branches in tabs/.
namespace orcussch {

std::string frmCustMain::RecordLabel() const {
  const std::string Caption = TrimmedCaption(*this, Tab());
  return platform::Left(Caption, platform::Len(Caption) - 1) + " Record";
}

RecordTab& frmCustMain::CurrentRecord() const { return *mRecords[static_cast<std::size_t>(Tab())]; }

void frmCustMain::BeginWork() {
  mToolbarReady = false;
  orcussch::App().MousePointer(platform::pointer::Hourglass);
  orcussch::App().DoEvents();
}

void frmCustMain::EndWork() {
  mToolbarReady = true;
  orcussch::App().MousePointer(platform::pointer::Default);
  orcussch::App().DoEvents();
}

void frmCustMain::OpenCard() {
  EditingRecord(true);
  orcussch::App().DoEvents();
  EditSetup();
}

void frmCustMain::RecordAdd() {
  ResumeNext on("frmCustMain.RecordAdd");
  BeginWork();
  mRecordMode = "A";
  if (!CurrentRecord().Add(on)) {
    // The toolbar stays shut until a menu command has brought a record operation to its end: the refused user has been told
    // to change the customer first, and finds that in the menu.
    orcussch::App().MousePointer(platform::pointer::Default);
    return;
  }
  OpenCard();
  EndWork();
}

void frmCustMain::RecordEdit() {
  ResumeNext on("frmCustMain.RecordEdit");
  bool Records = false;
  on([&] { Records = data[static_cast<std::size_t>(Tab())].Recordset()->HasRows(); });
  if (!Records) return;
  BeginWork();
  mRecordMode = "E";
  on([&] { data[static_cast<std::size_t>(Tab())].ReadAnew(); });
  if (Tab() == tab::Customers) on([this] { ShowCustomerName(); });
  CurrentRecord().Edit(on);
  OpenCard();
  EndWork();
}

void frmCustMain::RecordSave() {
  // The literal names the add, as the log is searched for both under one name.
  ResumeNext on("frmCustMain.RecordAdd");
  SaveState state;
  state.Title = "Delete " + RecordLabel();
  mToolbarReady = false;
  orcussch::App().MousePointer(platform::pointer::Hourglass);
  StatusBar1.Panel(1, "Saving" + RecordLabel() + ", please wait!");
  orcussch::App().DoEvents();
  if (CurrentRecord().Save(on, state)) ShowSaved(on, state);
  StatusBar1.Panel(1, "");
  EndWork();
}

/// The common end of a save: the list is rebuilt and stands on the saved row.
void frmCustMain::ShowSaved(ResumeNext& on, const SaveState& state) {
  const auto n = static_cast<std::size_t>(Tab());
  orcussch::App().DoEvents();
  on([&] { data[n].Refresh(); });
  orcussch::App().DoEvents();
  // First, since it also decides whether the user may leave the tab.
  tb("tb_SaveRec").Enabled(false);
  SSIndexTab1.Page(0);
  orcussch::App().DoEvents();
  SSIndexTab1.Redraw();

  StandOn(on, state.Position);
  orcussch::App().DoEvents();
  EditingRecord(false);
  orcussch::App().DoEvents();
  if (Tab() == tab::Customers) grid[n].LeftCol(1, state.LeftCol);

  bool Records = false;
  on([&] { Records = HasRecords(data[n]); });
  if (Records)
    grid[n].SetFocus();
  else
    txtSearch[n].SetFocus();
}

/// Finds the row of the position text; when there is none the list goes to its last row. A row that was not stored has no
/// position: the list stays where it was opened.
void frmCustMain::StandOn(ResumeNext& on, const std::string& Position) {
  const auto n = static_cast<std::size_t>(Tab());
  if (Position.empty()) return;
  bool Records = false;
  on([&] { Records = data[n].Recordset()->HasRows(); });
  if (!Records) return;
  bool NoMatch = false;
  on([&] {
    data[n].Recordset()->FindFirst(Position);
    NoMatch = data[n].Recordset()->NoMatch();
  });
  if (NoMatch) on([&] { data[n].Recordset()->MoveLast(); });
}

void frmCustMain::RecordCancel() {
  ResumeNext on("frmCustMain.RecordCancel");
  orcussch::App().MousePointer(platform::pointer::Hourglass);
  orcussch::App().DoEvents();

  // The blanks are kept as they come, two of them in a row.
  std::string Question = "Are you sure you want to cancel saving ";
  std::string Title = "Add New";
  if (mRecordMode == "E") {
    Title = "Edit";
    Question += " changes to ";
  }
  Question += " the " + RecordLabel() + "?";

  if (orcussch::App().MsgBox(Question, kYesNoQuestion, Title) == platform::box::Yes) {
    on([this] { EditingRecord(false); });
    orcussch::App().DoEvents();
    on([this] { SSIndexTab1.Page(0); });
  }
  on([this] { TestRecordcount(); });
  orcussch::App().MousePointer(platform::pointer::Default);
  orcussch::App().DoEvents();
}

}  // namespace orcussch
