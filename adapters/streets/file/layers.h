#pragma once

#include <array>
#include <string_view>

#include "platform/services/map.h"

namespace streets {

/// A kind of line that streets are drawn as, the number by which files know it, and the table of its boxes: one for each kind, so
/// that a view of a whole state looks at its highways alone.
struct EdgeLayer {
  platform::MapLine kind;
  int number;
  std::string_view boxes;
  double coarsest;  ///< it is drawn up to that many map units a pixel
};

inline constexpr std::array<EdgeLayer, 5> kEdgeLayers{{{platform::MapLine::Highway, 1, "HighwayBoxes", 2000},
                                                       {platform::MapLine::MainRoad, 2, "MainRoadBoxes", 150},
                                                       {platform::MapLine::Road, 3, "RoadBoxes", 40},
                                                       {platform::MapLine::Street, 4, "StreetBoxes", 12},
                                                       {platform::MapLine::Path, 5, "PathBoxes", 4}}};

/// nullptr for lines that are no streets.
inline const EdgeLayer* LayerOf(platform::MapLine kind) {
  for (const EdgeLayer& layer : kEdgeLayers)
    if (layer.kind == kind) return &layer;
  return nullptr;
}

/// Borders are kept at several levels, each for views of at least so many map units a pixel.
inline constexpr std::array<double, 2> kBorderLevels{0, 1500};

/// Borders of counties are drawn up to that many map units a pixel.
inline constexpr double kCountiesUpTo = 4000;

/// A border's layer in its boxes' third direction.
inline constexpr int BorderLayer(bool state, int level) { return (state ? 100 : 0) + level; }

}  // namespace streets
