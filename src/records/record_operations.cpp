#include "records/record_operations.h"

#include "records/lists.h"
#include "records/record_kind.h"

namespace orcussch {

using platform::Application;

void RecordOperations::BeginWork() {
  Application& app = OnScreen().App();
  Ready(false);
  app.MousePointer(platform::pointer::Hourglass);
  app.DoEvents();
}

void RecordOperations::EndWork() {
  Application& app = OnScreen().App();
  Ready(true);
  app.MousePointer(platform::pointer::Default);
  app.DoEvents();
}

void RecordOperations::OpenCard(RecordKind& record, const CardRecord& card) {
  record.OpenedFor(card);
  const int number = ++mCardNumber;
  EditingRecord(true);
  OnScreen().App().DoEvents();
  if (mCardNumber != number) return;
  if (record.StandsOn(card)) return EditSetup();
  // The list was led to another row before the card covered it.
  CloseCard();
  EditingRecord(false);
}

void RecordOperations::CloseCard() {
  ++mCardNumber;
  ShowList();
}

bool RecordOperations::CardIs(const RecordKind& record, int number) {
  return OnScreen().Loaded() && &CurrentRecord() == &record && mCardNumber == number;
}

void RecordOperations::RecordAdd() {
  ResumeNext on(Literals().Add);
  BeginWork();
  const int number = mCardNumber;
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
  if (CardIs(record, number) && record.StandsOn(card)) OpenCard(record, card);
  EndWork();
}

void RecordOperations::RecordEdit() {
  ResumeNext on(Literals().Edit);
  bool records = false;
  on([&] { records = CurrentRecord().List().Recordset()->HasRows(); });
  if (!records) return;
  BeginWork();
  const int number = mCardNumber;
  RecordKind& record = CurrentRecord();
  mRecordMode = "E";
  on([&] { record.List().ReadAnew(); });
  record.ReadAgain(on);
  const CardRecord card = record.RecordAtHand(true);
  record.Edit(on);
  if (CardIs(record, number) && record.StandsOn(card)) OpenCard(record, card);
  EndWork();
}

void RecordOperations::RecordSave() {
  Application& app = OnScreen().App();
  ResumeNext on(Literals().Save);
  RecordKind& record = CurrentRecord();
  const RecordTexts says = Texts();
  SaveState state;
  state.Card = mCardNumber;
  state.Title = says.SaveTitle;
  Ready(false);
  app.MousePointer(platform::pointer::Hourglass);
  TellWait(says.Saving);
  app.DoEvents();
  if (state.Card == mCardNumber && record.Save(on, state)) ShowSaved(on, record, state);
  TellWait("");
  EndWork();
}

/// The common end of a save: the list is rebuilt and stands on the saved row. A card that was opened in one of the yields stays.
void RecordOperations::ShowSaved(ResumeNext& on, RecordKind& record, const SaveState& state) {
  Application& app = OnScreen().App();
  app.DoEvents();
  on([&] { record.List().Refresh(); });
  app.DoEvents();
  if (mCardNumber != state.Card) return;
  LeavingCard();
  CloseCard();
  const int closed = mCardNumber;
  app.DoEvents();
  ListIsUp();

  if (mCardNumber != closed) return;
  StandOn(on, record.List(), state.Position);
  app.DoEvents();
  if (mCardNumber != closed) return;
  EditingRecord(false);
  app.DoEvents();
  bool records = false;
  on([&] { records = HasRecords(record.List()); });
  record.BackInList(state, records);
}

void RecordOperations::RecordCancel() {
  Application& app = OnScreen().App();
  ResumeNext on(Literals().Cancel);
  const int number = mCardNumber;
  app.MousePointer(platform::pointer::Hourglass);
  app.DoEvents();
  const RecordTexts says = Texts();
  const bool asked = mCardNumber == number;  // a card that was closed or changed in the yield is not the one to be left
  if (asked && app.MsgBox(says.CancelQuestion, kYesNoQuestion, says.CancelTitle) == platform::box::Yes) {
    on([this] { EditingRecord(false); });
    app.DoEvents();
    if (mCardNumber == number) on([this] { CloseCard(); });
  }
  on([this] { TestRecordcount(); });
  app.MousePointer(platform::pointer::Default);
  app.DoEvents();
}

}  // namespace orcussch
