#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls/form/control.h"
#include "platform/controls/grid_column.h"
#include "platform/controls/grid_rows.h"
#include "platform/controls/selected_bookmarks.h"
#include "platform/data/data.h"
#include "platform/values/value.h"

namespace platform {

class DataControl;
class TextBox;

/// A list bound to a data control. Its rows are the data control's (Window); the model holds the columns, the selection, the
/// scroll position and the cell that is being edited.
///
/// One cell, in order: BeforeColEdit, ColEdit, typing, BeforeColUpdate, the value goes into the row buffer, AfterColUpdate,
/// AfterColEdit. A cancelled BeforeColUpdate leaves the cell open on its old value and neither After comes. When a handler of
/// the After events writes the row and that fails, the cell is open again with what was typed. An unchanged
/// cell fires nothing when it is left. The row buffer is written when the row is left, or at Update of the recordset.
///
/// An open cell and a pending row belong to the row on which they were typed, and never reach another: TakeOpenCell writes
/// them before every move, page change, command and card, the control's own recordset included.
class Grid final : public Control {
 public:
  Grid(Form& form, std::string name);
  Grid(Form& form, std::string name, int index);

  void BindTo(DataControl& data);
  DataControl* Data() const noexcept { return data_; }

  const std::string& Caption() const noexcept { return caption_; }
  void Caption(std::string caption);
  void DefineColumns(std::vector<GridColumn> columns);
  int ColumnCount() const noexcept { return static_cast<int>(columns_.size()); }
  const GridColumn& Column(int index) const;
  GridColumn& DesignColumn(int index);
  /// Whether the user may edit that column's cells, from now on. A cell of it that is open is given up when it closes.
  void OpenColumn(int index, bool open);

  /// Value of the current row's cell, the edited one if it is pending. Null for a cell without a row.
  Value ColumnValue(int column) const;
  /// Sets the cell of the current row without column events; the row is then pending.
  void ColumnValue(int column, const Value& value);
  /// A stored value as the column shows it; "True"/"False" for check columns, "" for Null.
  std::string ShownText(int column, const Value& value) const;
  /// The same as windows show it, where a percentage bears its sign.
  std::string SeenText(int column, const Value& value) const;
  /// Where the grid's column stands among the recordset's columns; -1 if the field is not there.
  int FieldIndexOf(int column) const;

  int SplitCount() const noexcept { return splits_; }
  void Splits(int count) noexcept;
  /// The first column of a split that is in view; a list that is opened anew stays there.
  int LeftCol(int split) const;
  void LeftCol(int split, int column);

  SelectedBookmarks SelBookmarks{[this] { Changed(Aspect::Selection); }};
  /// Bookmark of the data control's row.
  Bookmark CurrentBookmark() const;
  /// Makes that row current; a pending row is written first.
  void CurrentBookmark(const Bookmark& bookmark);
  /// Makes the list's row with that ordinal current, after writing a pending row.
  void Row(int ordinal);
  bool DataChanged() const noexcept { return !pending_.empty(); }
  /// Shows the current row again.
  void RefreshRow() { Changed(Aspect::RowContent); }

  bool TakesFocus() const override { return true; }
  /// Whether the user can mark rows of this list (SelBookmarks).
  bool MarksRows() const noexcept { return marksRows_; }
  void MarksRows(bool marks) noexcept { marksRows_ = marks; }
  /// Whether a plain click marks its row alone, and arrows with Shift mark on; for lists that have nothing else to do with a row.
  bool MarksByClick() const noexcept { return marksByClick_; }
  void MarksByClick(bool marks) noexcept { marksByClick_ = marks; }
  /// The row marked last, where a range begins; nothing in a list that was opened anew.
  const std::optional<Bookmark>& MarkAnchor() const noexcept { return markAnchor_; }
  void MarkAnchor(Bookmark row) { markAnchor_ = std::move(row); }
  /// Both rows and all between, in the list's order; nothing when one of them is not in the list any more.
  std::vector<Bookmark> RowsBetween(const Bookmark& one, const Bookmark& other) const;

  /// The box that letters typed in the list go to; nullptr: none.
  TextBox* SearchBox() const noexcept { return searchBox_; }
  void SearchBox(TextBox& box) noexcept { searchBox_ = &box; }
  /// What the menu of a row offers.
  const std::vector<RowCommand>& RowCommands() const noexcept { return rowCommands_; }
  void RowCommands(std::vector<RowCommand> commands) { rowCommands_ = std::move(commands); }
  /// Whether Enter and a double click choose the row on every cell; else they open a cell that can be changed.
  bool ChoosesRows() const noexcept { return choosesRows_; }
  void ChoosesRows(bool chooses) noexcept { choosesRows_ = chooses; }
  /// The rows that stand out, by the number in that field.
  void Emphasize(std::string keyField, std::vector<RowEmphasis> rows);
  const std::string& EmphasisField() const noexcept { return emphasisField_; }
  /// Numbers of the rows that stand out now, and what for. Raises nothing.
  std::vector<std::pair<std::int32_t, std::string>> Emphasized() const;

  Event<int> HeadClick;                             ///< (column)
  Event<int, bool> Sort;                            ///< (column, descending): the heading's menu
  Event<bool&> SelChange;                           ///< (cancel)
  Event<int, bool&> BeforeColEdit;                  ///< (column, cancel)
  Event<int> ColEdit;                               ///< (column)
  Event<int, const Value&, bool&> BeforeColUpdate;  ///< (column, old value, cancel)
  Event<int> AfterColUpdate;
  Event<int> AfterColEdit;
  Event<bool&> BeforeUpdate;
  Event<> AfterUpdate;

  // The user's acts.
  void UserHeadClick(int column);
  /// The heading's menu; a list that has no Sort is ordered upwards by a click alone.
  void UserSort(int column, bool descending);
  /// Makes a row current by its bookmark; an open cell is taken first (refused: nothing moves). Returns whether it moved.
  bool UserRow(const Bookmark& bookmark);
  /// Moves by rows (keyboard); clamps at the ends.
  void UserMove(std::int32_t rows);
  void UserFirst();
  void UserLast();
  /// The selection becomes these rows, in this order: one SelChange, which may cancel.
  void UserMark(std::vector<Bookmark> rows);
  /// The same with the current row and all between it and the anchor (where there is none the row it stood on before, `from`).
  void UserMarkRange(const Bookmark& from);
  void UserScroll(int split, int column);
  /// Opens a cell of the current row with its stored value (a check column: "True", "False"; a value list: its shown text); the
  /// cell that is open already stays as it is. False when the column is not open or a handler refuses.
  bool UserOpenCell(int column);
  /// The text in the open cell, as the user has it now.
  void UserCellText(std::string text);
  /// Leaves the open cell; false when it was refused and stays open. True without an open cell.
  bool UserCloseCell();
  void UserEscape();
  /// Writes the pending row and stays on it.
  void UserLeaveRow();
  /// Enter, or a double click, on that column of the current row: opens the cell, or chooses the row (RowCommands). False when
  /// there is nothing to do.
  bool UserEnter(int column);
  bool UserChooseRow();
  /// The column of the cell that keys act on; -1 in a list without columns that can be changed.
  int CursorColumn() const;
  void CursorColumn(int column) noexcept { cursor_ = column; }
  /// The cell that the key for editing opens, of these columns from left to right: the one at the cursor, else the next behind it
  /// that can be changed by typing.
  std::optional<int> CellToEdit(std::span<const int> columns) const;
  std::optional<int> OpenCell() const noexcept { return openCell_; }
  const std::string& OpenText() const noexcept { return openText_; }

  /// The data control tells: opened anew, pending cells to be dropped, row current.
  void ListOpened();
  void DropPending() override;
  void RowBecameCurrent();
  /// Takes the open cell and writes the pending row, with the cell's own events and no LostFocus. False when the cell was refused
  /// or could not be written, which the user has been told: it stays open, or pending. Only where its row has gone it is dropped.
  bool TakeOpenCell() override;
  /// Writes pending cells through the recordset; an error of the engine reaches the caller, the buffer stays unless its row has
  /// gone.
  void WritePendingRow();

 private:
  friend class ControlRecordset;
  const std::map<int, Value>& Pending() const noexcept { return pending_; }
  void WriteBegins() noexcept { writing_ = true; }
  void PendingWritten();
  void LeaveVanishedRow(bool forward);
  std::string EditText(int column, const Value& value) const;
  Value ParseCell(int column, const std::string& text) const;
  bool TakeCell(int column);
  std::vector<Bookmark> RowsDownTo(const Bookmark& first, const Bookmark& last) const;
  void ReopenCell(int column, std::map<int, Value> held);

  DataControl* data_ = nullptr;
  std::string caption_;
  std::vector<GridColumn> columns_;
  int splits_ = 1;
  int leftCol_[2] = {0, 0};
  std::map<int, Value> pending_;  ///< by column
  bool writing_ = false;          ///< the pending row's write has begun and not ended
  bool taking_ = false;           ///< the open cell's events run
  int listNumber_ = 0;            ///< rises with each opening of the list
  bool marksRows_ = false;
  bool marksByClick_ = false;
  std::optional<Bookmark> markAnchor_;
  bool choosesRows_ = false;
  int cursor_ = -1;
  TextBox* searchBox_ = nullptr;
  std::vector<RowCommand> rowCommands_;
  std::string emphasisField_;
  std::vector<RowEmphasis> emphasis_;
  std::optional<int> openCell_;
  std::string openText_;
  std::string openedText_;
};

}  // namespace platform
