#pragma once

#include <string>

#include "streets/file/database.h"

namespace streets {

/// How much a base map holds.
struct BaseMapCounts {
  std::size_t borders = 0;
  std::size_t zips = 0;
  std::size_t places = 0;
};

/// Fills an empty streets file with the map that needs no import: borders of states and counties, ZIPs and places, from the sources in a
/// folder ("counties-10m.json", "zip-points.csv", "zip-places.tsv"). All or nothing; raises FileError.
BaseMapCounts WriteBaseMap(const std::string& folder, Database& file);

}  // namespace streets
