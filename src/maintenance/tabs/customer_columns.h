#pragma once

#include <vector>

#include "platform/controls/grid.h"

namespace orcussch {

/// The columns of the customer list, in their design order: more than the card shows.
std::vector<platform::GridColumn> CustomerColumns();

}  // namespace orcussch
