#pragma once

#include <QImage>
#include <algorithm>
#include <compare>
#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "desktop/map/sight.h"

namespace desktop {

/// A named piece of a line, for the names along streets.
struct NamedLine {
  platform::MapLine kind;
  std::string name;
  std::vector<PlanePoint> points;
};

/// The place of a tile: at its zoom step the so-manieth to the east and to the south.
struct TileKey {
  int step = 0;
  int x = 0;
  int y = 0;
  auto operator<=>(const TileKey&) const = default;

  /// A tile's side in the toolkit's pixels.
  static constexpr int kSide = 256;
  PlaneBox Box() const;
  static TileKey At(int step, const PlanePoint& point);
};

/// A drawn piece of the ground.
struct Tile {
  QImage picture;
  std::vector<NamedLine> names;
  std::size_t Bytes() const;
};

/// Drawn tiles, those looked at last; bounded in bytes, except that what a large screen needs at once has room.
class TileCache {
 public:
  static constexpr std::size_t kMostBytes = 64U << 20;

  /// nullptr when it isn't there. What is looked at stays longest.
  const Tile* Find(const TileKey& key);
  bool Has(const TileKey& key) const { return tiles_.contains(key); }
  void Put(const TileKey& key, Tile tile);
  void Clear();
  void MakeRoomFor(std::size_t bytes) { mostBytes_ = std::max(kMostBytes, bytes); }
  std::size_t Bytes() const noexcept { return bytes_; }
  std::size_t Count() const noexcept { return tiles_.size(); }
  /// Calls `take(key, tile)` for every tile of that step.
  template <class Take>
  void EachOf(int step, Take&& take) const {
    for (auto at = tiles_.lower_bound({step, INT32_MIN, INT32_MIN}); at != tiles_.end() && at->first.step == step; ++at)
      take(at->first, at->second.tile);
  }
  /// The steps of which tiles are there, the nearest to `step` first, without it.
  std::vector<int> StepsNear(int step) const;

 private:
  struct Kept {
    Tile tile;
    std::list<TileKey>::iterator turn;
  };
  std::map<TileKey, Kept> tiles_;
  std::list<TileKey> turns_;  ///< the one looked at last in front
  std::size_t bytes_ = 0;
  std::size_t mostBytes_ = kMostBytes;
};

}  // namespace desktop
