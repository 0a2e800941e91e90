#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/values/packed_cells.h"
#include "platform/values/value.h"

namespace engine {

/// Rows read together: their cells, and the row keys by which the source's tables know them. Never changed once read.
struct RowPage {
  RowPage(std::size_t columnCount, std::size_t keyCount) : columns(columnCount), keysPerRow(keyCount) {}

  std::size_t Rows() const noexcept { return keysPerRow == 0 ? 0 : keys.size() / keysPerRow; }
  platform::Value Cell(std::size_t row, std::size_t column) const { return cells.At(row * columns + column); }
  /// The first cells of a row.
  std::vector<platform::Value> CellsOf(std::size_t row, std::size_t count) const {
    std::vector<platform::Value> values;
    values.reserve(count);
    for (std::size_t i = 0; i < count; ++i) values.push_back(Cell(row, i));
    return values;
  }
  /// Whether all cells are the same.
  bool SameRow(std::size_t row, const RowPage& others, std::size_t other) const {
    for (std::size_t i = 0; i < columns; ++i)
      if (!cells.Same(row * columns + i, others.cells, other * columns + i)) return false;
    return true;
  }
  const std::int64_t* KeysOf(std::size_t row) const { return keys.data() + row * keysPerRow; }

  std::size_t columns;  ///< cells of each row; order keys that are no columns stand behind the columns
  std::size_t keysPerRow;
  PackedCells cells;
  std::vector<std::int64_t> keys;
  std::uint64_t version = 0;  ///< the source's, from before the rows were read; for RowSource::StillSo
};

/// A row key where an outer join found no row.
inline constexpr std::int64_t kNoRowKey = INT64_MIN;

}  // namespace engine
