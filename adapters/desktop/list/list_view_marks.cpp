#include <algorithm>

#include "desktop/list/list_act.h"

// What clicks do to the marks.
namespace desktop {

std::vector<platform::Bookmark> ListView::Marked() const {
  std::vector<platform::Bookmark> marked;
  marked.reserve(static_cast<std::size_t>(grid_->SelBookmarks.Count()) + 1);
  for (int i = 0; i < grid_->SelBookmarks.Count(); ++i) marked.push_back(grid_->SelBookmarks.Item(i));
  return marked;
}

/// Control turns one row over, Shift marks from the row marked last, a plain click on the marker leaves that row alone marked.
void ListView::Mark(std::int64_t ordinal, Qt::KeyboardModifiers modifiers, bool plainReplaces) {
  const ShownRow* row = rows_.At(ordinal);
  if (!row) return;
  const platform::Bookmark bookmark = row->row.bookmark;
  Act([&](platform::Grid& grid) {
    if (modifiers.testFlag(Qt::ShiftModifier) && grid.MarkAnchor()) {
      std::vector<platform::Bookmark> range = grid.RowsBetween(*grid.MarkAnchor(), bookmark);
      if (!range.empty()) return grid.UserMark(std::move(range));
    }
    grid.MarkAnchor(bookmark);
    std::vector<platform::Bookmark> marked;
    if (modifiers.testFlag(Qt::ControlModifier) || !plainReplaces) marked = Marked();
    const auto found = std::find(marked.begin(), marked.end(), bookmark);
    if (found == marked.end()) {
      marked.push_back(bookmark);
    } else {
      marked.erase(found);
    }
    grid.UserMark(std::move(marked));
  });
}

}  // namespace desktop
