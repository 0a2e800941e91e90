#include "desktop/map/sight.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace desktop {

namespace {

constexpr double kUnitsPerDegree = 1e5;
constexpr double kRadians = std::numbers::pi / 180 / kUnitsPerDegree;
constexpr double kMostNorth = 85 * kUnitsPerDegree;  // beyond, the plane grows without end
constexpr double kHalfRound = kTurn / 2;
constexpr double kEarthRadiusFeet = 6371008.8 / 0.3048;

double Latitude(double y) { return -std::atan(std::sinh(y * kRadians)) / kRadians; }

std::int32_t Whole(double value) { return static_cast<std::int32_t>(std::lround(value)); }

}  // namespace

PlanePoint ToPlane(const platform::MapPoint& point) {
  const double latitude = std::clamp(static_cast<double>(point.latitude), -kMostNorth, kMostNorth);
  return {std::clamp(static_cast<double>(point.longitude), -kHalfRound, kHalfRound), -std::asinh(std::tan(latitude * kRadians)) / kRadians};
}

platform::MapPoint ToEarth(const PlanePoint& point) { return {Whole(Latitude(point.y())), Whole(point.x())}; }

platform::MapBox ToEarth(const PlaneBox& box) {
  const platform::MapPoint northWest = ToEarth(box.topLeft()), southEast = ToEarth(box.bottomRight());
  return {southEast.latitude, northWest.longitude, northWest.latitude, southEast.longitude};
}

std::vector<EarthPart> PartsOf(const PlaneBox& box) {
  std::vector<EarthPart> parts;
  const PlaneBox earth(-kHalfRound, box.top(), kTurn, box.height());
  const double first = std::floor((box.left() + kHalfRound) / kTurn), last = std::floor((box.right() + kHalfRound) / kTurn);
  for (double turn = first; turn <= last; ++turn) {
    const double away = turn * kTurn;
    const PlaneBox part = box.translated(-away, 0) & earth;
    if (part.width() > 0) parts.push_back({part, away});
  }
  return parts;
}

PlanePoint NearestTurn(const PlanePoint& point, const PlanePoint& middle) {
  return {middle.x() + std::remainder(point.x() - middle.x(), kTurn), point.y()};
}

namespace zoom {

double UnitsPerPixel(int step) { return std::exp2(static_cast<double>(step) / kPerDoubling); }

int StepFor(double unitsPerPixel) {
  // What a step gives back is that step, whatever the last digit of the logarithm.
  constexpr double kSlack = 1e-6;
  const double step = std::ceil(std::log2(std::max(unitsPerPixel, 1e-3)) * kPerDoubling - kSlack);
  return std::clamp(static_cast<int>(step), kNearest, kFarthest);
}

}  // namespace zoom

double FeetPerUnit(const PlanePoint& at) { return kEarthRadiusFeet * kRadians * std::cos(Latitude(at.y()) * kRadians); }

QPointF Sight::ToScreen(const PlanePoint& point, const QSizeF& size) const {
  return (point - middle) / UnitsPerPixel() + QPointF(size.width() / 2, size.height() / 2);
}

PlanePoint Sight::ToPlane(const QPointF& at, const QSizeF& size) const {
  return middle + (at - QPointF(size.width() / 2, size.height() / 2)) * UnitsPerPixel();
}

PlaneBox Sight::Box(const QSizeF& size) const { return {ToPlane({0, 0}, size), size * UnitsPerPixel()}; }

Sight Sight::Zoomed(int to, const QPointF& at, const QSizeF& size) const {
  Sight zoomed = *this;
  zoomed.step = std::clamp(to, zoom::kNearest, zoom::kFarthest);
  zoomed.middle += ToPlane(at, size) - zoomed.ToPlane(at, size);
  return zoomed.Held();
}

Sight Sight::Moved(const QPointF& pixels) const {
  Sight moved = *this;
  moved.middle += pixels * UnitsPerPixel();
  return moved.Held();
}

Sight Sight::Held() const {
  Sight held = *this;
  held.step = std::clamp(step, zoom::kNearest, zoom::kFarthest);
  held.middle.setX(std::remainder(middle.x(), kTurn));
  held.middle.setY(std::clamp(middle.y(), -kHalfRound, kHalfRound));
  return held;
}

Sight SightOf(const platform::MapView& view, const QSizeF& size) {
  Sight sight;
  sight.middle = ToPlane(view.middle);
  const double units = std::max(1, view.width) / FeetPerUnit(sight.middle);
  sight.step = zoom::StepFor(units / std::max(1.0, size.width()));
  return sight.Held();
}

Sight SightOver(const PlaneBox& box, const QSizeF& size) {
  Sight sight;
  sight.middle = box.center();
  const double across = box.width() / std::max(1.0, size.width()), down = box.height() / std::max(1.0, size.height());
  sight.step = zoom::StepFor(std::max(across, down));
  return sight.Held();
}

Sight WholeCountry(const QSizeF& size) {
  return SightOver(PlaneBox(ToPlane({4'950'000, -12'500'000}), ToPlane({2'450'000, -6'650'000})), size);
}

}  // namespace desktop
