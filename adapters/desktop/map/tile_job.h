#pragma once

#include <QPolygonF>
#include <array>
#include <vector>

#include "desktop/map/map_look.h"
#include "desktop/map/tile.h"

namespace desktop {

/// A tile on its way: read and drawn in small pieces, so that the user is served between them.
class TileJob {
 public:
  TileJob(const TileKey& key, qreal ratio, const MapLook& look, platform::MapGround& ground);

  const TileKey& Key() const noexcept { return key_; }
  /// Does the next piece. False when the tile is done.
  bool Slice();
  Tile Take() { return std::move(tile_); }

 private:
  static constexpr std::size_t kKinds = 7;
  /// A stroke over the lines of one kind.
  struct Stroke {
    platform::MapLine kind;
    QPen pen;
  };

  bool Read();
  /// `away`: how far from its place on the earth the line is seen.
  void TakeLine(platform::MapLine kind, std::span<const platform::MapPoint> points, double away, const std::string& name);
  void PlanStrokes();
  bool Draw();

  TileKey key_;
  PlaneBox box_;
  double unitsPerPixel_;
  MapLook look_;
  platform::MapGround& ground_;
  Tile tile_;
  std::array<std::vector<QPolygonF>, kKinds> lines_;  ///< in pixels of the tile
  std::size_t nextRead_ = 0;
  std::vector<Stroke> strokes_;
  std::size_t stroke_ = 0;
  std::size_t drawn_ = 0;  ///< lines of that stroke
};

}  // namespace desktop
