#include "desktop/map/tile.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace desktop {

PlaneBox TileKey::Box() const {
  const double side = kSide * zoom::UnitsPerPixel(step);
  return {x * side, y * side, side, side};
}

TileKey TileKey::At(int step, const PlanePoint& point) {
  const double side = kSide * zoom::UnitsPerPixel(step);
  return {step, static_cast<int>(std::floor(point.x() / side)), static_cast<int>(std::floor(point.y() / side))};
}

std::size_t Tile::Bytes() const {
  std::size_t bytes = static_cast<std::size_t>(picture.sizeInBytes());
  for (const NamedLine& line : names) bytes += sizeof line + line.name.capacity() + line.points.capacity() * sizeof(PlanePoint);
  return bytes;
}

const Tile* TileCache::Find(const TileKey& key) {
  const auto found = tiles_.find(key);
  if (found == tiles_.end()) return nullptr;
  turns_.splice(turns_.begin(), turns_, found->second.turn);
  return &found->second.tile;
}

void TileCache::Put(const TileKey& key, Tile tile) {
  if (const auto old = tiles_.find(key); old != tiles_.end()) {
    bytes_ -= old->second.tile.Bytes();
    turns_.erase(old->second.turn);
    tiles_.erase(old);
  }
  bytes_ += tile.Bytes();
  turns_.push_front(key);
  tiles_.emplace(key, Kept{std::move(tile), turns_.begin()});
  while (bytes_ > mostBytes_ && turns_.size() > 1) {
    const auto last = tiles_.find(turns_.back());
    bytes_ -= last->second.tile.Bytes();
    tiles_.erase(last);
    turns_.pop_back();
  }
}

void TileCache::Clear() {
  tiles_.clear();
  turns_.clear();
  bytes_ = 0;
}

std::vector<int> TileCache::StepsNear(int step) const {
  std::vector<int> steps;
  for (auto at = tiles_.begin(); at != tiles_.end(); at = tiles_.lower_bound({at->first.step + 1, INT32_MIN, INT32_MIN}))
    if (at->first.step != step) steps.push_back(at->first.step);
  std::sort(steps.begin(), steps.end(), [step](int one, int other) { return std::abs(one - step) < std::abs(other - step); });
  return steps;
}

}  // namespace desktop
