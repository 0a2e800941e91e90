#include "streets/ground/simplify.h"

#include <utility>

namespace streets {
namespace {

double Squared(double value) { return value * value; }

// The square of a point's distance from the line between two others, in degrees as they are: near enough to choose points by.
double SquaredDistance(const Position& at, const Position& from, const Position& to) {
  const double east = 1.0 * to.longitude - from.longitude;
  const double north = 1.0 * to.latitude - from.latitude;
  const double length = Squared(east) + Squared(north);
  double along = 0;
  if (length > 0) along = ((1.0 * at.longitude - from.longitude) * east + (1.0 * at.latitude - from.latitude) * north) / length;
  along = along < 0 ? 0 : along > 1 ? 1 : along;
  return Squared(from.longitude + along * east - at.longitude) + Squared(from.latitude + along * north - at.latitude);
}

}  // namespace

Line Simplified(const Line& line, double tolerance) {
  if (line.size() < 3) return line;
  std::vector<bool> kept(line.size(), false);
  kept.front() = kept.back() = true;
  std::vector<std::pair<std::size_t, std::size_t>> open{{0, line.size() - 1}};
  while (!open.empty()) {
    const auto piece = open.back();
    open.pop_back();
    std::size_t farthest = 0;
    double most = Squared(tolerance);
    for (std::size_t i = piece.first + 1; i < piece.second; ++i) {
      const double distance = SquaredDistance(line[i], line[piece.first], line[piece.second]);
      if (distance <= most) continue;
      most = distance;
      farthest = i;
    }
    if (farthest == 0) continue;
    kept[farthest] = true;
    open.push_back({piece.first, farthest});
    open.push_back({farthest, piece.second});
  }
  Line simple;
  for (std::size_t i = 0; i < line.size(); ++i)
    if (kept[i]) simple.push_back(line[i]);
  return simple;
}

}  // namespace streets
