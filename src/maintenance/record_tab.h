#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "maintenance/tabs.h"
#include "platform/controls/buttons.h"
#include "platform/controls/grid.h"
#include "records/record_kind.h"

namespace orcussch {

/// A test of a cell before it is taken. Field names are compared to the letter.
struct CellTest {
  const char* field;
  bool (*refused)(const std::string& V);
  const char* message;
};

/// A list's row that stands out: the field of the customer that names it, and what it is then called.
struct DefaultRow {
  const char* field;
  const char* name;
};

/// What the design fixes of a tab and its list.
struct TabDesign {
  const char* caption;  ///< of the tab, with the blanks that give it its width
  const char* record;   ///< what one of its records is called in a text of the desk
  /// First order and search; a click on a heading changes them.
  const char* field;
  const char* ascending;
  const char* descending;
  const char* prompt;
  const char* searchMask = "";
  const std::string* database;  ///< the path of the file in which the list lies
  std::vector<platform::GridColumn> columns;
  std::vector<CellTest> cellTests = {};
  std::vector<DefaultRow> defaultRows = {};
  /// The list shows all entries there are, with a check column for those of the customer.
  bool assigns = false;
  /// A non-billable customer has none of these.
  bool billableOnly = false;
  /// Toolbar key of the setup screen whose table the card uses: it stays open during an edit.
  const char* setupKey = "";
  /// A list that the menu's refresh takes along.
  std::optional<int> refreshedWith = {};
};

/// A list with a check column that the user can mark rows of and tick together; none where `grid` is nullptr.
struct TickList {
  platform::Grid* grid = nullptr;
  platform::DataControl* data = nullptr;
  int page = 0;  ///< of its tab
};

/// One kind of record of the main screen: its tab, its list, its card and its branches of the record operations.
class RecordTab : public RecordKind {
 public:
  template <class T, std::size_t N>
  using Array = platform::ControlArray<T, N>;

  RecordTab(frmCustMain& screen, int tab, const char* key, TabDesign design);
  const TabDesign& Design() const noexcept { return mDesign; }

  // The list.
  /// Its statement for a customer, without the order.
  virtual std::string Statement(std::int32_t Acct) = 0;
  /// What a click on that heading orders by; nothing: it can't be ordered by, which the user has been told.
  virtual std::optional<std::string> OrderBy(const platform::GridColumn& column, int ColIndex);
  /// The tab is visited: the list's caption, and whatever its statement reads. `Caption` is the tab's, trimmed.
  virtual void Visit(const std::string& Caption);
  virtual TickList Ticks() { return {}; }
  /// A cell was taken; its row is not written yet.
  virtual void CellTaken(int) {}

  // The card.
  /// Gets the focus when the card opens.
  virtual platform::Control& FirstField() = 0;
  bool IsOnCard(const platform::Control& control) const;
  /// Whether the user's entry in that control of the card is kept for him.
  virtual bool KeepsEntry(const platform::Control&) const { return true; }
  /// Controls whose captions are entries too.
  virtual std::vector<platform::Control*> CaptionEntries() { return {}; }
  /// The keys that are ticked in the card's list; nothing where they are not known, or the card has none.
  virtual std::optional<std::vector<platform::Value>> TickedOnCard() const { return {}; }
  virtual void TickOnCard(const std::vector<platform::Value>&) {}
  /// What the open card calls its record, where a name says more than the customer.
  virtual std::string NameOnCard() const { return ""; }
  /// The screen loads.
  virtual void Loading() {}

  void BackInList(const SaveState& state, bool records) override;
  void Repair(ResumeNext& on, const DeleteState& state) override;
  void Deleted() override;

  bool ListIsCurrent() const override;

  std::int32_t mAcct = 0;    ///< the account that the tab was last loaded for; 0 reloads at each visit
  std::int32_t mListOf = 0;  ///< the account in the statement with which the list was last opened
  Array<platform::OptionButton, 2> optOrder;

 protected:
  /// All controls made since this one, which stand in no frame, are put on the card.
  void CardBeginsWith(platform::Control& first);
  /// Controls of the list's page beside those that every list has.
  void PutOnListPage(std::initializer_list<platform::Control*> controls);

  /// The customer list's rows; the current one is the owner of all other records.
  platform::RecordsetRef Customer() const;
  platform::Value OwnerKey() const override;
  bool CustomerIs(const platform::Value& owner) const { return RecordAtHand(false).Owner == owner; }
  /// Points default fields of the customer at the row that was just stored, if it was. What can't be written is dropped.
  void MakeDefault(const RowWrite& stored, const platform::RecordsetRef& Table, std::initializer_list<const char*> fields) const;
  /// The number in the current row's key field, as a deletion needs it: the default fields of the customer that hold it are set
  /// to 0 behind it, and the list goes to the next number.
  std::int32_t NumberToDelete(ResumeNext& on, DeleteState& state) const;
  bool IsDefault(ResumeNext& on, const char* field, std::int32_t number) const;

  frmCustMain& s;
  int mTab;

 private:
  TabDesign mDesign;
  std::vector<const platform::Control*> mOnCard;  ///< without what its frames hold
};

}  // namespace orcussch
