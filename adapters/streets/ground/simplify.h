#pragma once

#include "streets/index/street_index.h"

namespace streets {

/// The line with fewer points: none of those left out lies farther from it than that many millionths of a degree. The ends stay.
Line Simplified(const Line& line, double tolerance);

}  // namespace streets
