#include "maintenance/frmCustMain.h"
#include "maintenance/tabs/fields.h"
#include "maintenance/tabs/record_tab.h"
#include "session/ModCustSch.h"

// Removing the current row of the current tab.
namespace orcussch {

void frmCustMain::RecordDelete() {
  ResumeNext on("frmCustMain.RecordDelete");
  const int Card = mCardNumber;
  orcussch::App().MousePointer(platform::pointer::Hourglass);
  orcussch::App().DoEvents();

  // Without rows, and after No, the hourglass stays until the next operation sets the pointer back.
  const int Tab = this->Tab();
  bool Records = false;
  on([&] { Records = data[static_cast<std::size_t>(Tab)].Recordset()->HasRows(); });
  if (!Records || !Loaded() || mCardNumber != Card) return;
  RecordTab& record = CurrentRecord();
  DeleteState state;
  state.Title = "Delete " + RecordLabel();
  state.Rows = data[static_cast<std::size_t>(Tab)].Recordset();
  state.Record = record.RecordAtHand(true);
  Ignore()([&] { state.Row = state.Rows->Bookmark(); });
  if (orcussch::App().MsgBox("Are you sure you delete the current " + RecordLabel() + "?", kYesNoQuestion, state.Title) !=
      platform::box::Yes)
    return;

  mToolbarReady = false;
  orcussch::App().MousePointer(platform::pointer::Hourglass);
  StatusBar1.Panel(1, "Delete " + RecordLabel() + ", please wait!");
  // Behind a box and behind each yield the list is led back to the row that the user was asked about.
  const auto May = [&] { return mCardNumber == Card && StandOnDeleted(on, state); };
  if (May() && record.MayDelete(on, state) && May() && record.Remove(on, state)) {
    RepairDefaults(on, state);
    orcussch::App().DoEvents();
    if (mCardNumber == Card) StandOn(on, Tab, state.Position);
    if (Tab == tab::Customers) FollowCustomer();
    if (!HasRecords(data[tab::Customers])) ShowCustomerName();  // the last one's name went with him
    TestRecordcount();
  }
  StatusBar1.Panel(1, "");
  EndWork();
}

/// False when the list was opened anew meanwhile, which is reported: nothing is deleted then.
bool frmCustMain::StandOnDeleted(ResumeNext& on, const DeleteState& state) {
  return !state.Row || on([&] {
    if (state.Rows->Bookmark() != *state.Row) state.Rows->SetBookmark(*state.Row);
  });
}

/// Default fields of the customer that pointed at the deleted row.
void frmCustMain::RepairDefaults(ResumeNext& on, const DeleteState& state) {
  if (!state.Repairs[0].Wanted && !state.Repairs[1].Wanted) return;
  bool Records = false;
  on([&] { Records = HasRecords(data[tab::Customers]); });
  if (!Records || !CurrentRecord().CustomerIs(state.Record.Owner)) return;
  const platform::RecordsetRef Customer = data[tab::Customers].Recordset();
  RowWrite row(on);
  row.Must([&] { Customer->Edit(); });
  for (const DeleteState::Repair& repair : state.Repairs)
    if (repair.Wanted) row([&] { Customer->SetField(repair.Field, std::int32_t{0}); });
  if (row.Going()) UpdateOrDrop(on, Customer);
}

}  // namespace orcussch
