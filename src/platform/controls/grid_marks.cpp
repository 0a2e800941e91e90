#include "platform/controls/data_control.h"
#include "platform/controls/form/form.h"
#include "platform/controls/form/form_host.h"
#include "platform/controls/grid.h"

// Which rows the user has marked. A mark belongs to a row and a range to the list, however much of it is held or in view.
namespace platform {

namespace {
constexpr int kSlice = 512;  ///< rows of a range that are asked for at once
}

void Grid::UserMark(std::vector<Bookmark> rows) {
  Act([&] {
    SetFocus();
    const std::vector<Bookmark> before = SelBookmarks.All();
    SelBookmarks.Replace(std::move(rows));
    bool cancel = false;
    SelChange.Fire(cancel);
    if (cancel) SelBookmarks.Replace(before);
    Changed(Aspect::Selection);
  });
}

void Grid::UserMarkRange(const Bookmark& from) {
  Act([&] {
    if (!data_ || !data_->OnRecord()) return;
    if (!markAnchor_) markAnchor_ = from;
    std::vector<Bookmark> rows = RowsBetween(*markAnchor_, CurrentBookmark());
    if (!rows.empty()) UserMark(std::move(rows));
  });
}

/// Their places may be guesses while the engine counts, so the walk itself tells which one comes first.
std::vector<Bookmark> Grid::RowsBetween(const Bookmark& one, const Bookmark& other) const {
  RowWindow* window = data_ ? data_->Window() : nullptr;
  if (!window) return {};
  const auto from = window->OrdinalOf(one);
  const auto to = window->OrdinalOf(other);
  if (!from || !to) return {};
  std::vector<Bookmark> rows = *from <= *to ? RowsDownTo(one, other) : RowsDownTo(other, one);
  if (rows.empty()) rows = *from <= *to ? RowsDownTo(other, one) : RowsDownTo(one, other);
  return rows;
}

/// From the first down to the last, in slices with the windows painted between; nothing when the last does not come.
std::vector<Bookmark> Grid::RowsDownTo(const Bookmark& first, const Bookmark& last) const {
  std::vector<Bookmark> rows{first};
  while (rows.back() != last) {
    RowWindow* window = data_->Window();
    if (!window) return {};
    const std::vector<ListRow> more = window->RowsAfter(rows.back(), kSlice);
    if (more.empty()) return {};
    for (const ListRow& row : more) {
      rows.push_back(row.bookmark);
      if (row.bookmark == last) break;
    }
    Owner().Host().ServePainting();
  }
  return rows;
}

}  // namespace platform
