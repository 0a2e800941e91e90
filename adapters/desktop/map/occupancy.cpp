#include "desktop/map/occupancy.h"

#include <algorithm>
#include <cmath>

namespace desktop {

Occupancy::Occupancy(const QSizeF& size)
    : columns_(static_cast<int>(std::ceil(std::max(0.0, size.width()) / kCell))),
      rows_(static_cast<int>(std::ceil(std::max(0.0, size.height()) / kCell))),
      taken_(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_)) {}

bool Occupancy::Holds(const QRectF& box) const {
  return box.left() >= 0 && box.top() >= 0 && box.right() < columns_ * kCell && box.bottom() < rows_ * kCell;
}

bool Occupancy::Free(const QRectF& box) const {
  const int left = static_cast<int>(std::floor(box.left() / kCell)), right = static_cast<int>(std::floor(box.right() / kCell));
  const int top = static_cast<int>(std::floor(box.top() / kCell)), bottom = static_cast<int>(std::floor(box.bottom() / kCell));
  if (!Holds(box)) return false;
  for (int row = top; row <= bottom; ++row) {
    const auto line = taken_.begin() + static_cast<std::ptrdiff_t>(row) * columns_;
    if (std::find(line + left, line + right + 1, 1) != line + right + 1) return false;
  }
  return true;
}

void Occupancy::Take(const QRectF& box) {
  const int left = std::max(0, static_cast<int>(std::floor(box.left() / kCell)));
  const int right = std::min(columns_ - 1, static_cast<int>(std::floor(box.right() / kCell)));
  const int top = std::max(0, static_cast<int>(std::floor(box.top() / kCell)));
  const int bottom = std::min(rows_ - 1, static_cast<int>(std::floor(box.bottom() / kCell)));
  for (int row = top; row <= bottom && left <= right; ++row) {
    const auto line = taken_.begin() + static_cast<std::ptrdiff_t>(row) * columns_;
    std::fill(line + left, line + right + 1, 1);
  }
}

template <class Body>
bool Occupancy::EachBoxAlong(const QPointF& from, const QPointF& to, double height, Body&& body) {
  const int boxes = std::max(1, static_cast<int>(std::ceil(2 * std::hypot(to.x() - from.x(), to.y() - from.y()) / height)));
  for (int i = 0; i <= boxes; ++i) {
    const QPointF at = from + (to - from) * i / boxes;
    if (!body(QRectF(at.x() - height / 2, at.y() - height / 2, height, height))) return false;
  }
  return true;
}

bool Occupancy::FreeAlong(const QPointF& from, const QPointF& to, double height) const {
  return EachBoxAlong(from, to, height, [this](const QRectF& box) { return Free(box); });
}

void Occupancy::TakeAlong(const QPointF& from, const QPointF& to, double height) {
  EachBoxAlong(from, to, height, [this](const QRectF& box) { return Take(box), true; });
}

}  // namespace desktop
