#include "streets/import/osm/shapes.h"

#include <algorithm>
#include <cmath>
#include <numbers>

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

// The centre of gravity of the area inside; nothing when there is none.
std::optional<Position> CentreOfArea(std::span<const Position> ring) {
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
  return centre;
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
  if (const auto centre = isRing && whole ? CentreOfArea(line) : std::nullopt) return centre;
  if (isRing && line.size() > 1) line.pop_back();
  return PlaceAlong(line, 0.5);
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
