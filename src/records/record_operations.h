#pragma once

#include <string>

#include "platform/host/screen.h"
#include "records/record.h"
#include "session/failures.h"

namespace orcussch {

class RecordKind;

/// Style of a question with No as its default.
inline constexpr int kYesNoQuestion = platform::box::Question + platform::box::YesNo + platform::box::SecondButtonDefault;

/// Under what the failures of the operations are reported.
struct RecordLiterals {
  const char* Add;
  const char* Edit;
  const char* Save;
  const char* Cancel;
  const char* Delete;
};

/// What the operations say and ask of the record at hand.
struct RecordTexts {
  std::string SaveTitle;  ///< of every box of a save
  std::string Saving;     ///< status panel
  std::string CancelTitle, CancelQuestion;
  std::string DeleteTitle, DeleteQuestion;
  std::string Deleting;  ///< status panel
};

/// The record operations of a screen that shows a list and, in its place, the card of one record: the frame of add, edit, save,
/// cancel and delete, with their yields. What is special to a kind of record stands in its RecordKind; what the screen's own
/// controls do stands in the calls below, which the screen fills in.
///
/// In a yield the user may refresh, order, delete, cancel or leave. A card is known by its number: whoever goes on behind a yield
/// sees by it whether the card is still the one that he meant.
class RecordOperations {
 public:
  virtual ~RecordOperations() = default;

  void RecordAdd();
  void RecordEdit();
  void RecordSave();
  void RecordCancel();
  void RecordDelete();

  /// Switches the screen's keys between list and card.
  virtual void EditingRecord(bool Editing) = 0;
  /// Shows the card that was made ready, with the focus on its first entry.
  virtual void EditSetup() = 0;
  /// Enables what depends on the rows at hand.
  virtual void TestRecordcount() = 0;
  virtual platform::Screen& OnScreen() = 0;

  /// Whether a card is up that was not there when the card's number was `since`: the user opened it in a yield.
  bool CardCameUp(int since) const { return mCardNumber != since && CardIsUp(); }
  /// Opens a list anew, then as KeepCard. False when the list could not be opened.
  bool Reopen(ResumeNext& on, RecordKind& record, int since);
  /// A card that came up in a yield of a procedure that moves or rebuilds its list: the list goes back to the card's record. When
  /// that is not in the list any more, the card is left.
  void KeepCard(RecordKind& record, int since);

  std::string mRecordMode;  ///< "A" adding, "E" editing; keeps its last value
  int mCardNumber = 0;      ///< rises whenever a card is opened or closed

 protected:
  /// The kind whose list is shown.
  virtual RecordKind& CurrentRecord() const = 0;
  virtual RecordLiterals Literals() const = 0;
  virtual RecordTexts Texts() const = 0;
  /// False while an operation runs: a click on the toolbar is lost then.
  virtual void Ready(bool ready) = 0;
  /// A wait text; "" takes it away.
  virtual void TellWait(const std::string& text) = 0;
  virtual bool CardIsUp() const = 0;
  /// Turns to the list.
  virtual void ShowList() = 0;
  /// A saved card is left: first of all what decides whether the user may leave it.
  virtual void LeavingCard() {}
  /// The list has come up behind a saved card.
  virtual void ListIsUp() {}

 private:
  void BeginWork();
  void EndWork();
  bool CardIs(const RecordKind& record, int number);
  void OpenCard(RecordKind& record, const CardRecord& card);
  void CloseCard();
  void ShowSaved(ResumeNext& on, RecordKind& record, const SaveState& state);
};

}  // namespace orcussch
