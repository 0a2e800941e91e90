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
  platform::Application& app = OnScreen().App();
  ResumeNext on(Literals().Delete);
  const int card = mCardNumber;
  app.MousePointer(platform::pointer::Hourglass);
  app.DoEvents();

  // Without rows, and after No, the hourglass stays until the next operation sets the pointer back.
  RecordKind& record = CurrentRecord();
  bool records = false;
  on([&] { records = record.List().Recordset()->HasRows(); });
  if (!records || !record.ListIsCurrent() || !OnScreen().Loaded() || mCardNumber != card) return;
  const RecordTexts says = Texts();
  DeleteState state;
  state.Title = says.DeleteTitle;
  state.Rows = record.List().Recordset();
  state.Record = record.RecordAtHand(true);
  Ignore()([&] { state.Row = state.Rows->Bookmark(); });
  if (app.MsgBox(says.DeleteQuestion, kYesNoQuestion, state.Title) != platform::box::Yes) return;

  Ready(false);
  app.MousePointer(platform::pointer::Hourglass);
  TellWait(says.Deleting);
  // Behind a box and behind each yield the list is led back to the row that the user was asked about.
  const auto may = [&] { return mCardNumber == card && StandOnDeleted(on, state); };
  if (may() && record.MayDelete(on, state) && may() && record.Remove(on, state)) {
    record.Repair(on, state);
    app.DoEvents();
    // Also under a card that came up: the list must not stay on the row that is gone.
    StandOn(on, record.List(), state.Position);
    KeepCard(record, card);
    record.Deleted();
    if (!CardCameUp(card)) TestRecordcount();
  }
  TellWait("");
  EndWork();
}

}  // namespace orcussch
