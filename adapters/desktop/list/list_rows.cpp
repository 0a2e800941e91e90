#include "desktop/list/list_rows.h"

#include <algorithm>

#include "platform/values/error.h"

namespace desktop {

namespace {

constexpr int kMargin = 48;     ///< rows fetched on either side of what is asked for
constexpr int kNearbyGap = 64;  ///< a wanted row this close to the held ones is reached by paging

}  // namespace

template <class Body>
bool ListRows::Try(Body&& body) {
  platform::RowWindow* window = source_();
  if (!window) return false;
  try {
    return body(*window);
  } catch (const platform::Error&) {
    return false;
  }
}

void ListRows::Forget() {
  rows_.clear();
  base_ = 0;
  count_ = 0;
  counted_ = false;
  exact_ = false;
}

std::int64_t ListRows::Count() {
  if (!counted_) Settle();
  return count_;
}

std::int64_t ListRows::Settle() {
  platform::RowWindow* window = source_();
  if (!window) return 0;
  std::int64_t moved = 0;
  try {
    const bool wasExact = exact_;
    exact_ = window->CountIsExact();
    count_ = std::max<std::int64_t>(0, window->Count());
    counted_ = true;
    if (exact_ && !wasExact && !rows_.empty()) {
      if (const auto first = window->OrdinalOf(rows_.front().row.bookmark)) {
        moved = *first - base_;
        base_ = *first;
      }
    }
    if (!exact_) count_ = std::max(count_, End());
  } catch (const platform::Error&) {
    // What was known stays in use; the next idle time asks again.
  }
  return moved;
}

void ListRows::NoteEnd() { count_ = std::max(count_, End()); }

void ListRows::Replace(std::int64_t first, std::vector<platform::ListRow> rows) {
  rows_.clear();
  base_ = first;
  Append(std::move(rows));
}

void ListRows::Append(std::vector<platform::ListRow> rows) {
  for (auto& row : rows) rows_.push_back({std::move(row), {}, {}});
  while (Held() > kMost) {
    rows_.pop_front();
    ++base_;
  }
  NoteEnd();
}

void ListRows::Prepend(std::vector<platform::ListRow> rows) {
  for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
    rows_.push_front({std::move(*row), {}, {}});
    --base_;
  }
  while (Held() > kMost) rows_.pop_back();
}

bool ListRows::Need(std::int64_t first, int count) {
  const std::int64_t end = std::min(first + count, Count());
  first = std::max<std::int64_t>(0, first);
  if (first >= end || (!rows_.empty() && first >= base_ && end <= End())) return true;
  return Try([&](platform::RowWindow& window) {
    const bool near = !rows_.empty() && end >= base_ - kNearbyGap && first <= End() + kNearbyGap;
    return (near && Extend(window, first, end)) || Jump(window, first, static_cast<int>(end - first));
  });
}

/// Pages on from the rows that are held: their ordinals cost nothing then.
bool ListRows::Extend(platform::RowWindow& window, std::int64_t first, std::int64_t end) {
  if (end > End()) {
    auto more = window.RowsAfter(rows_.back().row.bookmark, static_cast<int>(end - End()) + kMargin);
    const bool listEnds = static_cast<std::int64_t>(more.size()) < end - End();
    Append(std::move(more));
    if (listEnds) count_ = End();
  }
  if (first < base_) {
    auto more = window.RowsBefore(rows_.front().row.bookmark, static_cast<int>(base_ - first) + kMargin);
    Prepend(std::move(more));
    if (base_ < 0) base_ = 0;
  }
  return !rows_.empty() && first >= base_ && std::min(end, count_) <= End();
}

/// A list's first picture asks for no more than it shows: a query finds its first rows long before all others.
bool ListRows::Jump(platform::RowWindow& window, std::int64_t first, int count) {
  const std::int64_t from = std::max<std::int64_t>(0, first - kMargin);
  const bool firstPicture = rows_.empty() && first == 0;
  const int wanted = static_cast<int>(first - from) + count + (firstPicture ? 0 : kMargin);
  if (from > 0 && from + wanted >= count_) {
    auto rows = window.LastRows(wanted);
    const auto got = static_cast<std::int64_t>(rows.size());
    Replace(std::max<std::int64_t>(0, count_ - got), std::move(rows));
    return true;
  }
  auto rows = window.RowsAt(from, wanted);
  const bool listEnds = static_cast<int>(rows.size()) < wanted;
  Replace(from, std::move(rows));
  if (listEnds && !rows_.empty()) count_ = End();
  return true;
}

const ShownRow* ListRows::At(std::int64_t ordinal) const {
  if (ordinal < base_ || ordinal >= End()) return nullptr;
  return &rows_[static_cast<std::size_t>(ordinal - base_)];
}

ShownRow* ListRows::At(std::int64_t ordinal) {
  if (ordinal < base_ || ordinal >= End()) return nullptr;
  return &rows_[static_cast<std::size_t>(ordinal - base_)];
}

std::optional<std::int64_t> ListRows::HeldOrdinal(const platform::Bookmark& row) const {
  for (std::size_t i = 0; i < rows_.size(); ++i)
    if (rows_[i].row.bookmark == row) return base_ + static_cast<std::int64_t>(i);
  return {};
}

std::vector<platform::Bookmark> ListRows::HeldRows() const {
  std::vector<platform::Bookmark> rows;
  rows.reserve(rows_.size());
  for (const ShownRow& row : rows_) rows.push_back(row.row.bookmark);
  return rows;
}

std::optional<std::int64_t> ListRows::Find(const platform::Bookmark& row, int around) {
  if (const auto held = HeldOrdinal(row)) return held;
  Count();
  std::optional<std::int64_t> found;
  Try([&](platform::RowWindow& window) {
    auto near = window.Around(row, around);
    if (!near) return false;
    const auto above = static_cast<std::int64_t>(near->before);
    const auto below = static_cast<std::int64_t>(near->rows.size()) - above - 1;
    if (near->ordinal) {
      found = near->ordinal;
    } else if (below < around) {
      found = std::max(above, count_ - 1 - below);
    } else {
      found = std::max(above, count_ / 2);
    }
    Replace(std::max<std::int64_t>(0, *found - above), std::move(near->rows));
    return true;
  });
  return found;
}

bool ListRows::Reread(const platform::Bookmark& row) {
  const auto held = HeldOrdinal(row);
  if (!held) return true;
  bool inList = true;
  Try([&](platform::RowWindow& window) {
    ShownRow& shown = *At(*held);
    shown.known.clear();
    if (auto now = window.RowOf(row)) {
      shown.row = std::move(*now);
      return true;
    }
    // One that another user deleted keeps its place in the list; only the program's own delete takes it out.
    inList = window.OrdinalOf(row).has_value();
    shown.row.cells.clear();
    if (!inList) Remove(*held);
    return true;
  });
  return inList;
}

void ListRows::Remove(std::int64_t ordinal) {
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(ordinal - base_));
  if (counted_) count_ = std::max<std::int64_t>(0, count_ - 1);
}

void ListRows::ForgetTexts() {
  for (ShownRow& row : rows_) row.known.clear();
}

}  // namespace desktop
