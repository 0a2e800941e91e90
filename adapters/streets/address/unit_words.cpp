#include "streets/address/unit_words.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "streets/address/house_number.h"
#include "streets/address/words.h"

namespace streets {

namespace {

/// Names of parts that go with a number or letter.
constexpr std::array<std::string_view, 38> kNumbered = {
    "#",    "APT", "APARTMENT", "APPT", "BLDG", "BUILDING", "DEPT",   "DEPARTMENT", "FL",        "FLR",   "FLOOR", "HNGR", "HANGAR",
    "KEY",  "LOT", "PIER",      "RM",   "ROOM", "SLIP",     "SPC",    "SPACE",      "STE",       "SUITE", "STOP",  "TRLR", "TRAILER",
    "UNIT", "UNT", "MAILSTOP",  "MS",   "NO",   "OFC",      "OFFICE", "PH",         "PENTHOUSE", "BOX",   "PMB",   "WING"};

/// Names of parts that stand alone.
constexpr std::array<std::string_view, 12> kAlone = {"BSMT",      "BASEMENT", "FRNT", "LBBY", "LOBBY",    "LOWR",
                                                     "PENTHOUSE", "PH",       "REAR", "UPPR", "UPSTAIRS", "DOWNSTAIRS"};

template <std::size_t N>
bool IsOneOf(const std::array<std::string_view, N>& words, std::string_view word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

/// "5", "5B", "B", "200-A": what a part of a building is called by.
bool IsUnitName(std::string_view word) {
  if (word.size() == 1) return IsLetter(word.front()) || IsDigit(word.front());
  constexpr std::size_t kLongest = 6;
  return word.size() <= kLongest && !IsOrdinal(word) && std::any_of(word.begin(), word.end(), IsDigit);
}

/// How many words from `first` on name one part of a building; 0 for none.
std::size_t UnitAt(const std::vector<std::string>& words, std::size_t first) {
  const std::string_view word = words[first];
  const bool hasNext = first + 1 < words.size();
  if (IsOneOf(kNumbered, word) && hasNext) {
    if (IsUnitName(words[first + 1])) return 2;
    if (word != "#" && words[first + 1] == "#" && first + 2 < words.size() && IsUnitName(words[first + 2])) return 3;
  }
  if (IsOrdinal(word) && hasNext && (words[first + 1] == "FL" || words[first + 1] == "FLR" || words[first + 1] == "FLOOR")) return 2;
  return IsOneOf(kAlone, word) ? 1 : 0;
}

/// Whether everything from `first` on names parts of a building.
bool AreUnits(const std::vector<std::string>& words, std::size_t first) {
  if (first >= words.size()) return false;
  while (first < words.size()) {
    const std::size_t taken = UnitAt(words, first);
    if (taken == 0) return false;
    first += taken;
  }
  return true;
}

/// How many words from `first` on name a box of the post office; 0 for none.
std::size_t BoxAt(const std::vector<std::string>& words, std::size_t first) {
  static const std::vector<std::vector<std::string_view>> kBoxes = {
      {"PO", "BOX"},    {"P", "O", "BOX"}, {"POB"},          {"POBOX"}, {"POST", "OFFICE", "BOX"}, {"BOX"}, {"PO", "BX"},
      {"P", "O", "BX"}, {"CALLER"},        {"PO", "DRAWER"}, {"DRAWER"}};
  for (const auto& box : kBoxes) {
    if (first + box.size() >= words.size() || !std::equal(box.begin(), box.end(), words.begin() + static_cast<std::ptrdiff_t>(first)))
      continue;
    const std::size_t number = first + box.size() + (words[first + box.size()] == "#" ? 1 : 0);
    if (number < words.size() && IsUnitName(words[number])) return number + 1 - first;
  }
  return 0;
}

bool Begins(const std::vector<std::string>& words, std::initializer_list<std::string_view> start) {
  return words.size() >= start.size() && std::equal(start.begin(), start.end(), words.begin());
}

}  // namespace

bool IsOnlyUnit(const std::vector<std::string>& words) { return AreUnits(words, 0); }

void CutUnit(std::vector<std::string>& words) {
  // In front: "Suite 5 100 Main St", "Rear 100 Main St".
  if (!words.empty() && words.front() != "NO") {
    const std::size_t front = UnitAt(words, 0);
    const bool hasAddressBehind = front > 0 && words.size() >= front + 2 && HouseNumberOf(words[front]);
    if (hasAddressBehind) words.erase(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(front));
  }
  // The number and one word of the name are never a part of the building.
  const std::size_t first = LeadingHouseNumber(words) ? LeadingHouseNumber(words)->words + 1 : 1;
  // Units have few words, so that only the line's end is looked at, however long it is.
  constexpr std::size_t kMostUnitWords = 8;
  for (std::size_t at = std::max(first, words.size() - std::min(words.size(), kMostUnitWords)); at < words.size(); ++at) {
    if (!AreUnits(words, at)) continue;
    words.resize(at);
    return;
  }
}

bool NamesNoStreet(const std::vector<std::string>& words) {
  if (BoxAt(words, 0) > 0 || Begins(words, {"GENERAL", "DELIVERY"}) || Begins(words, {"GEN", "DEL"}) || Begins(words, {"GEN", "DELIVERY"}))
    return true;
  for (const auto& route : {std::vector<std::string_view>{"RR"},
                            {"R", "R"},
                            {"RFD"},
                            {"R", "F", "D"},
                            {"RURAL", "ROUTE"},
                            {"RURAL", "RTE"},
                            {"RURAL", "RT"},
                            {"HC"},
                            {"HCR"},
                            {"H", "C"},
                            {"HIGHWAY", "CONTRACT"},
                            {"STAR", "ROUTE"},
                            {"STAR", "RTE"},
                            {"STAR", "RT"},
                            {"PSC"},
                            {"CMR"}}) {
    const bool begins = words.size() >= route.size() && std::equal(route.begin(), route.end(), words.begin());
    if (begins &&
        (words.size() == route.size() || words[route.size()] == "#" || IsUnitName(words[route.size()]) || BoxAt(words, route.size()) > 0))
      return true;
  }
  // "RT 2 BOX 5": the box makes the highway a rural route.
  const bool isRoute = Begins(words, {"RT"}) || Begins(words, {"RTE"}) || Begins(words, {"ROUTE"});
  return isRoute && words.size() > 3 && BoxAt(words, 2) > 0;
}

void CutBox(std::vector<std::string>& words) {
  constexpr std::size_t kMostBoxWords = 6;
  for (std::size_t at = std::max<std::size_t>(2, words.size() - std::min(words.size(), kMostBoxWords)); at < words.size(); ++at) {
    if (at + BoxAt(words, at) != words.size() || words[at] == "BOX") continue;
    words.resize(at);
    return;
  }
}

}  // namespace streets
