#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The text order "General", the only one of the data files. Case never counts. Primary weights come first: controls,
/// blanks, signs, other symbols, digits, letters, all other characters by code point; an expanding letter has two of them
/// (sharp s as ss, ae, oe). Accents count only when all primary weights tie. Trailing blanks never count, and a text that
/// is the start of another comes before it.
///
/// Comparison, ranges, sort prefixes and Like all stand on one table of weights. Texts are valid, precomposed UTF-8; other
/// bytes are ordered in some fixed way.
namespace engine {

/// Version of the weights, stored in each file: an index of other weights would be in another order.
inline constexpr int kTextOrderVersion = 1;

/// Below, equal to or above 0 as `left` stands before, with or behind `right`.
int CompareText(std::string_view left, std::string_view right);

/// Two single characters, no trailing blank left out: what Like asks.
int CompareCharacters(char32_t left, char32_t right);
/// The text without the blanks, tabs and no-break spaces at its end.
std::string_view WithoutTrailingBlanks(std::string_view text);

/// Bounds under CompareText: every text whose primary weights begin with the prefix's lies in lower <= text < upper, and
/// few others do.
struct PrimaryRange {
  std::string lower;
  std::string upper;
};
PrimaryRange PrefixRange(std::string_view prefix);

/// The first primary weights as one number: texts with different numbers stand in the order of these; equal numbers say
/// nothing.
std::uint64_t SortPrefix(std::string_view text);

}  // namespace engine
