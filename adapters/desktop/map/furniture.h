#pragma once

#include <QPainter>
#include <QStringList>

#include "desktop/map/ground_layer.h"

/// What stands on the glass over the map.
namespace desktop::furniture {

/// A bar of a round length with its words, in the lower left corner.
struct ScaleBar {
  double pixels = 0;
  QString text;
};
/// The longest round one of at most so many pixels: feet below a mile, then miles.
ScaleBar ScaleBarFor(double feetPerPixel, double mostPixels);
void PaintScale(QPainter& painter, const GroundFrame& frame, const MapLook& look);

/// Whose data it is, in the lower right corner.
void PaintNotices(QPainter& painter, const GroundFrame& frame, const MapLook& look, const QStringList& notices);
/// What the user should know of the data, along the upper edge.
void PaintComplaint(QPainter& painter, const GroundFrame& frame, const MapLook& look, const QString& complaint);
/// The rectangle that is drawn for zoom.
void PaintBand(QPainter& painter, const QRectF& band, const MapLook& look);
/// The map has the keyboard.
void PaintFocus(QPainter& painter, const GroundFrame& frame, const MapLook& look);

}  // namespace desktop::furniture
