#include "records/lists.h"
#include "records/record_kind.h"
#include "records/record_operations.h"

// Removing the current row.
namespace orcussch {

namespace {

/// Back to the row that the user was asked about. False when the list was opened anew meanwhile, which is reported: nothing is
/// deleted then.
bool StandOnDeleted(ResumeNext& on, const DeleteState& state) {
  return !state.Row || on([&] {
    if (state.Rows->Bookmark() != *state.Row) state.Rows->SetBookmark(*state.Row);
  });
}

}  // namespace

void RecordOperations::RecordDelete() {
  platform::Application& App = OnScreen().App();
  ResumeNext on(Literals().Delete);
  const int Card = mCardNumber;
  App.MousePointer(platform::pointer::Hourglass);
  App.DoEvents();

  // Without rows, and after No, the hourglass stays until the next operation sets the pointer back.
  RecordKind& record = CurrentRecord();
  bool Records = false;
  on([&] { Records = record.List().Recordset()->HasRows(); });
  if (!Records || !OnScreen().Loaded() || mCardNumber != Card) return;
  const RecordTexts Says = Texts();
  DeleteState state;
  state.Title = Says.DeleteTitle;
  state.Rows = record.List().Recordset();
  state.Record = record.RecordAtHand(true);
  Ignore()([&] { state.Row = state.Rows->Bookmark(); });
  if (App.MsgBox(Says.DeleteQuestion, kYesNoQuestion, state.Title) != platform::box::Yes) return;

  Ready(false);
  App.MousePointer(platform::pointer::Hourglass);
  TellWait(Says.Deleting);
  // Behind a box and behind each yield the list is led back to the row that the user was asked about.
  const auto May = [&] { return mCardNumber == Card && StandOnDeleted(on, state); };
  if (May() && record.MayDelete(on, state) && May() && record.Remove(on, state)) {
    record.Repair(on, state);
    App.DoEvents();
    if (mCardNumber == Card) StandOn(on, record.List(), state.Position);
    record.Deleted();
    TestRecordcount();
  }
  TellWait("");
  EndWork();
}

}  // namespace orcussch
