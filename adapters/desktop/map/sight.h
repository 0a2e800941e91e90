#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <vector>

#include "platform/services/map.h"

/// Which piece of the ground is seen, and how large.
namespace desktop {

/// The map is drawn on a plane after Mercator, on which every small piece keeps its shape: x to the east, y to the south, a unit is
/// a hundred-thousandth of a degree of the equator.
using PlanePoint = QPointF;
using PlaneBox = QRectF;

PlanePoint ToPlane(const platform::MapPoint& point);
platform::MapPoint ToEarth(const PlanePoint& point);
platform::MapBox ToEarth(const PlaneBox& box);

/// Beyond the antimeridian the plane goes on with the other side of the earth: what lies at x lies a turn away again.
inline constexpr double kTurn = 36'000'000;
/// A box on the earth itself, and how far from there it is seen.
struct EarthPart {
  PlaneBox box;
  double away;
};
/// The parts of a box of the plane.
std::vector<EarthPart> PartsOf(const PlaneBox& box);
/// The point, whole turns away, that lies nearest to `middle`.
PlanePoint NearestTurn(const PlanePoint& point, const PlanePoint& middle);

/// Zoom goes by steps, four to each doubling, so that what is drawn for one can be kept.
namespace zoom {
inline constexpr int kPerDoubling = 4;
inline constexpr int kNearest = -8;
inline constexpr int kFarthest = 60;
/// Units of the plane to a pixel.
double UnitsPerPixel(int step);
/// The nearest step at which so many units take no more than a pixel.
int StepFor(double unitsPerPixel);
}  // namespace zoom

/// Feet on the ground to a unit of the plane at that place.
double FeetPerUnit(const PlanePoint& at);

/// What is seen: the place in the middle, and the zoom. Sizes and places on the screen are in pixels of the toolkit.
struct Sight {
  PlanePoint middle;
  int step = zoom::kFarthest;
  bool operator==(const Sight&) const = default;

  double UnitsPerPixel() const { return zoom::UnitsPerPixel(step); }
  QPointF ToScreen(const PlanePoint& point, const QSizeF& size) const;
  PlanePoint ToPlane(const QPointF& at, const QSizeF& size) const;
  PlaneBox Box(const QSizeF& size) const;

  /// At another step, with what is at that place of the screen staying there.
  Sight Zoomed(int to, const QPointF& at, const QSizeF& size) const;
  Sight Moved(const QPointF& pixels) const;
  /// Kept on the earth, its middle on this side of the antimeridian, and within the steps.
  Sight Held() const;
};

/// What the screen has asked for, at least as wide.
Sight SightOf(const platform::MapView& view, const QSizeF& size);
/// The nearest that shows the whole box.
Sight SightOver(const PlaneBox& box, const QSizeF& size);
/// The contiguous states.
Sight WholeCountry(const QSizeF& size);

}  // namespace desktop
