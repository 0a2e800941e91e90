#pragma once

#include <array>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "maintenance/tabs/row_write.h"
#include "platform/data/data.h"
#include "session/failures.h"

namespace platform {
class Control;
}

namespace orcussch {

class frmCustMain;

/// The record that a card was opened for. It stays the same while the card is open, wherever the lists stand by then.
struct CardRecord {
  platform::Value Owner = platform::Null;  ///< the customer's account number
  platform::Value Key = platform::Null;    ///< an existing record's key field; Null for a new one
};

/// What a save leaves for its common end.
struct SaveState {
  int Card = 0;          ///< the card that is saved, see frmCustMain::mCardNumber
  std::string Title;     ///< of every box of this save: "Delete Customer Record" ...
  std::string Position;  ///< criterion that finds the saved row in the rebuilt list
  int LeftCol = 0;       ///< customers: first column of the list's second split
};

/// What a deletion is told by its kind of record.
struct DeleteState {
  std::string Title;
  std::string Position;  ///< criterion that finds the deleted row's successor
  /// The list and its row as the user was asked about them.
  platform::RecordsetRef Rows;
  std::optional<platform::Bookmark> Row;
  CardRecord Record;
  /// Fields of the customer that point at the deleted row and are set to 0 after it.
  struct Repair {
    bool Wanted = false;
    std::string Field;
  };
  std::array<Repair, 2> Repairs;
};

/// One test of a save: what refuses it, the text of the box, and the control that gets the focus (none: it stays).
struct SaveTest {
  bool failed;
  const char* message;
  platform::Control* focus = nullptr;
};

/// A field that a save writes, and where its value comes from.
struct CardField {
  const char* field;
  std::function<platform::Value()> value;
};

/// One kind of record: the branches of the screen's record operations. Each branch is part of the screen's procedure and
/// gets its failure object: a failing statement is reported there and the next one runs.
class RecordTab {
 public:
  /// `key` is the field by which the record's table finds a row again.
  RecordTab(frmCustMain& screen, int tab, const char* key) : s(screen), mTab(tab), mKey(key) {}
  virtual ~RecordTab() = default;
  RecordTab(const RecordTab&) = delete;
  RecordTab& operator=(const RecordTab&) = delete;

  /// The current customer and, of an existing record, the list's current row; Null where there is none to read.
  CardRecord RecordAtHand(bool existing) const;
  /// Whether the lists still stand on that record.
  bool StandsOn(const CardRecord& record) const;
  bool CustomerIs(const platform::Value& owner) const;
  /// The card that is open now was made ready for that record.
  void OpenedFor(CardRecord record) { mCard = std::move(record); }

  /// Makes the card ready for a new record. False: no add, the screen stays in its list.
  virtual bool Add(ResumeNext& on) = 0;
  /// Loads the current row into the card.
  virtual void Edit(ResumeNext& on) = 0;
  /// Tests and writes. False: a box was shown, the card stays open with the user's entries.
  virtual bool Save(ResumeNext& on, SaveState& state) = 0;
  /// Tests a deletion and fills the state. False: refused with a box.
  virtual bool MayDelete(ResumeNext& on, DeleteState& state) = 0;
  /// Removes the current row. False: refused with a box.
  virtual bool Remove(ResumeNext& on, DeleteState& state);

 protected:
  /// The rows of this tab's list, of the customer list.
  platform::RecordsetRef Rows() const;
  platform::RecordsetRef Customer() const;
  bool Adding() const;
  /// The customer and the key of the record for which the card was opened; of the lists' rows where that could not be read.
  platform::Value Owner() const;
  platform::Value CardKey() const;
  /// Whether the card that is being saved was closed, or opened for another record, in a yield: it is not written then.
  bool CardHasGone(const SaveState& state) const;
  /// Writes the edit of the customer list's row; what can't be written is dropped (see UpdateOrDrop).
  void UpdateCustomer(ResumeNext& on) const;
  /// Shows the first failing test's box. True when the card may be written.
  bool Passes(const SaveState& state, std::initializer_list<SaveTest> tests) const;
  /// Looks a row up by its keys in the table itself, apart from any list. A search that fails has been reported: nothing is
  /// known of the row then, so nothing is written and nobody is told that it is gone.
  using Keys = std::vector<platform::Value>;
  enum class Search { Found, Missing, Failed };
  static Search Find(ResumeNext& on, const platform::RecordsetRef& Table, const char* Index, const std::function<Keys()>& keys);

  /// What a user is told whose edited row has gone; its number stands between the two.
  struct GoneText {
    const char* before;
    const char* behind;
  };
  /// Begins the edit of the list's current row, looked up in the table by its number. False: the branch ends.
  bool BeginEdit(RowWrite& row, const platform::RecordsetRef& Table, const char* Key, SaveState& state, const GoneText& gone) const;
  /// Writes the fields in their order into the row that is being added or edited.
  static void Write(RowWrite& row, const platform::RecordsetRef& Table, const std::vector<CardField>& fields);
  /// Stores the row and stands on it; the list will find it by its number. A new row that was not stored has no position.
  static void Store(RowWrite& row, const platform::RecordsetRef& Table, const char* Key, SaveState& state);
  /// Points default fields of the customer at the row that was just stored, if it was. What can't be written is dropped.
  void MakeDefault(const RowWrite& stored, const platform::RecordsetRef& Table, const char* Key,
                   std::initializer_list<const char*> fields) const;
  /// An information box under the title.
  void Refuse(const std::string& title, const std::string& text) const;
  /// A question with No as its default.
  bool Ask(const std::string& title, const std::string& text) const;

  frmCustMain& s;
  int mTab;
  const char* mKey;
  CardRecord mCard;
};

std::unique_ptr<RecordTab> MakeCustomersTab(frmCustMain& screen);
std::unique_ptr<RecordTab> MakePhonesTab(frmCustMain& screen);
std::unique_ptr<RecordTab> MakeAddressesTab(frmCustMain& screen);
std::unique_ptr<RecordTab> MakeCreditCardsTab(frmCustMain& screen);
std::unique_ptr<RecordTab> MakeLaborRatesTab(frmCustMain& screen);
std::unique_ptr<RecordTab> MakeCustomerTypesTab(frmCustMain& screen);
std::unique_ptr<RecordTab> MakeKeyWordsTab(frmCustMain& screen);

}  // namespace orcussch
