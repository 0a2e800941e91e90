#include "desktop/list/column_layout.h"

#include <algorithm>
#include <iterator>

namespace desktop {

void ColumnLayout::Reset(const std::vector<ColumnSpec>& columns, int fixed) {
  design_ = columns;
  widths_.clear();
  all_.clear();
  hidden_.clear();
  for (std::size_t i = 0; i < columns.size(); ++i) {
    widths_.push_back(std::max(kLeastWidth, columns[i].width));
    if (columns[i].visible) all_.push_back(static_cast<int>(i));
  }
  fixedOfAll_ = std::clamp(fixed, 0, static_cast<int>(all_.size()));
  Place();
}

void ColumnLayout::Place() {
  order_.clear();
  std::copy_if(all_.begin(), all_.end(), std::back_inserter(order_), [this](int column) { return !IsHidden(column); });
  fixed_ = static_cast<int>(std::count_if(all_.begin(), all_.begin() + fixedOfAll_, [this](int column) { return !IsHidden(column); }));
}

void ColumnLayout::Hide(const std::vector<std::string>& fields) {
  hidden_.clear();
  for (const int column : all_) {
    const std::string& field = design_[static_cast<std::size_t>(column)].field;
    if (std::find(fields.begin(), fields.end(), field) != fields.end()) hidden_.insert(column);
  }
  if (hidden_.size() == all_.size() && !all_.empty()) hidden_.erase(all_.front());
  Place();
}

std::vector<std::string> ColumnLayout::HiddenFields() const {
  std::vector<std::string> fields;
  for (const int column : all_)
    if (IsHidden(column)) fields.push_back(design_[static_cast<std::size_t>(column)].field);
  return fields;
}

std::optional<int> ColumnLayout::PlaceOf(int column) const {
  const auto found = std::find(order_.begin(), order_.end(), column);
  if (found == order_.end()) return {};
  return static_cast<int>(found - order_.begin());
}

void ColumnLayout::Width(int column, int width) { widths_.at(static_cast<std::size_t>(column)) = std::max(kLeastWidth, width); }

bool ColumnLayout::Move(int column, int place) {
  const auto from = PlaceOf(column);
  if (!from) return false;
  const int lowest = IsFixed(*from) ? 0 : fixed_;
  const int highest = IsFixed(*from) ? fixed_ - 1 : PlaceCount() - 1;
  const int to = std::clamp(place, lowest, highest);
  if (to == *from) return false;
  // Beside the column that stands there, so that hidden ones keep their neighbours.
  const int neighbour = ColumnAt(to);
  all_.erase(std::find(all_.begin(), all_.end(), column));
  all_.insert(std::find(all_.begin(), all_.end(), neighbour) + (to > *from ? 1 : 0), column);
  Place();
  return true;
}

void ColumnLayout::OrderBy(const std::vector<std::string>& fields) {
  const auto rank = [&](int column) {
    const auto found = std::find(fields.begin(), fields.end(), design_[static_cast<std::size_t>(column)].field);
    return found - fields.begin();
  };
  const auto before = [&](int left, int right) { return rank(left) < rank(right); };
  std::stable_sort(all_.begin(), all_.begin() + fixedOfAll_, before);
  std::stable_sort(all_.begin() + fixedOfAll_, all_.end(), before);
  Place();
}

std::vector<std::string> ColumnLayout::FieldsInOrder() const {
  std::vector<std::string> fields;
  for (const int column : all_) fields.push_back(design_[static_cast<std::size_t>(column)].field);
  return fields;
}

int ColumnLayout::FixedWidth() const {
  int width = 0;
  for (int place = 0; place < fixed_; ++place) width += Width(ColumnAt(place));
  return width;
}

int ColumnLayout::ScrolledWidth() const {
  int width = 0;
  for (int place = fixed_; place < PlaceCount(); ++place) width += Width(ColumnAt(place));
  return width;
}

int ColumnLayout::LeftInGroup(int place) const {
  int left = 0;
  for (int i = IsFixed(place) ? 0 : fixed_; i < place; ++i) left += Width(ColumnAt(i));
  return left;
}

int ColumnLayout::ScrolledPlaceAt(int x) const {
  int right = 0;
  for (int place = fixed_; place < PlaceCount(); ++place) {
    right += Width(ColumnAt(place));
    if (x < right) return place;
  }
  return PlaceCount() > fixed_ ? PlaceCount() - 1 : -1;
}

int ColumnLayout::ShownLeft(int place, int offset) const {
  return IsFixed(place) ? LeftInGroup(place) : FixedWidth() + LeftInGroup(place) - offset;
}

std::optional<int> ColumnLayout::PlaceAt(int x, int offset) const {
  const int fixedWidth = FixedWidth();
  for (int place = 0; place < PlaceCount(); ++place) {
    if (!IsFixed(place) && x < fixedWidth) break;
    const int left = ShownLeft(place, offset);
    if (x >= left && x < left + Width(ColumnAt(place))) return place;
  }
  return {};
}

}  // namespace desktop
