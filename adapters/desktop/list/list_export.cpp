#include "desktop/list/list_export.h"

#include "desktop/list/list_copy.h"
#include "desktop/toolkit/toolkit.h"
#include "platform/controls/data_control.h"

namespace desktop {

namespace {
constexpr int kRowsAtOnce = 256;
}

platform::Value ExportedCell(const platform::Grid& grid, int column, const platform::ListRow& row) {
  const int field = grid.FieldIndexOf(column);
  if (field < 0 || static_cast<std::size_t>(field) >= row.cells.size()) return platform::Null;
  const platform::GridColumn& design = grid.Column(column);
  if (design.lastFour || design.checkBox || !design.valueItems.empty()) return CopiedCell(grid, column, row).toStdString();
  return row.cells[static_cast<std::size_t>(field)];
}

bool ExportedRows::Fetch() {
  platform::RowWindow* window = grid_.Data() ? grid_.Data()->Window() : nullptr;
  if (!window) return false;
  page_ = started_ ? window->RowsAfter(page_.back().bookmark, kRowsAtOnce) : window->RowsAt(0, kRowsAtOnce);
  started_ = true;
  next_ = 0;
  return !page_.empty();
}

platform::ExportRows::Step ExportedRows::Next(std::vector<platform::Value>& cells) {
  for (;;) {
    if (next_ == page_.size()) {
      if (!goOn_(rows_)) return Step::Stopped;
      if ((started_ && page_.empty()) || !Fetch()) return Step::End;
    }
    const platform::ListRow& row = page_[next_++];
    if (row.cells.empty()) continue;  // deleted meanwhile
    cells.clear();
    for (const int column : columns_) cells.push_back(ExportedCell(grid_, column, row));
    ++rows_;
    return Step::Row;
  }
}

}  // namespace desktop
