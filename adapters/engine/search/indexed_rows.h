#pragma once

#include <cstdint>
#include <vector>

#include "engine/rows/place.h"

namespace engine {

/// What a search asks of a list in index order.
class IndexedRows {
 public:
  virtual ~IndexedRows() = default;

  /// A cheap guess at the number of rows, or the number itself.
  virtual std::int64_t Count() = 0;
  /// The row with that key at the place that the list gives it; false when it is gone.
  virtual bool RowByKey(std::int64_t rowKey, Place& place) = 0;
  /// Behind (1), on (0) or before (-1) in list order.
  virtual int ComparePlaces(const Place& left, const Place& right) const = 0;
  /// Rows that stand elsewhere than the index has them.
  virtual std::vector<std::int64_t> PinnedRows() const = 0;
  virtual bool IsPinned(std::int64_t rowKey) const = 0;
};

}  // namespace engine
