#include "robot/stage/lists.h"

#include "platform/controls/form/form.h"
#include "platform/values/text.h"
#include "robot/language/failure.h"
#include "robot/language/value_text.h"

namespace robot {

using platform::DataControl;
using platform::Grid;
using platform::ListRow;
using platform::RowWindow;

namespace {
constexpr int kRowsAtOnce = 200;
}

Grid& GridOf(platform::Control& control) {
  if (auto* grid = dynamic_cast<Grid*>(&control)) return *grid;
  const auto* data = dynamic_cast<const DataControl*>(&control);
  for (platform::Control* other : control.Owner().Controls()) {
    auto* grid = dynamic_cast<Grid*>(other);
    if (data != nullptr && grid != nullptr && grid->Data() == data) return *grid;
  }
  throw ActionFailed(control.FullName() + " no list");
}

DataControl& DataOf(platform::Control& control) {
  if (auto* data = dynamic_cast<DataControl*>(&control)) return *data;
  Grid& grid = GridOf(control);
  if (grid.Data() == nullptr) throw ActionFailed(control.FullName() + " a list without data");
  return *grid.Data();
}

RowWindow& RowsOf(DataControl& data) {
  RowWindow* rows = data.Window();
  if (rows == nullptr) throw Refused(data.FullName() + " not opened");
  return *rows;
}

std::int64_t CountRows(RowWindow& rows) {
  while (!rows.CountIsExact() && rows.IdleSlice()) {
  }
  return rows.Count();
}

ListRow RowAt(RowWindow& rows, int ordinal) {
  if (ordinal < 0) throw Refused("no row " + std::to_string(ordinal));
  CountRows(rows);  // ordinals are estimates until the list is counted
  std::vector<ListRow> found = rows.RowsAt(ordinal, 1);
  if (found.empty()) throw Refused("no row " + std::to_string(ordinal));
  return found.front();
}

ListRow FirstRowWith(DataControl& data, const std::string& field, const Word& value) {
  RowWindow& rows = RowsOf(data);
  const auto column = static_cast<std::size_t>(data.Recordset()->FieldIndex(field));
  for (std::vector<ListRow> page = rows.RowsAt(0, kRowsAtOnce); !page.empty(); page = rows.RowsAfter(page.back().bookmark, kRowsAtOnce)) {
    for (const ListRow& row : page)
      if (column < row.cells.size() && Meets(row.cells[column], value)) return row;
  }
  throw Refused("no row where " + field + " " + Wanted(value));
}

int ColumnWith(const Grid& grid, const std::string& caption) {
  for (int column = 0; column < grid.ColumnCount(); ++column)
    if (grid.Column(column).caption == caption) return column;
  throw ActionFailed("no column " + Quoted(caption) + " of " + grid.FullName());
}

std::string CellText(Grid& grid, int column, const ListRow& row) {
  const DataControl& data = DataOf(grid);
  if (grid.DataChanged() && data.OnRecord() && data.Recordset()->Bookmark() == row.bookmark) {
    return grid.ShownText(column, grid.ColumnValue(column));
  }
  const int field = grid.FieldIndexOf(column);
  if (field < 0 || static_cast<std::size_t>(field) >= row.cells.size()) return "";
  return grid.ShownText(column, row.cells[static_cast<std::size_t>(field)]);
}

}  // namespace robot
