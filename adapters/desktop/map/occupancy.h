#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <vector>

namespace desktop {

/// Where texts stand already, so that none covers another.
class Occupancy {
 public:
  explicit Occupancy(const QSizeF& size);

  /// Whether the box lies wholly inside.
  bool Holds(const QRectF& box) const;
  /// Whether nothing stands there as well.
  bool Free(const QRectF& box) const;
  void Take(const QRectF& box);
  /// The same for a text that runs from one point to another at that height.
  bool FreeAlong(const QPointF& from, const QPointF& to, double height) const;
  void TakeAlong(const QPointF& from, const QPointF& to, double height);

 private:
  template <class Body>
  static bool EachBoxAlong(const QPointF& from, const QPointF& to, double height, Body&& body);

  static constexpr double kCell = 4;
  int columns_;
  int rows_;
  std::vector<char> taken_;
};

}  // namespace desktop
