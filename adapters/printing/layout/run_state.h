#pragma once

#include <memory>
#include <vector>

#include "printing/layout/report_values.h"

namespace printing {

/// A row that has to be known longer than it is the current one: by bands that wait for their page, and by those of the page itself.
struct RunState {
  bool hasRow = false;
  std::vector<platform::Value> row;
  std::vector<platform::Value> totals;
  std::int64_t recordNumber = 0;

  RunPlace Place(std::int64_t pageNumber) const { return {hasRow ? &row : nullptr, &totals, recordNumber, pageNumber}; }
};

using RunStateRef = std::shared_ptr<const RunState>;

}  // namespace printing
