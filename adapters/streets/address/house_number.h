#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "streets/index/street_index.h"

namespace streets {

/// A house number of one word: "12", "12B", "243-20" (prefix "243-"), "N6W23001", "32W280". Nothing for other texts, ordinals
/// ("3RD") and numbers of more than nine digits.
std::optional<HouseNumber> HouseNumberOf(std::string_view word);

/// The house number that a line begins with, and how many of its words it takes: "12 1/2", "W156 N8480".
struct LeadingNumber {
  HouseNumber number;
  std::size_t words = 0;
};
std::optional<LeadingNumber> LeadingHouseNumber(const std::vector<std::string>& words);

/// "243-20", "12B", "12 1/2".
std::string ShownNumber(const HouseNumber& number);

}  // namespace streets
