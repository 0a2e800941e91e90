#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace streets {

/// A number written in words: how many words it takes and how it is written in digits.
struct WordedNumber {
  std::size_t words = 0;
  std::int64_t number = 0;
  bool ordinal = false;
};

/// The number that stands in words from `first` on: "FIRST", "TWENTY FIRST", "SIXTEEN", up to ninety-nine.
std::optional<WordedNumber> NumberInWords(const std::vector<std::string>& words, std::size_t first);

/// The number's word that is meant by one of five letters or more in which one letter is wrong, but for the first: "SIXTEEN" for
/// "SIXTEN"; "" for others.
std::string MendedNumberWord(std::string_view word);

/// "1ST", "22ND", "13TH".
std::string Ordinal(std::int64_t number);

}  // namespace streets
