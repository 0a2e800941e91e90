#include "support/made_map.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <stdexcept>

namespace made {

using platform::MapBox;
using platform::MapLine;
using platform::MapPoint;
using platform::MapText;

namespace {

constexpr std::array kNames{"Elm",   "Oak",    "Maple", "Cedar", "Lake",   "Hill",  "Washington", "Park",
                            "Grant", "Pine",   "First", "Main",  "Spring", "River", "Jackson",    "Church"};

/// The same for the same crossing, so that pieces of streets meet.
int Wobble(int column, int row) {
  const auto mixed = (static_cast<std::uint32_t>(column) * 73856093U) ^ (static_cast<std::uint32_t>(row) * 19349663U);
  return static_cast<int>((mixed >> 7) % 15) - 7;
}

std::string NameOfRow(int row) { return std::string(kNames.at(static_cast<std::size_t>(row) % kNames.size())) + " St " + std::to_string(row); }
std::string NameOfColumn(int column) { return std::to_string(column) + "th Ave"; }

}  // namespace

Ground::Ground(int streets, MapPoint southWest) : streets_(streets), southWest_(southWest) {}

MapPoint Ground::Crossing(int column, int row) const {
  return {southWest_.latitude + row * kApart + Wobble(column, row), southWest_.longitude + column * kApart + Wobble(row, column)};
}

MapLine Ground::KindOf(int street) {
  if (street % 200 == 100) return MapLine::Highway;
  if (street % 50 == 25) return MapLine::MainRoad;
  if (street % 10 == 5) return MapLine::Road;
  return MapLine::Street;
}

void Ground::Give(MapLine kind, std::vector<MapPoint> points, const std::string& name, const TakeLine& take) {
  ++read;
  take(kind, points, name);
}

void Ground::Borders(MapLine kind, const TakeLine& take) {
  const int side = streets_ * kApart, south = southWest_.latitude, west = southWest_.longitude;
  if (kind == MapLine::State) {
    Give(kind, {{south, west}, {south + side, west}, {south + side, west + side}, {south, west + side}, {south, west}}, "", take);
  } else {
    Give(kind, {{south + side / 2, west}, {south + side / 2, west + side}}, "", take);
    Give(kind, {{south, west + side / 3}, {south + side, west + side / 3}}, "", take);
  }
}

void Ground::Lines(MapLine kind, const MapBox& box, double, const TakeLine& take) {
  if (!failure.empty()) throw std::runtime_error(failure);
  if (kind == MapLine::State || kind == MapLine::County) return Borders(kind, take);
  const auto first = [](int low, int from) { return std::max(0, (low - from) / kApart - 1); };
  const auto last = [this](int high, int from) { return std::min(streets_ - 1, (high - from) / kApart + 1); };
  const int left = first(box.west, southWest_.longitude), right = last(box.east, southWest_.longitude);
  const int low = first(box.south, southWest_.latitude), high = last(box.north, southWest_.latitude);
  for (int row = low; row <= high; ++row)
    for (int column = left; KindOf(row) == kind && column < right; ++column)
      Give(kind, {Crossing(column, row), Crossing(column + 1, row)}, NameOfRow(row), take);
  for (int column = left; column <= right; ++column)
    for (int row = low; KindOf(column) == kind && row < high; ++row)
      Give(kind, {Crossing(column, row), Crossing(column, row + 1)}, NameOfColumn(column), take);
}

void Ground::Texts(const MapBox& box, double unitsPerPixel, const TakeText& take) {
  if (!failure.empty()) throw std::runtime_error(failure);
  const auto give = [&](MapText kind, int every, int from, const char* word, double apartPixels) {
    if (every * kApart / unitsPerPixel < apartPixels) return;
    for (int row = from; row < streets_; row += every) {
      for (int column = from; column < streets_; column += every) {
        const MapPoint at = Crossing(column, row);
        if (at.latitude < box.south || at.latitude > box.north || at.longitude < box.west || at.longitude > box.east) continue;
        take(kind, at, word + std::to_string(row * 10 + column / every));
      }
    }
  };
  give(MapText::Place, 200, 50, "Town ", 10);
  give(MapText::Place, 50, 20, "Village ", 60);
  give(MapText::Zip, 60, 30, "55", 120);
}

platform::GeocodeAnswer Map::Geocode(const std::string& address) {
  asked.push_back(address);
  platform::GeocodeAnswer answer;
  const auto found = addresses.find(address);
  if (found == addresses.end()) return answer;
  answer.positionFound = true;
  answer.latitude = found->second.latitude;
  answer.longitude = found->second.longitude;
  answer.candidates.push_back(std::to_string(answer.longitude) + " " + std::to_string(answer.latitude) + " " + address);
  return answer;
}

void Map::AddPin(const platform::MapPin& pin) {
  pins_.push_back(pin);
  Changed();
}

void Map::RemovePins() {
  pins_.clear();
  Changed();
}

void Map::Draw(std::int32_t latitude, std::int32_t longitude, std::int32_t width) {
  view_ = platform::MapView{{latitude, longitude}, width, view_ ? view_->drawing + 1 : 1};
  Changed();
}

void Map::Changed() const {
  if (OnChanged) OnChanged();
}

}  // namespace made
