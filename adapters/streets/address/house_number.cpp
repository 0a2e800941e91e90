#include "streets/address/house_number.h"

#include <algorithm>
#include <charconv>
#include <string>

#include "streets/address/words.h"

namespace streets {

namespace {

bool IsFraction(std::string_view word) { return word.find('/') != std::string_view::npos; }

/// "N6", "W156": half of a number by a grid.
bool IsGridHalf(std::string_view word) {
  return word.size() >= 2 && std::string_view("NSEW").find(word.front()) != std::string_view::npos && IsNumber(word.substr(1));
}

}  // namespace

std::optional<HouseNumber> HouseNumberOf(std::string_view word) {
  constexpr std::size_t kLongest = 14;
  constexpr std::size_t kMostDigits = 9;
  if (word.empty() || word.size() > kLongest || IsOrdinal(word) || IsFraction(word)) return std::nullopt;
  HouseNumber number;
  if (IsLetter(word.back())) {
    number.suffix = word.back();
    word.remove_suffix(1);
    if (!word.empty() && word.back() == '-') word.remove_suffix(1);
  }
  const std::size_t before = word.find_last_not_of("0123456789");
  const std::size_t first = before == std::string_view::npos ? 0 : before + 1;
  const std::string_view digits = word.substr(first);
  number.prefix = word.substr(0, first);
  if (digits.empty() || digits.size() > kMostDigits) return std::nullopt;
  // "MAIN5" is no number, nor is "US89": what stands in front of the last digits begins with a digit or is the letter of a grid.
  const bool fits = number.prefix.empty() || IsDigit(number.prefix.front()) || number.prefix.size() == 1 ||
                    (IsLetter(number.prefix.front()) && IsDigit(number.prefix[1]));
  if (!fits || !std::all_of(number.prefix.begin(), number.prefix.end(), [](char c) { return IsDigit(c) || IsLetter(c) || c == '-'; }))
    return std::nullopt;
  std::from_chars(digits.data(), digits.data() + digits.size(), number.number);
  return number;
}

std::optional<LeadingNumber> LeadingHouseNumber(const std::vector<std::string>& words) {
  if (words.empty()) return std::nullopt;
  if (words.size() > 1 && IsGridHalf(words[0]) && IsGridHalf(words[1])) {
    const auto number = HouseNumberOf(words[0] + words[1]);
    if (number) return LeadingNumber{*number, 2};
  }
  const auto number = HouseNumberOf(words[0]);
  if (!number) return std::nullopt;
  LeadingNumber found{*number, 1};
  if (words.size() > 1 && IsFraction(words[1]) && found.number.suffix.empty()) {
    found.number.suffix = words[1];
    found.words = 2;
  }
  return found;
}

std::string ShownNumber(const HouseNumber& number) {
  // The part behind the hyphen has two digits at least: "92-05".
  std::string digits = std::to_string(number.number);
  if (!number.prefix.empty() && number.prefix.back() == '-' && digits.size() < 2) digits.insert(0, "0");
  // "12B", but "12 1/2" and "12 REAR".
  const bool isWord = IsFraction(number.suffix) || number.suffix.size() > 1;
  return number.prefix + digits + (isWord ? " " : "") + number.suffix;
}

}  // namespace streets
