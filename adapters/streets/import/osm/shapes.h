#pragma once

#include <optional>
#include <span>
#include <vector>

#include "streets/import/osm/node_places.h"
#include "streets/index/street_index.h"

namespace streets {

/// The lines of a way, in its order: where nodes are not in the extract the way is parted. Places that follow one another are different; what
/// has no length is no line.
std::vector<Line> LinesOf(std::span<const std::int64_t> nodes, const NodePlaces& places);

/// The middle of what a way surrounds; of one that surrounds nothing, or whose nodes are not all there, that of its line. Nothing where none of
/// its nodes is in the extract.
std::optional<Position> MiddleOfWay(std::span<const std::int64_t> nodes, const NodePlaces& places);

/// What ways that are joined at their ends surround.
struct Surrounded {
  bool isWhole = false;         ///< all of them are closed and wholly in the extract
  std::optional<Position> middle;  ///< of the largest; nothing when none surrounds anything
};
Surrounded MiddleOfRings(std::span<const std::vector<std::int64_t>> ways, const NodePlaces& places);

/// The place at that part, 0 to 1, of a line's length.
Position PlaceAlong(std::span<const Position> line, double part);

}  // namespace streets
