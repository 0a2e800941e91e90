#include "streets/address/directions.h"

#include <algorithm>
#include <array>

namespace streets {

namespace {

struct DirectionWord {
  std::string_view written;
  std::string_view normal;
};

/// The full word first for each.
constexpr std::array kDirections = {
    DirectionWord{"NORTH", "N"},      DirectionWord{"SOUTH", "S"},      DirectionWord{"EAST", "E"},       DirectionWord{"WEST", "W"},
    DirectionWord{"NORTHEAST", "NE"}, DirectionWord{"NORTHWEST", "NW"}, DirectionWord{"SOUTHEAST", "SE"}, DirectionWord{"SOUTHWEST", "SW"},
    DirectionWord{"N", "N"},          DirectionWord{"S", "S"},          DirectionWord{"E", "E"},          DirectionWord{"W", "W"},
    DirectionWord{"NE", "NE"},        DirectionWord{"NW", "NW"},        DirectionWord{"SE", "SE"},        DirectionWord{"SW", "SW"},
    DirectionWord{"NO", "N"},         DirectionWord{"SO", "S"},         DirectionWord{"NTH", "N"},        DirectionWord{"STH", "S"},
    DirectionWord{"NORTE", "N"},      DirectionWord{"SUR", "S"},        DirectionWord{"ESTE", "E"},       DirectionWord{"OESTE", "W"},
    DirectionWord{"NOROESTE", "NW"},  DirectionWord{"NORESTE", "NE"},   DirectionWord{"SUROESTE", "SW"},  DirectionWord{"SURESTE", "SE"},
};

}  // namespace

std::string Direction(std::string_view word) {
  if (word.empty() || word.size() > 9) return "";
  const auto found = std::find_if(kDirections.begin(), kDirections.end(), [&](const DirectionWord& one) { return one.written == word; });
  return found == kDirections.end() ? "" : std::string(found->normal);
}

std::string Direction(std::string_view first, std::string_view second) {
  const std::string one = Direction(first);
  const std::string other = Direction(second);
  const bool fits = (one == "N" || one == "S") && (other == "E" || other == "W");
  return fits ? one + other : "";
}

std::string DirectionInFull(std::string_view word) {
  const std::string normal = Direction(word);
  if (normal.empty()) return std::string(word);
  const auto found = std::find_if(kDirections.begin(), kDirections.end(), [&](const DirectionWord& one) { return one.normal == normal; });
  return std::string(found->written);
}

}  // namespace streets
