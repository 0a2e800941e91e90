#include "suitefiles/demo/town_grid.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>
#include <string_view>

#include "suitefiles/demo/word_lists.h"

namespace suitefiles::demo {

namespace {

constexpr int kPiece = 1'000;             // house numbers
constexpr std::int32_t kLength = 3'600;   // millionths of a degree to the north: four hundred metres
constexpr std::int32_t kBetween = 800;    // from one street to the next
constexpr std::size_t kFewest = 16;       // streets of a town

bool RunsNorth(const std::string& street) {
  for (const std::string_view kind : {" Ave", " Blvd", " Ct", " Pl", " Way", " Pkwy", " Trail"})
    if (street.find(kind) != std::string::npos) return true;
  return false;
}

// Numbered streets stand in the order of their numbers, the others behind them by their names.
bool StandsBefore(const std::string& left, const std::string& right) {
  const auto rank = [](const std::string& street) {
    int number = 0;
    const auto read = std::from_chars(street.data(), street.data() + street.size(), number);
    return read.ec == std::errc{} ? number : kPiece;
  };
  return rank(left) != rank(right) ? rank(left) < rank(right) : left < right;
}

void AddStreets(UsedStreets& streets) {
  for (std::size_t i = 0; streets.size() < kFewest && i < StreetNames().size(); ++i)
    streets.emplace(std::string(StreetNames()[i]) + (i % 2 ? " Ave" : " St"), kPiece);
}

// The first street goes through the middle, the others on both sides of it in turn.
std::int32_t Aside(std::size_t place) {
  const auto steps = static_cast<std::int32_t>((place + 1) / 2) * kBetween;
  return place % 2 ? steps : -steps;
}

// Half of the streets lead away to the north and east, the others to the south and west.
std::int32_t Along(std::size_t place, int pieces) { return (place / 2 % 2 ? -1 : 1) * pieces * kLength; }

}  // namespace

StreetLine PartsOf(const std::string& line1) {
  StreetLine parts;
  const auto read = std::from_chars(line1.data(), line1.data() + line1.size(), parts.number);
  if (read.ec != std::errc{} || *read.ptr != ' ') return {};
  parts.street = read.ptr + 1;
  return parts;
}

std::vector<GridPiece> TownGrid(const streets::Position& middle, UsedStreets streets) {
  AddStreets(streets);
  std::array<std::vector<std::string>, 2> ways;  // to the east, to the north
  for (const auto& street : streets) ways[RunsNorth(street.first) ? 1 : 0].push_back(street.first);
  const double wider = 1 / std::max(0.1, std::cos(middle.latitude * std::numbers::pi / 180e6));
  const auto at = [&](double east, double north) {
    return streets::Position{middle.longitude + static_cast<std::int32_t>(std::lround(east * wider)), middle.latitude + static_cast<std::int32_t>(north)};
  };
  std::vector<GridPiece> pieces;
  for (const bool north : {false, true}) {
    auto& names = ways[north ? 1 : 0];
    std::ranges::sort(names, StandsBefore);
    for (std::size_t place = 0; place < names.size(); ++place) {
      const int count = std::max(1, (streets.at(names[place]) + kPiece - 1) / kPiece);
      for (int piece = 0; piece < count; ++piece) {
        const auto corner = [&](int end) {
          return north ? at(Aside(place), Along(place, end)) : at(Along(place, end), Aside(place));
        };
        pieces.push_back({names[place], piece * kPiece + 1, {corner(piece), corner(piece + 1)}});
      }
    }
  }
  return pieces;
}

}  // namespace suitefiles::demo
