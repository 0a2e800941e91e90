#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "engine/rows/row_source.h"

/// The rows of a plan's one table by their row keys.
namespace engine {

/// The ends of a table's row keys; 0 and -1 when it is empty. Keys are given in a row: their span is near the number of rows that
/// there ever were.
struct KeySpan {
  std::int64_t first = 0;
  std::int64_t last = -1;
  std::int64_t Width() const noexcept { return last - first + 1; }
};
KeySpan SpanOf(const RowSource& source);

/// Reads `columns` of all rows for which `condition` holds ("" for all), in the order in which they lie: by stretches of row keys,
/// between which the windows paint, as a filter that few rows pass gives no row to pause at. All in one state.
void ReadBySlices(RowSource& source, const std::string& columns, const std::string& condition,
                  const std::function<void(const Query& row)>& take);

/// Below this width of keys a table isn't worth cutting.
inline constexpr std::int64_t kShortestCut = 16'384;

}  // namespace engine
