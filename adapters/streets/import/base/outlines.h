#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "streets/index/street_index.h"

namespace streets {

/// A state or county: its name, its number (FIPS: two digits of the state, three of the county) and its rings, each closed. What lies
/// inside an odd number of rings lies inside.
struct Outline {
  std::string code;
  std::string name;
  std::vector<Line> rings;
  std::array<std::int32_t, 4> box{};  ///< west, south, east, north

  bool Holds(const Position& at) const;
};

/// A piece of border; neighbours share it.
struct Border {
  bool state = false;
  Line line;
};

/// States, counties and the borders between them, from one topology.
struct Outlines {
  std::vector<Outline> states;
  std::vector<Outline> counties;
  std::vector<Border> borders;
};

/// Reads a TopoJSON text with objects "states" and "counties" whose arcs are shared. Raises FileError with the file's name.
Outlines ReadOutlines(const std::string& path);
Outlines ParseOutlines(std::string_view text, const std::string& path);

/// The two letters of a state by the number of its outline; "" for none.
std::string_view StateOfNumber(std::string_view number);

}  // namespace streets
