#include "platform/controls/grid.h"

#include <algorithm>

#include "platform/controls/control_recordset.h"
#include "platform/controls/data_control.h"
#include "platform/controls/form/form.h"
#include "platform/controls/form/form_host.h"
#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "platform/values/format.h"
#include "platform/values/text.h"

namespace platform {

Grid::Grid(Form& form, std::string name) : Control(form, std::move(name)) {}
Grid::Grid(Form& form, std::string name, int index) : Control(form, std::move(name), index) {}

void Grid::BindTo(DataControl& data) {
  data_ = &data;
  data.Attach(*this);
}

void Grid::Caption(std::string caption) {
  if (caption_ == caption) return;
  caption_ = std::move(caption);
  Changed(Aspect::Text);
}

void Grid::DefineColumns(std::vector<GridColumn> columns) {
  columns_ = std::move(columns);
  Changed(Aspect::Columns);
}

const GridColumn& Grid::Column(int index) const {
  if (index < 0 || index >= ColumnCount()) throw error::SubscriptOutOfRange();
  return columns_[static_cast<std::size_t>(index)];
}

GridColumn& Grid::DesignColumn(int index) { return const_cast<GridColumn&>(Column(index)); }

void Grid::OpenColumn(int index, bool open) {
  GridColumn& column = DesignColumn(index);
  if (column.open == open) return;
  column.open = open;
  if (!open && openCell_ == index) openCell_.reset();
  Changed(Aspect::Columns);
  Changed(Aspect::OpenCell);
}

int Grid::FieldIndexOf(int column) const {
  const std::string& field = Column(column).dataField;
  if (!data_ || !data_->HasRecordset()) return -1;
  const RecordsetRef rows = data_->Recordset();
  const auto& fields = rows->Fields();
  for (std::size_t i = 0; i < fields.size(); ++i)
    if (EqualsNoCase(fields[i].name, field)) return static_cast<int>(i);
  return -1;
}

Value Grid::ColumnValue(int column) const {
  if (const auto pending = pending_.find(column); pending != pending_.end()) return pending->second;
  const int field = FieldIndexOf(column);
  if (field < 0 || !data_->OnRecord()) return Null;
  return data_->Recordset()->Field(field);
}

void Grid::ColumnValue(int column, const Value& value) {
  Column(column);
  pending_[column] = value;
  Changed(Aspect::RowContent);
}

std::string Grid::ShownText(int column, const Value& value) const {
  const GridColumn& shown = Column(column);
  if (shown.checkBox) return !value.IsNull() && !value.IsEmpty() && CBool(value) ? "True" : "False";
  if (value.IsNull() || value.IsEmpty()) return "";
  for (const auto& [code, text] : shown.valueItems)
    if (CStr(code) == (value.Kind() == ValueKind::Boolean ? CStr(CInt(value)) : CStr(value))) return text;
  return shown.numberFormat.empty() ? CStr(value) : Format(value, shown.numberFormat, Owner().Host().ThisYear());
}

void Grid::Splits(int count) noexcept { splits_ = std::clamp(count, 1, 2); }

int Grid::LeftCol(int split) const { return leftCol_[std::clamp(split, 0, 1)]; }

void Grid::LeftCol(int split, int column) {
  int& left = leftCol_[std::clamp(split, 0, 1)];
  if (left == column) return;
  left = column;
  Changed(Aspect::Columns);
}

Bookmark Grid::CurrentBookmark() const {
  if (!data_) throw error::ObjectNotSet();
  return data_->Recordset()->Bookmark();
}

void Grid::CurrentBookmark(const Bookmark& bookmark) {
  if (!data_) throw error::ObjectNotSet();
  data_->Recordset()->SetBookmark(bookmark);
}

void Grid::Row(int ordinal) {
  if (!data_) throw error::ObjectNotSet();
  data_->recordset_->SavePending();
  RowWindow* window = data_->Window();
  if (!window) throw error::ObjectNotSet();
  const std::vector<ListRow> rows = window->RowsAt(ordinal, 1);
  if (!rows.empty()) data_->Recordset()->SetBookmark(rows.front().bookmark);
}

void Grid::ListOpened() {
  openCell_.reset();
  pending_.clear();
  ++listNumber_;
  SelBookmarks.Replace({});
  markAnchor_.reset();
  Changed(Aspect::List);
}

/// Cells belong to one row: whoever moves on has taken them, and what is left over now would go to another row.
void Grid::RowBecameCurrent() {
  DropPending();
  Changed(Aspect::CurrentRow);
}

void Grid::UserHeadClick(int column) {
  Act([&] {
    if (!TakeOpenCell()) return;
    SetFocus();
    HeadClick.Fire(column);
  });
}

bool Grid::UserRow(const Bookmark& bookmark) {
  bool moved = false;
  Act([&] {
    SetFocus();
    if (!UserCloseCell()) return;
    // Another cell of the row that is being changed: the row is not left.
    const bool stays = !pending_.empty() && data_->OnRecord() && data_->Recordset()->Bookmark() == bookmark;
    if (!stays) data_->Recordset()->SetBookmark(bookmark);
    moved = true;
  });
  return moved;
}

void Grid::UserMove(std::int32_t rows) {
  Act([&] {
    if (!data_ || !TakeOpenCell() || !data_->OnRecord()) return;  // what the cell does may have emptied the list
    RowWindow* window = data_->Window();
    if (!window || rows == 0) return;
    const Bookmark here = data_->Recordset()->Bookmark();
    const auto found = rows > 0 ? window->RowsAfter(here, rows) : window->RowsBefore(here, -rows);
    if (found.empty()) {
      if (!window->RowOf(here)) LeaveVanishedRow(rows > 0);
      return;
    }
    data_->Recordset()->SetBookmark(rows > 0 ? found.back().bookmark : found.front().bookmark);
  });
}

/// From a row that another user has deleted only the recordset itself knows the way on.
void Grid::LeaveVanishedRow(bool forward) {
  const RecordsetRef rows = data_->Recordset();
  if (forward)
    rows->MoveNext();
  else
    rows->MovePrevious();
  if (!rows->HasRows()) return;
  if (rows->Eof()) rows->MoveLast();
  if (rows->Bof()) rows->MoveFirst();
}

void Grid::UserFirst() {
  Act([&] {
    if (data_ && TakeOpenCell() && data_->OnRecord()) data_->Recordset()->MoveFirst();
  });
}

void Grid::UserLast() {
  Act([&] {
    if (data_ && TakeOpenCell() && data_->OnRecord()) data_->Recordset()->MoveLast();
  });
}

void Grid::UserScroll(int split, int column) {
  Act([&] { LeftCol(split, column); });
}

}  // namespace platform
