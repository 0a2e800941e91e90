#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "streets/index/street_index.h"

namespace streets {

/// "12-14" as its two numbers, which the range's first is written before; nothing for another text.
struct HyphenPair {
  std::int64_t first = 0;
  std::int64_t second = 0;
  bool secondHasZero = false;  ///< it is written with a 0 in front
  /// Whether it can be the houses from one number to the other.
  bool CanBeRange() const;
};
std::optional<HyphenPair> ReadHyphenPair(std::string_view number);

/// The houses that a tag's text names: "12", "12A", "12;14", "12-14" (all of a side, or where `hyphenated` the one house), "90-10-90-14",
/// "12 1/2". What stands behind a number ("REAR") is its suffix. None for a text that names none.
std::vector<HouseNumber> HousesOf(std::string_view written, bool hyphenated);

}  // namespace streets
