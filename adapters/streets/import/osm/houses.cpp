#include "streets/import/osm/houses.h"

#include <charconv>

#include "streets/address/house_number.h"
#include "streets/address/words.h"

namespace streets {
namespace {

// A building has no more numbers than that.
constexpr std::int64_t kWidest = 100;
constexpr std::size_t kLongestSuffix = 20;
// A text has no more, whatever it says.
constexpr std::size_t kMostHouses = 200;

std::optional<std::int64_t> Digits(std::string_view text) {
  constexpr std::size_t kMostDigits = 9;
  if (!IsNumber(text) || text.size() > kMostDigits) return {};
  std::int64_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

// Without blanks around hyphens: "12 - 14".
std::string Closed(std::string_view text) {
  std::string closed;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == ' ') {
      const std::size_t next = text.find_first_not_of(' ', i);
      const bool atHyphen = (!closed.empty() && closed.back() == '-') || (next != std::string_view::npos && text[next] == '-');
      if (atHyphen) continue;
    }
    closed += text[i];
  }
  return closed;
}

void AddRange(const std::string& prefix, const HyphenPair& range, std::vector<HouseNumber>& houses) {
  const std::int64_t step = (range.first ^ range.second) & 1 ? 1 : 2;
  for (std::int64_t number = range.first; number <= range.second; number += step) houses.push_back({prefix, number, ""});
}

// "90-10-90-14".
bool AddPrefixedRange(const std::string& text, std::vector<HouseNumber>& houses) {
  const std::size_t first = text.find('-');
  const std::size_t middle = first == std::string::npos ? first : text.find('-', first + 1);
  if (middle == std::string::npos) return false;
  const std::string prefix = text.substr(0, first + 1);
  if (!Digits(prefix.substr(0, first)) || text.compare(middle + 1, prefix.size(), prefix) != 0) return false;
  const auto from = Digits(std::string_view(text).substr(first + 1, middle - first - 1));
  const auto to = Digits(std::string_view(text).substr(middle + 1 + prefix.size()));
  if (!from || !to) return false;
  const HyphenPair range{*from, *to, false};
  if (!range.CanBeRange()) return false;
  AddRange(prefix, range, houses);
  return true;
}

void AddHouse(std::string_view text, std::vector<HouseNumber>& houses) {
  const std::vector<std::string> words = Words(text);
  auto leading = LeadingHouseNumber(words);
  if (!leading) return;
  // The house at the rear is another than the one in front of it.
  if (leading->number.suffix.empty()) leading->number.suffix = Join(words, leading->words).substr(0, kLongestSuffix);
  houses.push_back(leading->number);
}

}  // namespace

bool HyphenPair::CanBeRange() const { return !secondHasZero && second > first && second - first <= kWidest; }

std::optional<HyphenPair> ReadHyphenPair(std::string_view number) {
  const std::string text = Closed(number);
  const std::size_t hyphen = text.find('-');
  if (hyphen == std::string::npos) return {};
  const auto first = Digits(std::string_view(text).substr(0, hyphen));
  const auto second = Digits(std::string_view(text).substr(hyphen + 1));
  if (!first || !second) return {};
  return HyphenPair{*first, *second, text[hyphen + 1] == '0'};
}

std::vector<HouseNumber> HousesOf(std::string_view written, bool hyphenated) {
  std::vector<HouseNumber> houses;
  while (!written.empty() && houses.size() < kMostHouses) {
    const std::size_t end = std::min(written.find_first_of(";,"), written.size());
    const std::string part = Closed(written.substr(0, end));
    written.remove_prefix(std::min(end + 1, written.size()));
    const auto pair = hyphenated ? std::optional<HyphenPair>() : ReadHyphenPair(part);
    if (pair && pair->CanBeRange()) {
      AddRange("", *pair, houses);
    } else if (!AddPrefixedRange(part, houses)) {
      AddHouse(part, houses);
    }
  }
  return houses;
}

}  // namespace streets
