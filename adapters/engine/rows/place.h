#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "engine/rows/row_page.h"

namespace engine {

/// Where a cursor stands in a list: the row's identity, its place as the list counts or orders it, and the row as it was
/// read there.
struct Place {
  std::vector<std::int64_t> keys;      ///< row keys of the source's tables
  std::vector<platform::Value> order;  ///< lists in index order: the order keys that give the row its place
  std::int64_t ordinal = -1;           ///< number in the list, -1 where the list doesn't know it
  std::int64_t added = 0;              ///< lists in index order: above 0 for rows added at the end, in their order
  std::shared_ptr<const RowPage> page;
  std::size_t row = 0;

  platform::Value Cell(std::size_t column) const { return page->Cell(row, column); }
};

}  // namespace engine
