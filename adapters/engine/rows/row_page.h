#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/values/value.h"

namespace engine {

/// Rows read together: their cells, and the row keys by which the source's tables know them. Never changed once read.
struct RowPage {
  RowPage(std::size_t columnCount, std::size_t keyCount) : columns(columnCount), keysPerRow(keyCount) {}

  std::size_t Rows() const noexcept { return keysPerRow == 0 ? 0 : keys.size() / keysPerRow; }
  const platform::Value& Cell(std::size_t row, std::size_t column) const { return cells[row * columns + column]; }
  const platform::Value* CellsOf(std::size_t row) const { return cells.data() + row * columns; }
  const std::int64_t* KeysOf(std::size_t row) const { return keys.data() + row * keysPerRow; }

  std::size_t columns;  ///< cells of each row; order keys that are no columns stand behind the columns
  std::size_t keysPerRow;
  std::vector<platform::Value> cells;
  std::vector<std::int64_t> keys;
};

/// A row key where an outer join found no row.
inline constexpr std::int64_t kNoRowKey = INT64_MIN;

}  // namespace engine
