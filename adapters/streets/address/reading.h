#pragma once

#include <optional>
#include <string>
#include <vector>

#include "streets/index/street_index.h"

namespace streets {

/// One way to understand a street line.
struct Reading {
  std::optional<HouseNumber> number;
  StreetName street;
  int cost = 0;  ///< how unusual it is; 0 for the plain one
  bool operator==(const Reading&) const = default;
};

/// From this cost on a reading guesses: what it finds is no match for the text.
inline constexpr int kGuess = 5;

/// How a street line without the parts of a building is understood at first.
Reading PlainReading(const std::vector<std::string>& words);

/// The other ways, cheapest first and without the plain one: a type or direction that belongs to the name, a letter behind the number,
/// a number that is the street's ("71 Ranch Rd"), a hyphen too many or too few, a misspelt type.
std::vector<Reading> OtherReadings(const std::vector<std::string>& words);

}  // namespace streets
