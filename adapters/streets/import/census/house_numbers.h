#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "streets/index/street_index.h"

namespace streets {

/// A house number as a source writes it: the digits at its end are the number, what stands in front ("243-", "N6W") is its prefix, letters
/// behind are passed over. Nothing for what has no digits or a number beyond a thousand million.
std::optional<HouseNumber> SourceHouseNumber(std::string_view written);

/// The numbers of one side as a source gives them.
struct SideNumbers {
  std::string prefix;
  std::int64_t from = 0;
  std::int64_t to = 0;
  Parity parity = Parity::Both;
};

/// Reads a side. `parity` is the source's letter: O, E or B; another letter, or one that the numbers belie, gives way to what the numbers
/// themselves are. One number alone is a range of one. Nothing for a side without numbers; `problem` says what is wrong with those that there are.
std::optional<SideNumbers> ReadSide(std::string_view from, std::string_view to, std::string_view parity, std::string& problem);

}  // namespace streets
