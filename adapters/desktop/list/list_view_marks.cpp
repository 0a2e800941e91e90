#include <algorithm>

#include "desktop/list/list_act.h"

// Which rows are marked. A mark belongs to a row and a range to the list, however much of it is held or in view.
namespace desktop {

namespace {
constexpr int kSlice = 512;  ///< rows of a range that are asked for at once
}

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
    if (modifiers.testFlag(Qt::ShiftModifier) && markAnchor_) {
      std::vector<platform::Bookmark> range = RowsBetween(*markAnchor_, bookmark);
      if (!range.empty()) return grid.UserMark(std::move(range));
    }
    markAnchor_ = bookmark;
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

/// Both and all between, in the list's order; nothing when one of them is not in the list any more. Their ordinals may be guesses
/// while the engine counts, so the walk itself tells which one comes first.
std::vector<platform::Bookmark> ListView::RowsBetween(const platform::Bookmark& one, const platform::Bookmark& other) const {
  platform::RowWindow* window = grid_->Data() ? grid_->Data()->Window() : nullptr;
  if (!window) return {};
  const auto from = window->OrdinalOf(one);
  const auto to = window->OrdinalOf(other);
  if (!from || !to) return {};
  std::vector<platform::Bookmark> rows = *from <= *to ? RowsDownTo(one, other) : RowsDownTo(other, one);
  if (rows.empty()) rows = *from <= *to ? RowsDownTo(other, one) : RowsDownTo(one, other);
  return rows;
}

/// From the first down to the last, in slices with the window painted between; nothing when the last does not come.
std::vector<platform::Bookmark> ListView::RowsDownTo(const platform::Bookmark& first, const platform::Bookmark& last) const {
  std::vector<platform::Bookmark> rows{first};
  while (rows.back() != last) {
    platform::RowWindow* window = grid_->Data()->Window();
    if (!window) return {};
    const std::vector<platform::ListRow> more = window->RowsAfter(rows.back(), kSlice);
    if (more.empty()) return {};
    for (const platform::ListRow& row : more) {
      rows.push_back(row.bookmark);
      if (row.bookmark == last) break;
    }
    Host().ServePainting();
  }
  return rows;
}

}  // namespace desktop
