#pragma once

#include <QColor>
#include <QFont>
#include <QPen>

#include "platform/services/map.h"

/// Colours and widths of what lies on the ground, by zoom.
namespace desktop {

struct MapLook {
  bool dark = false;
  QFont font;
  bool operator==(const MapLook&) const = default;

  QColor Land() const;
  QColor Text() const;
  /// Around texts, so that they stand out from the lines below.
  QColor Halo() const;
  /// The window's own signs: pins, the scale bar, the frame of the keyboard.
  QColor Sign() const;
  QColor Sheet() const;

  /// Whether lines of that kind are drawn (named) at so many units a pixel.
  static bool Draws(platform::MapLine kind, double unitsPerPixel);
  static bool Names(platform::MapLine kind, double unitsPerPixel);
  /// The edge of a road; without a pen where it has none of its own.
  QPen Outline(platform::MapLine kind, double unitsPerPixel) const;
  QPen Fill(platform::MapLine kind, double unitsPerPixel) const;
  QColor TextOf(platform::MapText kind) const;
  QFont FontOf(platform::MapText kind) const;
  QFont FontOf(platform::MapLine kind) const;
};

}  // namespace desktop
