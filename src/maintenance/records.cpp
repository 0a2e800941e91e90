#include "maintenance/frmCustMain.h"
#include "maintenance/tabs/record_tab.h"
#include "platform/values/convert.h"
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

/// A card is known by its number: whoever goes on behind a yield sees by it whether the card is still the one that he meant.
void frmCustMain::OpenCard(RecordTab& record, const CardRecord& card) {
  record.OpenedFor(card);
  const int Number = ++mCardNumber;
  EditingRecord(true);
  orcussch::App().DoEvents();
  if (mCardNumber != Number) return;
  if (record.StandsOn(card)) return EditSetup();
  // The list was led to another row before the card covered it.
  CloseCard();
  EditingRecord(false);
}

void frmCustMain::CloseCard() {
  ++mCardNumber;
  SSIndexTab1.Page(0);
}

bool frmCustMain::CardIs(int Tab, int Number) const { return Loaded() && this->Tab() == Tab && mCardNumber == Number; }

void frmCustMain::RecordAdd() {
  ResumeNext on("frmCustMain.RecordAdd");
  BeginWork();
  const int Tab = this->Tab();
  const int Number = mCardNumber;
  RecordTab& record = CurrentRecord();
  mRecordMode = "A";
  const CardRecord card = record.RecordAtHand(false);
  if (!record.Add(on)) {
    // The toolbar stays shut until a menu command has brought a record operation to its end: the refused user has been told
    // to change the customer first, and finds that in the menu.
    orcussch::App().MousePointer(platform::pointer::Default);
    return;
  }
  // In a yield the user may have gone to another tab or customer, or opened another card: this one is not opened then.
  if (CardIs(Tab, Number) && record.StandsOn(card)) OpenCard(record, card);
  EndWork();
}

void frmCustMain::RecordEdit() {
  ResumeNext on("frmCustMain.RecordEdit");
  bool Records = false;
  on([&] { Records = data[static_cast<std::size_t>(Tab())].Recordset()->HasRows(); });
  if (!Records) return;
  BeginWork();
  const int Tab = this->Tab();
  const int Number = mCardNumber;
  RecordTab& record = CurrentRecord();
  mRecordMode = "E";
  on([&] { data[static_cast<std::size_t>(Tab)].ReadAnew(); });
  if (Tab == tab::Customers) on([this] { ShowCustomerName(); });
  const CardRecord card = record.RecordAtHand(true);
  record.Edit(on);
  if (CardIs(Tab, Number) && record.StandsOn(card)) OpenCard(record, card);
  EndWork();
}

void frmCustMain::RecordSave() {
  // The literal names the add, as the log is searched for both under one name.
  ResumeNext on("frmCustMain.RecordAdd");
  const int Tab = this->Tab();
  SaveState state;
  state.Card = mCardNumber;
  state.Title = "Delete " + RecordLabel();
  mToolbarReady = false;
  orcussch::App().MousePointer(platform::pointer::Hourglass);
  StatusBar1.Panel(1, "Saving" + RecordLabel() + ", please wait!");
  orcussch::App().DoEvents();
  if (state.Card == mCardNumber && mRecords[static_cast<std::size_t>(Tab)]->Save(on, state)) ShowSaved(on, state, Tab);
  StatusBar1.Panel(1, "");
  EndWork();
}

/// The common end of a save: the list is rebuilt and stands on the saved row. A card that was opened in one of the yields stays.
void frmCustMain::ShowSaved(ResumeNext& on, const SaveState& state, int Tab) {
  const auto n = static_cast<std::size_t>(Tab);
  orcussch::App().DoEvents();
  on([&] { data[n].Refresh(); });
  orcussch::App().DoEvents();
  if (mCardNumber != state.Card) return;
  // First, since it also decides whether the user may leave the tab.
  tb("tb_SaveRec").Enabled(false);
  CloseCard();
  const int Closed = mCardNumber;
  orcussch::App().DoEvents();
  SSIndexTab1.Redraw();

  if (mCardNumber != Closed) return;
  StandOn(on, Tab, state.Position);
  orcussch::App().DoEvents();
  if (mCardNumber != Closed) return;
  EditingRecord(false);
  orcussch::App().DoEvents();
  if (Tab == tab::Customers) grid[n].LeftCol(1, state.LeftCol);

  bool Records = false;
  on([&] { Records = HasRecords(data[n]); });
  if (Records)
    grid[n].SetFocus();
  else
    txtSearch[n].SetFocus();
}

/// Finds the row of the position text; when there is none the list goes to its last row. A row that was not stored has no
/// position: the list stays where it was opened.
void frmCustMain::StandOn(ResumeNext& on, int Tab, const std::string& Position) {
  const auto n = static_cast<std::size_t>(Tab);
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
  const int Number = mCardNumber;
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

  const bool Asked = mCardNumber == Number;  // a card that was closed or changed in the yield is not the one to be left
  if (Asked && orcussch::App().MsgBox(Question, kYesNoQuestion, Title) == platform::box::Yes) {
    on([this] { EditingRecord(false); });
    orcussch::App().DoEvents();
    if (mCardNumber == Number) on([this] { CloseCard(); });
  }
  on([this] { TestRecordcount(); });
  orcussch::App().MousePointer(platform::pointer::Default);
  orcussch::App().DoEvents();
}

}  // namespace orcussch
