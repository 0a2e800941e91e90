#include "streets/import/osm/shapes.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <unordered_map>

namespace streets {
namespace {

// Metres don't matter here, but east and north must count alike.
double Length(const Position& from, const Position& to) {
  const double narrow = std::cos(from.latitude / 1e6 * std::numbers::pi / 180);
  return std::hypot((static_cast<double>(to.longitude) - from.longitude) * narrow, static_cast<double>(to.latitude) - from.latitude);
}

Position Between(const Position& from, const Position& to, double part) {
  return {static_cast<std::int32_t>(std::lround(from.longitude + part * (static_cast<double>(to.longitude) - from.longitude))),
          static_cast<std::int32_t>(std::lround(from.latitude + part * (static_cast<double>(to.latitude) - from.latitude)))};
}

struct Area {
  double size = 0;
  Position centre;  // of gravity
};

// Nothing when there is none inside.
std::optional<Area> AreaOf(std::span<const Position> ring) {
  const Position& origin = ring.front();
  double area = 0;
  double east = 0;
  double north = 0;
  for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
    const double x1 = static_cast<double>(ring[i].longitude) - origin.longitude;
    const double y1 = static_cast<double>(ring[i].latitude) - origin.latitude;
    const double x2 = static_cast<double>(ring[i + 1].longitude) - origin.longitude;
    const double y2 = static_cast<double>(ring[i + 1].latitude) - origin.latitude;
    const double cross = x1 * y2 - x2 * y1;
    area += cross;
    east += (x1 + x2) * cross;
    north += (y1 + y2) * cross;
  }
  if (std::abs(area) < 1) return {};
  const double x = std::round(east / (3 * area));
  const double y = std::round(north / (3 * area));
  // A ring that crosses itself can have its centre far outside.
  const auto lies = std::ranges::minmax(ring, {}, &Position::longitude);
  const auto stands = std::ranges::minmax(ring, {}, &Position::latitude);
  const Position centre{static_cast<std::int32_t>(std::clamp(x + origin.longitude, double(lies.min.longitude), double(lies.max.longitude))),
                        static_cast<std::int32_t>(std::clamp(y + origin.latitude, double(stands.min.latitude), double(stands.max.latitude)))};
  return Area{std::abs(area), centre};
}

using Nodes = std::vector<std::int64_t>;

// Joins ways to rings, each of which ends where it begins. Nothing when one can't be closed.
std::optional<std::vector<Nodes>> RingsOf(std::span<const Nodes> ways) {
  std::unordered_multimap<std::int64_t, std::size_t> ends;
  for (std::size_t i = 0; i < ways.size(); ++i) {
    if (ways[i].empty()) return {};
    ends.emplace(ways[i].front(), i);
    ends.emplace(ways[i].back(), i);
  }
  std::vector<bool> used(ways.size());
  // The next one that goes on from the ring's end.
  const auto next = [&](std::int64_t end) {
    const auto found = ends.equal_range(end);
    const auto way = std::find_if(found.first, found.second, [&](const auto& each) { return !used[each.second]; });
    return way == found.second ? ways.size() : way->second;
  };
  std::vector<Nodes> rings;
  for (std::size_t i = 0; i < ways.size(); ++i) {
    if (used[i]) continue;
    used[i] = true;
    Nodes ring = ways[i];
    while (ring.front() != ring.back()) {
      const std::size_t way = next(ring.back());
      if (way == ways.size()) return {};
      used[way] = true;
      if (ways[way].front() == ring.back()) {
        ring.insert(ring.end(), ways[way].begin() + 1, ways[way].end());
      } else {
        ring.insert(ring.end(), ways[way].rbegin() + 1, ways[way].rend());
      }
    }
    rings.push_back(std::move(ring));
  }
  return rings;
}

}  // namespace

std::vector<Line> LinesOf(std::span<const std::int64_t> nodes, const NodePlaces& places) {
  std::vector<Line> lines(1);
  for (const std::int64_t node : nodes) {
    const auto at = places.Find(node);
    if (!at) {
      if (!lines.back().empty()) lines.emplace_back();
    } else if (lines.back().empty() || lines.back().back() != *at) {
      lines.back().push_back(*at);
    }
  }
  std::erase_if(lines, [](const Line& line) { return line.size() < 2; });
  return lines;
}

std::optional<Position> MiddleOfWay(std::span<const std::int64_t> nodes, const NodePlaces& places) {
  Line line;
  bool whole = true;
  for (const std::int64_t node : nodes) {
    if (const auto at = places.Find(node)) {
      line.push_back(*at);
    } else {
      whole = false;
    }
  }
  if (line.empty()) return {};
  const bool isRing = nodes.front() == nodes.back();
  if (const auto area = isRing && whole ? AreaOf(line) : std::nullopt) return area->centre;
  if (isRing && line.size() > 1) line.pop_back();
  return PlaceAlong(line, 0.5);
}

Surrounded MiddleOfRings(std::span<const Nodes> ways, const NodePlaces& places) {
  const auto rings = RingsOf(ways);
  if (!rings) return {};
  std::optional<Area> largest;
  for (const Nodes& ring : *rings) {
    Line line;
    for (const std::int64_t node : ring) {
      const auto at = places.Find(node);
      if (!at) return {};
      line.push_back(*at);
    }
    const auto area = AreaOf(line);
    if (area && (!largest || area->size > largest->size)) largest = area;
  }
  return {true, largest ? std::optional(largest->centre) : std::nullopt};
}

Position PlaceAlong(std::span<const Position> line, double part) {
  double whole = 0;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) whole += Length(line[i], line[i + 1]);
  double rest = whole * part;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    const double length = Length(line[i], line[i + 1]);
    if (rest <= length && length > 0) return Between(line[i], line[i + 1], rest / length);
    rest -= length;
  }
  return part < 0.5 || whole == 0 ? line.front() : line.back();
}

}  // namespace streets
