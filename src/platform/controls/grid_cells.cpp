#include "platform/controls/control_recordset.h"
#include "platform/controls/data_control.h"
#include "platform/controls/form/form.h"
#include "platform/controls/grid.h"
#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "platform/values/text.h"

// The cell that is being edited, and the row whose cells are not written yet.
namespace platform {

/// What the user edits is the stored value; formats are for looking at.
std::string Grid::EditText(int column, const Value& value) const {
  const GridColumn& edited = Column(column);
  if (edited.checkBox || !edited.valueItems.empty()) return ShownText(column, value);
  return value.IsNull() || value.IsEmpty() ? "" : CStr(value);
}

Value Grid::ParseCell(int column, const std::string& text) const {
  const GridColumn& edited = Column(column);
  if (edited.checkBox) return Value(EqualsNoCase(text, "True"));
  for (const auto& [code, item] : edited.valueItems)
    if (EqualsNoCase(item, text)) return code;
  return Value(text);
}

bool Grid::UserOpenCell(int column) {
  if (openCell_ == column) return true;
  bool opened = false;
  Act([&] {
    SetFocus();
    if (!UserCloseCell()) return;
    if (!Column(column).open || !data_ || !data_->OnRecord()) return;
    bool cancel = false;
    BeforeColEdit.Fire(column, cancel);
    if (cancel) return;
    openCell_ = cursor_ = column;
    openText_ = openedText_ = EditText(column, ColumnValue(column));
    ColEdit.Fire(column);
    opened = true;
    Changed(Aspect::OpenCell);
  });
  return opened;
}

void Grid::UserCellText(std::string text) {
  if (!openCell_) return;
  const int limit = Column(*openCell_).entryLimit;
  openText_ = limit > 0 ? Left(text, limit) : std::move(text);
}

bool Grid::UserCloseCell() {
  if (!openCell_) return true;
  if (taking_) return false;  // a box of the cell's own test is up
  bool closed = false;
  Act([&] { closed = TakeCell(*openCell_); });
  return closed;
}

bool Grid::TakeCell(int column) {
  if (openText_ == openedText_) {
    openCell_.reset();
    Changed(Aspect::OpenCell);
    return true;
  }
  struct Taking {
    bool& flag;
    explicit Taking(bool& taking) : flag(taking) { flag = true; }
    ~Taking() { flag = false; }
  };
  const int list = listNumber_;
  const auto held = pending_;
  {
    const Taking taking(taking_);
    const Value oldValue = ColumnValue(column);
    pending_[column] = ParseCell(column, openText_);
    bool cancel = false;
    try {
      BeforeColUpdate.Fire(column, oldValue, cancel);
    } catch (...) {
      if (list == listNumber_) pending_ = held;  // nobody has said that it may go into the row
      throw;
    }
    if (list != listNumber_) return true;  // opened anew behind the test's box: the cell went with its list
    if (cancel) {
      pending_ = held;
      openText_ = openedText_;
      Changed(Aspect::OpenCell);
      return false;
    }
  }
  openCell_.reset();
  Changed(Aspect::OpenCell);
  writing_ = false;
  AfterColUpdate.Fire(column);
  if (list == listNumber_) AfterColEdit.Fire(column);
  const bool failed = writing_ && list == listNumber_;
  writing_ = false;
  if (failed) ReopenCell(column, held);
  return !failed;
}

/// The row's write was tried and failed: the user is back in the cell, with what was typed. A row that has gone has no cell.
void Grid::ReopenCell(int column, std::map<int, Value> held) {
  pending_ = std::move(held);
  const RecordsetRef rows = data_->Recordset();
  if (rows->Mode() != EditMode::None) rows->CancelUpdate();  // the next move must not try it again
  if (data_->RowHasGone()) return DropPending();
  openCell_ = column;
  Changed(Aspect::OpenCell);
}

bool Grid::TakeOpenCell() {
  if (!UserCloseCell()) return false;
  if (pending_.empty()) return true;
  bool written = false;
  Act([&] {
    WritePendingRow();
    written = true;
  });
  return written;
}

void Grid::WritePendingRow() {
  if (pending_.empty()) return;
  if (!data_->OnRecord()) throw error::ActionCancelled();
  const RecordsetRef rows = data_->Recordset();
  try {
    if (rows->Mode() == EditMode::None) rows->Edit();
    rows->Update();
  } catch (const Error&) {
    if (data_->RowHasGone()) DropPending();
    throw;
  }
}

void Grid::PendingWritten() {
  writing_ = false;
  pending_.clear();
  AfterUpdate.Fire();
  Changed(Aspect::RowContent);
}

void Grid::DropPending() {
  if (openCell_) {
    openCell_.reset();
    Changed(Aspect::OpenCell);
  }
  if (pending_.empty()) return;
  pending_.clear();
  Changed(Aspect::RowContent);
}

void Grid::UserEscape() {
  Act([&] {
    if (openCell_) {
      openCell_.reset();
      Changed(Aspect::OpenCell);
    } else {
      DropPending();
    }
  });
}

void Grid::UserLeaveRow() {
  Act([&] { TakeOpenCell(); });
}

}  // namespace platform
