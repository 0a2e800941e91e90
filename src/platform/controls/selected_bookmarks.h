#pragma once

#include <deque>
#include <functional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "platform/data/data.h"

namespace platform {

/// The rows that the user has marked, in the order of marking. Adding and removing in code fires nothing.
class SelectedBookmarks {
 public:
  /// `changed` tells whoever shows the marks.
  explicit SelectedBookmarks(std::function<void()> changed) : changed_(std::move(changed)) {}
  int Count() const noexcept { return static_cast<int>(items_.size()); }
  const Bookmark& Item(int index) const;
  std::vector<Bookmark> All() const { return {items_.begin(), items_.end()}; }
  /// A row that is marked already stays where it is.
  void Add(Bookmark bookmark);
  void Remove(int index);
  bool Contains(const Bookmark& bookmark) const { return keys_.count(bookmark.key) != 0; }

 private:
  friend class Grid;  // replaces them all at once, and tells it itself
  void Replace(std::vector<Bookmark> items);

  std::function<void()> changed_;
  std::deque<Bookmark> items_;  ///< taken off at the front when all are unmarked
  std::unordered_set<std::string> keys_;
};

}  // namespace platform
