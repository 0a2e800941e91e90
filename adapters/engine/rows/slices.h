#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "engine/rows/ascending_keys.h"
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
/// That of a column that counts the rows of a table ("Phones AS t1").
KeySpan SpanOf(Store& store, const std::string& key, const std::string& table);

/// Reads `columns` of all rows for which a condition holds ("" for all), in the order in which they lie, piece by piece: by
/// stretches of row keys, or by the row keys themselves, which must be in their order. Between the pieces the windows may paint, as
/// a filter that few rows pass gives no row to pause at.
class PiecewiseScan {
 public:
  using Take = std::function<void(const Query& row)>;
  PiecewiseScan(RowSource& source, const std::string& columns, const std::string& condition);
  PiecewiseScan(RowSource& source, const std::string& columns, const std::string& condition,
                const std::vector<std::int64_t>& keys);

  /// Reads on for a few milliseconds; false when all is read.
  bool Next(const Take& take);

 private:
  bool NextStretch(const Take& take);
  bool NextKeys(const Take& take);

  RowSource& source_;
  SqlText text_;
  std::size_t keysAtOnce_ = 0;
  AscendingKeys keys_;
  bool byKeys_ = false;
  bool anyRow_ = false;  ///< no condition beside the keys
  bool begun_ = false;
  std::int64_t from_ = 0;
  std::int64_t last_ = 0;
  std::int64_t width_ = 0;
};

/// Reads on to the end, all in one state, painting between the pieces.
void ReadAll(RowSource& source, PiecewiseScan& scan, const PiecewiseScan::Take& take);

/// Below this width of keys a table isn't worth cutting.
inline constexpr std::int64_t kShortestCut = 16'384;

}  // namespace engine
