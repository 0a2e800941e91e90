#pragma once

#include <initializer_list>
#include <string>

#include "platform/controls/data_control.h"
#include "platform/data/data.h"
#include "records/find.h"
#include "records/record.h"
#include "records/row_write.h"
#include "session/failures.h"

namespace orcussch {

class RecordOperations;

/// One test of a save: what refuses it, the text of the box, and the control that gets the focus (none: it stays).
struct SaveTest {
  bool failed;
  const char* message;
  platform::Control* focus = nullptr;
};

/// One kind of record: the branches of a screen's record operations. Each branch is part of the screen's procedure and gets its
/// failure object: a failing statement is reported there and the next one runs.
class RecordKind {
 public:
  /// `list` shows the records; `key` is the field by which their table finds a row again.
  RecordKind(RecordOperations& screen, platform::DataControl& list, const char* key) : mScreen(screen), mList(list), mKey(key) {}
  virtual ~RecordKind() = default;
  RecordKind(const RecordKind&) = delete;
  RecordKind& operator=(const RecordKind&) = delete;

  platform::DataControl& List() const noexcept { return mList; }
  const char* Key() const noexcept { return mKey; }

  /// The owner at hand and, of an existing record, the list's current row; Null where there is none to read.
  CardRecord RecordAtHand(bool existing) const;
  /// Whether the lists still stand on that record.
  bool StandsOn(const CardRecord& record) const;
  /// The owner at hand and the list's current row. Raises 3167 when that was deleted by the user himself, 3021 when there is none.
  CardRecord RecordToEdit() const;
  /// Whether the list is that of the owner at hand, and not one that is still to be built anew for him.
  virtual bool ListIsCurrent() const { return true; }
  /// Leads the list back to where the card was opened; false when it can't.
  bool StandOnCard() const;
  /// The card that is open now was made ready for that record.
  void OpenedFor(CardRecord record) { mCard = std::move(record); }

  /// Makes the card ready for a new record. False: no add, the screen stays in its list.
  virtual bool Add(ResumeNext& on) = 0;
  /// The list's row was read anew, for an edit.
  virtual void ReadAgain(ResumeNext&) {}
  /// Loads the current row into the card.
  virtual void Edit(ResumeNext& on) = 0;
  /// Tests and writes. False: a box was shown, the card stays open with the user's entries.
  virtual bool Save(ResumeNext& on, SaveState& state) = 0;
  /// The list shows what was saved; the user goes on there.
  virtual void BackInList(const SaveState& state, bool records) = 0;
  /// Tests a deletion and fills the state. False: refused with a box.
  virtual bool MayDelete(ResumeNext& on, DeleteState& state) = 0;
  /// Removes the current row. False: refused with a box.
  virtual bool Remove(ResumeNext& on, DeleteState& state);
  /// The row is gone: what pointed at it is repaired.
  virtual void Repair(ResumeNext&, const DeleteState&) {}
  /// The list stands on the row behind it.
  virtual void Deleted() {}

 protected:
  platform::RecordsetRef Rows() const { return mList.Recordset(); }
  /// The key of the record to which this kind's records belong; Null where there is none.
  virtual platform::Value OwnerKey() const { return platform::Null; }
  /// The key of the list's row on which such a card was opened; Null where that does not matter.
  virtual platform::Value RowOf(const CardRecord& card) const { return card.Key; }
  bool Adding() const;
  /// The owner and the key of the record for which the card was opened; of the lists' rows where that could not be read.
  platform::Value Owner() const;
  platform::Value CardKey() const;
  /// Whether the card that is being saved was closed, or opened for another record, in a yield: it is not written then.
  bool CardHasGone(const SaveState& state) const;
  /// Shows the first failing test's box. True when the card may be written.
  bool Passes(const SaveState& state, std::initializer_list<SaveTest> tests) const;

  /// What a user is told whose edited row has gone; its number stands between the two.
  struct GoneText {
    const char* before;
    const char* behind;
  };
  /// Begins the edit of the card's row, looked up in the table by its number. False: the branch ends.
  bool BeginEdit(RowWrite& row, const platform::RecordsetRef& Table, SaveState& state, const GoneText& gone) const;
  /// Stores the row and stands on it; the list will find it by its number. A new row that was not stored has no position.
  void Store(RowWrite& row, const platform::RecordsetRef& Table, SaveState& state) const;
  /// An information box under the title.
  void Refuse(const std::string& title, const std::string& text) const;
  /// A question with No as its default.
  bool Ask(const std::string& title, const std::string& text) const;

 private:
  RecordOperations& mScreen;
  platform::DataControl& mList;
  const char* mKey;
  CardRecord mCard;
};

}  // namespace orcussch
