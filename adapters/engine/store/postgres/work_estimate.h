#pragma once

#include <string_view>
#include <vector>

#include "engine/store/postgres/connection.h"

namespace engine::postgres {

/// A statement that was not run, since it would cost more than it may.
struct WorkLimitReached {};

/// What the server expects a statement to do.
struct Estimate {
  double cost = 0;     ///< in the server's own unit, of which looking at a row costs about a hundredth
  bool scans = false;  ///< it begins with a look at all rows of a table
  bool sorts = false;  ///< all rows are put in order before the first one comes
};
Estimate EstimateOf(ServerConnection& connection, std::string_view sql, const std::vector<Parameter>& parameters);

/// Whether that is more than a look at about so many rows.
bool IsMoreThan(const Estimate& estimate, int rows);

}  // namespace engine::postgres
