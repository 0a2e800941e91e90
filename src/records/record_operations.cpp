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

bool RecordOperations::Reopen(ResumeNext& on, RecordKind& record, int since) {
  const bool opened = on([&] { record.List().Refresh(); });
  KeepCard(record, since);
  return opened;
}

void RecordOperations::KeepCard(RecordKind& record, int since) {
  if (!OnScreen().Loaded() || !CardCameUp(since) || &CurrentRecord() != &record || record.StandOnCard()) return;
  CloseCard();
  EditingRecord(false);
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
  on([&] { record.List().ReadAnew(); });
  record.ReadAgain(on);
  // In a yield of a deletion or of a visit the user may ask for a row that is there no more, or for one of the customer of before.
  CardRecord card;
  if (record.ListIsCurrent() && on([&] { card = record.RecordToEdit(); })) {
    mRecordMode = "E";
    record.Edit(on);
    if (CardIs(record, number) && record.StandsOn(card)) OpenCard(record, card);
  }
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

/// The common end of a save: the list is rebuilt and stands on the saved row. A card that was opened in one of the yields stays, over
/// its own row.
void RecordOperations::ShowSaved(ResumeNext& on, RecordKind& record, const SaveState& state) {
  Application& app = OnScreen().App();
  app.DoEvents();
  Reopen(on, record, state.Card);
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
  if (mCardNumber != closed) return;
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
  if (!CardCameUp(number)) on([this] { TestRecordcount(); });
  app.MousePointer(platform::pointer::Default);
  app.DoEvents();
}

}  // namespace orcussch
