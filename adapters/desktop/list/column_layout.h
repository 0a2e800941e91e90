#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace desktop {

/// What the layout has to know of one column of the design.
struct ColumnSpec {
  std::string field;
  int width = 0;  ///< first width, device-independent pixels
  bool visible = true;
};

/// Where a list's columns stand: their order and widths, and how many of them stay in view at the left (fixed) while the
/// rest scrolls. Columns go by their design index; a "place" counts the visible ones from the left. Pure arithmetic.
class ColumnLayout {
 public:
  static constexpr int kLeastWidth = 24;

  /// The design's order and widths; the first `fixed` visible columns are fixed.
  void Reset(const std::vector<ColumnSpec>& columns, int fixed);

  int PlaceCount() const noexcept { return static_cast<int>(order_.size()); }
  int FixedCount() const noexcept { return fixed_; }
  bool IsFixed(int place) const noexcept { return place < fixed_; }
  int ColumnAt(int place) const { return order_.at(static_cast<std::size_t>(place)); }
  std::optional<int> PlaceOf(int column) const;

  int Width(int column) const { return widths_.at(static_cast<std::size_t>(column)); }
  void Width(int column, int width);

  /// Moves a column to a place of its own group (fixed or not); returns whether anything moved.
  bool Move(int column, int place);
  /// Hides the columns with these fields and shows all others; one column stays in any case.
  void Hide(const std::vector<std::string>& fields);
  std::vector<std::string> HiddenFields() const;
  bool IsHidden(int column) const { return hidden_.count(column) != 0; }
  /// All that can be shown, from left to right, hidden ones among them; so many of them belong to the fixed group.
  const std::vector<int>& All() const noexcept { return all_; }
  int FixedOfAll() const noexcept { return fixedOfAll_; }
  /// Orders the columns as these fields say; fields that are missing keep their order behind the named ones of their group.
  void OrderBy(const std::vector<std::string>& fields);
  /// Hidden ones at their places among the others.
  std::vector<std::string> FieldsInOrder() const;

  int FixedWidth() const;
  int ScrolledWidth() const;
  /// Left edge within its group, without scrolling.
  int LeftInGroup(int place) const;
  /// The scrolled column that holds position `x` of the scrolled group; the last one behind the end. -1 without any.
  int ScrolledPlaceAt(int x) const;
  /// Left edge as shown when the scrolled group is `offset` pixels to the left.
  int ShownLeft(int place, int offset) const;
  /// The place shown at `x`.
  std::optional<int> PlaceAt(int x, int offset) const;

 private:
  /// Puts the columns that are shown in their order.
  void Place();

  std::vector<ColumnSpec> design_;
  std::vector<int> widths_;
  std::vector<int> all_;
  int fixedOfAll_ = 0;
  std::set<int> hidden_;
  std::vector<int> order_;  ///< of all, those that are shown
  int fixed_ = 0;
};

}  // namespace desktop
