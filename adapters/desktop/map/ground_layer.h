#pragma once

#include <QPainter>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "desktop/map/label_job.h"
#include "desktop/map/tile_job.h"

namespace desktop {

/// What the ground is drawn for.
struct GroundFrame {
  Sight sight;
  QSizeF size;
  qreal ratio = 1;
};

/// The ground as it is seen: tiles of the zoom step, drawn piece by piece in idle time and kept; names over them. What isn't drawn
/// yet shows what is kept of other steps.
class GroundLayer {
 public:
  /// What stands over the ground, in pixels of the second frame, when the first one is seen.
  using FindSigns = std::function<std::vector<QRectF>(const GroundFrame& seen, const GroundFrame& sheet)>;
  explicit GroundLayer(FindSigns signs) : signs_(std::move(signs)) {}

  /// Another ground (nullptr for none), or another look: everything is drawn anew.
  void Show(platform::MapGround* ground, const MapLook& look);
  /// What stands over the ground has changed: names take other places. The present ones stay until then.
  void PlaceNamesAnew();
  void Paint(QPainter& painter, const GroundFrame& frame);
  /// Draws for at most so many milliseconds or so; what was asked for last is in the frame. False when nothing is left.
  bool Slice(const GroundFrame& frame, double milliseconds);
  bool Done(const GroundFrame& frame) const;

  const TileCache& Tiles() const noexcept { return tiles_; }
  const std::optional<LabelSheet>& Sheet() const noexcept { return sheet_; }
  const std::vector<PlacedText>& Texts() const noexcept { return texts_; }

 private:
  std::optional<TileKey> NextMissing(const GroundFrame& frame) const;
  bool DrawTiles(const GroundFrame& frame);
  bool DrawSheet(const GroundFrame& frame);
  bool SheetFits(const GroundFrame& frame) const;

  FindSigns signs_;
  platform::MapGround* ground_ = nullptr;
  MapLook look_;
  qreal ratio_ = 0;
  TileCache tiles_;
  std::optional<TileJob> job_;
  std::optional<LabelJob> sheetJob_;
  PlaneBox sheetJobBox_;
  int sheetJobStep_ = 0;
  std::optional<LabelSheet> sheet_;
  bool isSheetOld_ = false;
  std::vector<PlacedText> texts_;  ///< of the sheet
};

}  // namespace desktop
