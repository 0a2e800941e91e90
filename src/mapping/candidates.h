#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace orcussch {

/// A place that an address may mean.
struct MapMatch {
  std::int32_t latitude = 0;
  std::int32_t longitude = 0;
  std::int32_t distance = 0;  ///< from the reference point, in feet
};

/// The position in a line of the map's list: the longitude, a blank, the latitude. The second number is read with the width of the
/// first, the blank included, since the two are of about the same length. A line without a blank raises 5.
MapMatch PositionIn(const std::string& line);

/// Nearest first.
void SortByDistance(std::vector<MapMatch>& matches);

}  // namespace orcussch
