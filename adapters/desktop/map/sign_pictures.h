#pragma once

#include <QHash>
#include <QPainter>
#include <QPixmap>
#include <functional>

#include "desktop/map/map_look.h"

namespace desktop {

/// The drawn signs: the pin, the number for many, the name at a pin. Each is drawn once and kept, since a frame shows hundreds.
class SignPictures {
 public:
  /// For another look or fineness all are drawn anew.
  void Use(const MapLook& look, qreal ratio);

  static constexpr QSizeF kPin{18, 24};
  QSizeF HeapSize(const QString& count) const;
  QSizeF LabelSize(const QString& text) const;
  void PaintPin(QPainter& painter, const QPointF& corner);
  void PaintHeap(QPainter& painter, const QPointF& corner, const QString& count);
  void PaintLabel(QPainter& painter, const QPointF& corner, const QString& text);

 private:
  using Draw = std::function<void(QPainter& painter, const QRectF& box)>;
  void Paint(QPainter& painter, const QPointF& corner, const QString& key, const QSizeF& size, const Draw& draw);

  MapLook look_;
  qreal ratio_ = 0;
  QHash<QString, QPixmap> kept_;
};

}  // namespace desktop
