#include "records/record_operations.h"

#include "records/lists.h"
#include "records/record_kind.h"

namespace orcussch {

using platform::Application;

void RecordOperations::BeginWork() {
  Application& App = OnScreen().App();
  Ready(false);
  App.MousePointer(platform::pointer::Hourglass);
  App.DoEvents();
}

void RecordOperations::EndWork() {
  Application& App = OnScreen().App();
  Ready(true);
  App.MousePointer(platform::pointer::Default);
  App.DoEvents();
}

void RecordOperations::OpenCard(RecordKind& record, const CardRecord& card) {
  record.OpenedFor(card);
  const int Number = ++mCardNumber;
  EditingRecord(true);
  OnScreen().App().DoEvents();
  if (mCardNumber != Number) return;
  if (record.StandsOn(card)) return EditSetup();
  // The list was led to another row before the card covered it.
  CloseCard();
  EditingRecord(false);
}

void RecordOperations::CloseCard() {
  ++mCardNumber;
  ShowList();
}

bool RecordOperations::CardIs(const RecordKind& record, int Number) {
  return OnScreen().Loaded() && &CurrentRecord() == &record && mCardNumber == Number;
}

void RecordOperations::RecordAdd() {
  ResumeNext on(Literals().Add);
  BeginWork();
  const int Number = mCardNumber;
  RecordKind& record = CurrentRecord();
  mRecordMode = "A";
  const CardRecord card = record.RecordAtHand(false);
  if (!record.Add(on)) {
    // The toolbar stays shut until a menu command has brought a record operation to its end: the refused user has been told
    // what to change first, and finds that in the menu.
    OnScreen().App().MousePointer(platform::pointer::Default);
    return;
  }
  // In a yield the user may have gone to another list or owner, or opened another card: this one is not opened then.
  if (CardIs(record, Number) && record.StandsOn(card)) OpenCard(record, card);
  EndWork();
}

void RecordOperations::RecordEdit() {
  ResumeNext on(Literals().Edit);
  bool Records = false;
  on([&] { Records = CurrentRecord().List().Recordset()->HasRows(); });
  if (!Records) return;
  BeginWork();
  const int Number = mCardNumber;
  RecordKind& record = CurrentRecord();
  mRecordMode = "E";
  on([&] { record.List().ReadAnew(); });
  record.ReadAgain(on);
  const CardRecord card = record.RecordAtHand(true);
  record.Edit(on);
  if (CardIs(record, Number) && record.StandsOn(card)) OpenCard(record, card);
  EndWork();
}

void RecordOperations::RecordSave() {
  Application& App = OnScreen().App();
  ResumeNext on(Literals().Save);
  RecordKind& record = CurrentRecord();
  const RecordTexts Says = Texts();
  SaveState state;
  state.Card = mCardNumber;
  state.Title = Says.SaveTitle;
  Ready(false);
  App.MousePointer(platform::pointer::Hourglass);
  TellWait(Says.Saving);
  App.DoEvents();
  if (state.Card == mCardNumber && record.Save(on, state)) ShowSaved(on, record, state);
  TellWait("");
  EndWork();
}

/// The common end of a save: the list is rebuilt and stands on the saved row. A card that was opened in one of the yields stays.
void RecordOperations::ShowSaved(ResumeNext& on, RecordKind& record, const SaveState& state) {
  Application& App = OnScreen().App();
  App.DoEvents();
  on([&] { record.List().Refresh(); });
  App.DoEvents();
  if (mCardNumber != state.Card) return;
  LeavingCard();
  CloseCard();
  const int Closed = mCardNumber;
  App.DoEvents();
  ListIsUp();

  if (mCardNumber != Closed) return;
  StandOn(on, record.List(), state.Position);
  App.DoEvents();
  if (mCardNumber != Closed) return;
  EditingRecord(false);
  App.DoEvents();
  bool Records = false;
  on([&] { Records = HasRecords(record.List()); });
  record.BackInList(state, Records);
}

void RecordOperations::RecordCancel() {
  Application& App = OnScreen().App();
  ResumeNext on(Literals().Cancel);
  const int Number = mCardNumber;
  App.MousePointer(platform::pointer::Hourglass);
  App.DoEvents();
  const RecordTexts Says = Texts();
  const bool Asked = mCardNumber == Number;  // a card that was closed or changed in the yield is not the one to be left
  if (Asked && App.MsgBox(Says.CancelQuestion, kYesNoQuestion, Says.CancelTitle) == platform::box::Yes) {
    on([this] { EditingRecord(false); });
    App.DoEvents();
    if (mCardNumber == Number) on([this] { CloseCard(); });
  }
  on([this] { TestRecordcount(); });
  App.MousePointer(platform::pointer::Default);
  App.DoEvents();
}

}  // namespace orcussch
