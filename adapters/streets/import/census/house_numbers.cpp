#include "streets/import/census/house_numbers.h"

#include <charconv>

namespace streets {
namespace {

bool IsDigit(char letter) { return letter >= '0' && letter <= '9'; }

constexpr std::int64_t kMost = 1'000'000'000;

Parity OfNumbers(std::int64_t from, std::int64_t to) {
  if ((from ^ to) & 1) return Parity::Both;
  return from & 1 ? Parity::Odd : Parity::Even;
}

Parity OfSide(std::string_view letter, std::int64_t from, std::int64_t to) {
  const Parity numbers = OfNumbers(from, to);
  if (letter == "B") return from == to ? numbers : Parity::Both;
  return numbers;
}

}  // namespace

std::optional<HouseNumber> SourceHouseNumber(std::string_view written) {
  std::string text;
  for (const char letter : written)
    if (letter != ' ') text += letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
  std::size_t end = text.size();
  while (end > 0 && !IsDigit(text[end - 1])) --end;
  std::size_t begin = end;
  while (begin > 0 && IsDigit(text[begin - 1])) --begin;
  if (begin == end) return {};
  HouseNumber house{text.substr(0, begin), 0, text.substr(end)};
  const auto read = std::from_chars(text.data() + begin, text.data() + end, house.number);
  if (read.ec != std::errc{} || house.number > kMost) return {};
  return house;
}

std::optional<SideNumbers> ReadSide(std::string_view from, std::string_view to, std::string_view parity, std::string& problem) {
  if (from.empty() && to.empty()) return {};
  const auto first = SourceHouseNumber(from.empty() ? to : from);
  const auto last = SourceHouseNumber(to.empty() ? from : to);
  if (!first || !last) {
    problem = "\"" + std::string(first ? to : from) + "\" is no house number";
    return {};
  }
  if (first->prefix != last->prefix) {
    problem = "\"" + std::string(from) + "\" and \"" + std::string(to) + "\" begin differently";
    return {};
  }
  return SideNumbers{first->prefix, first->number, last->number, OfSide(parity, first->number, last->number)};
}

}  // namespace streets
