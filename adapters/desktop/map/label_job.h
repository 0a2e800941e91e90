#pragma once

#include <QImage>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "desktop/map/map_look.h"
#include "desktop/map/name_chains.h"
#include "desktop/map/occupancy.h"
#include "desktop/map/sight.h"

namespace desktop {

/// The texts of a piece of the ground, drawn: to be laid over its tiles.
struct LabelSheet {
  QImage picture;
  PlaneBox box;
  int step = 0;
};

/// A text in its place: it runs from one point to the other, in pixels of the sheet.
struct PlacedText {
  QString text;
  QPointF from;
  QPointF to;
  QFont font;
  QColor colour;
  bool alongStreet = false;
};

/// Such a sheet on its way: the names of places and ZIP areas, then of streets along them, none over another, drawn piece by piece.
class LabelJob {
 public:
  /// `signs` is what texts must not lie under, in pixels of the sheet.
  LabelJob(const PlaneBox& box, int step, qreal ratio, const MapLook& look, platform::MapGround& ground, const std::vector<QRectF>& signs);

  void Add(const NamedLine& line) { chains_.Add(line); }
  /// The names along streets of the sheet before stay where they are, as far as they can: a map that is pushed keeps its face.
  void Keep(const LabelSheet& before, const std::vector<PlacedText>& texts);
  /// Does the next piece. False when the sheet is done.
  bool Slice();
  LabelSheet Take() { return std::move(sheet_); }
  const std::vector<PlacedText>& Placed() const noexcept { return placed_; }

 private:
  void PlaceTexts();
  void PlaceText(platform::MapText kind, const QPointF& middle, const std::string& text);
  std::optional<QRectF> RoomFor(const QRectF& box, platform::MapText kind) const;
  void PlaceKept();
  void PlaceNames();
  bool PlaceAlong(const NameChains::Chain& chain, const QString& text, const QFont& font, const QSizeF& room);
  bool IsRepeated(const QString& text, const QPointF& at) const;
  void Draw(const PlacedText& text);
  QPointF OnSheet(const PlanePoint& point) const { return (point - sheet_.box.topLeft()) / unitsPerPixel_; }

  double unitsPerPixel_;
  qreal ratio_;
  MapLook look_;
  platform::MapGround& ground_;
  NameChains chains_;
  LabelSheet sheet_;
  Occupancy taken_;
  std::vector<PlacedText> kept_;
  std::vector<PlacedText> placed_;
  std::size_t drawn_ = 0;
  int stage_ = 0;
};

}  // namespace desktop
