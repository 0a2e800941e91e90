#pragma once

#include <map>
#include <string>
#include <vector>

#include "streets/index/street_index.h"

namespace suitefiles::demo {

/// The names of a town's streets, each with the greatest house number that lies in it.
using UsedStreets = std::map<std::string, int>;

/// "1204 N Oak St" gives 1204 and "N Oak St".
struct StreetLine {
  int number = 0;
  std::string street;
};
StreetLine PartsOf(const std::string& line1);

/// A piece of street with a thousand numbers: odd ones on its left, even ones on its right, from `first` on upward.
struct GridPiece {
  std::string street;
  int first = 1;
  streets::Line line;
};

/// An invented town around a point: avenues and their like from south to north, streets and all others from west to east, forty metres for a
/// hundred house numbers. A town of few streets gets some more.
std::vector<GridPiece> TownGrid(const streets::Position& middle, UsedStreets streets);

}  // namespace suitefiles::demo
