#include "platform/controls/selected_bookmarks.h"

#include "platform/values/error.h"

namespace platform {

const Bookmark& SelectedBookmarks::Item(int index) const {
  if (index < 0 || index >= Count()) throw error::SubscriptOutOfRange();
  return items_[static_cast<std::size_t>(index)];
}

void SelectedBookmarks::Add(Bookmark bookmark) {
  if (!keys_.insert(bookmark.key).second) return;
  items_.push_back(std::move(bookmark));
  changed_();
}

void SelectedBookmarks::Remove(int index) {
  if (index < 0 || index >= Count()) throw error::SubscriptOutOfRange();
  keys_.erase(items_[static_cast<std::size_t>(index)].key);
  items_.erase(items_.begin() + index);
  changed_();
}

void SelectedBookmarks::Replace(std::vector<Bookmark> items) {
  items_.clear();
  keys_.clear();
  for (Bookmark& item : items)
    if (keys_.insert(item.key).second) items_.push_back(std::move(item));
}

}  // namespace platform
