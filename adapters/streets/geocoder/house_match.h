#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "streets/index/street_index.h"

namespace streets {

/// How exactly a place is known.
enum class Level { House, OtherSide, NearestNumber, Street, Zip, Town };

/// A place in a street.
struct Spot {
  Position at;
  Level level = Level::House;
  int penalty = 0;
  std::optional<HouseNumber> number;
  std::string zip;
  std::int64_t width = 0;  ///< of the range of numbers that gave it; the tighter, the surer
};

/// Where a house number lies in a street's ZIPs (none: everywhere): at address points, else in the ranges that hold it, else beside
/// one that does not fit its side, else at the end of the range that comes nearest, else in the street's middle.
std::vector<Spot> HouseSpots(StreetIndex& index, std::int64_t street, const HouseNumber& number, std::span<const std::string> zips);

/// The middle of a street, once for each ZIP that it has numbers in.
std::vector<Spot> StreetSpots(StreetIndex& index, std::int64_t street, std::span<const std::string> zips);

}  // namespace streets
