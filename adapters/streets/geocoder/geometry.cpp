#include "streets/geocoder/geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace streets {

namespace {

constexpr double kMillionths = 1e6;
constexpr double kRadians = std::numbers::pi / 180 / kMillionths;
constexpr double kMeanRadiusFeet = 6'371'008.8 / 0.3048;
constexpr double kFeetOfMillionth = kMeanRadiusFeet * kRadians;
constexpr double kHalfTurn = 180 * kMillionths;

/// How far a house lies from the middle of its street, and from the crossings at its ends.
constexpr double kSetOff = 30;
constexpr double kDrawnIn = 25;

/// The shorter way round, so that lines across the 180th degree are as short as they are.
double EastOf(double from, double to) {
  double way = to - from;
  if (way > kHalfTurn) way -= 2 * kHalfTurn;
  if (way < -kHalfTurn) way += 2 * kHalfTurn;
  return way;
}

struct Step {
  double east = 0;  ///< feet
  double north = 0;
  double Length() const { return std::hypot(east, north); }
};

/// The line in feet, flat around its first point: streets are short.
class FlatLine {
 public:
  explicit FlatLine(const Line& line)
      : start_(line.front()), perEast_(kFeetOfMillionth * std::max(0.01, std::cos(line.front().latitude * kRadians))) {
    for (std::size_t i = 1; i < line.size(); ++i)
      steps_.push_back(
          {EastOf(line[i - 1].longitude, line[i].longitude) * perEast_, (line[i].latitude - line[i - 1].latitude) * kFeetOfMillionth});
    for (const Step& step : steps_) length_ += step.Length();
  }

  double Length() const { return length_; }

  /// The place so many feet along the line and so many to its right.
  Position At(double along, double right) const {
    Step at;
    Step last;
    for (const Step& step : steps_) {
      const double length = step.Length();
      if (length == 0) continue;
      last = step;
      const double part = std::min(along / length, 1.0);
      at = {at.east + step.east * part, at.north + step.north * part};
      along -= length;
      if (along <= 0) break;
    }
    if (const double length = last.Length(); length > 0) {
      at.east += last.north / length * right;
      at.north -= last.east / length * right;
    }
    return Moved(at);
  }

 private:
  Position Moved(const Step& way) const {
    double longitude = start_.longitude + way.east / perEast_;
    if (longitude > kHalfTurn) longitude -= 2 * kHalfTurn;
    if (longitude < -kHalfTurn) longitude += 2 * kHalfTurn;
    return {static_cast<std::int32_t>(std::lround(longitude)),
            static_cast<std::int32_t>(std::lround(start_.latitude + way.north / kFeetOfMillionth))};
  }

  Position start_;
  double perEast_;
  std::vector<Step> steps_;
  double length_ = 0;
};

}  // namespace

double Feet(const Position& from, const Position& to) {
  const double south = from.latitude * kRadians;
  const double north = to.latitude * kRadians;
  const double rise = std::sin((north - south) / 2);
  const double turn = std::sin(EastOf(from.longitude, to.longitude) * kRadians / 2);
  const double half = rise * rise + std::cos(south) * std::cos(north) * turn * turn;
  return 2 * kMeanRadiusFeet * std::asin(std::sqrt(std::clamp(half, 0.0, 1.0)));
}

std::optional<Position> BesideLine(const Line& line, double part, Side side) {
  if (line.empty()) return std::nullopt;
  const FlatLine flat(line);
  const double drawnIn = std::min(kDrawnIn, flat.Length() / 4);
  const double along = drawnIn + std::clamp(part, 0.0, 1.0) * (flat.Length() - 2 * drawnIn);
  return flat.At(along, side == Side::Right ? kSetOff : -kSetOff);
}

std::optional<Position> MiddleOf(const Line& line) {
  if (line.empty()) return std::nullopt;
  const FlatLine flat(line);
  return flat.At(flat.Length() / 2, 0);
}

platform::MapPoint MapPointOf(const Position& position) {
  constexpr double kPerMapUnit = 10;
  return {static_cast<std::int32_t>(std::lround(position.latitude / kPerMapUnit)),
          static_cast<std::int32_t>(std::lround(position.longitude / kPerMapUnit))};
}

}  // namespace streets
