#include "desktop/map/ground_layer.h"

#include <QElapsedTimer>
#include <cmath>

namespace desktop {

namespace {

constexpr double kSheetMargin = 96;  // pixels around what is seen that bear names already

struct TileRange {
  TileKey first, last;
};

TileRange TilesOf(const GroundFrame& frame) {
  const PlaneBox box = frame.sight.Box(frame.size);
  return {TileKey::At(frame.sight.step, box.topLeft()), TileKey::At(frame.sight.step, box.bottomRight())};
}

/// Where the left upper corner of the plane's origin lies, on a whole pixel of the screen, so that tiles meet without a seam.
QPointF OriginOf(const GroundFrame& frame) {
  const QPointF at = frame.sight.ToScreen({0, 0}, frame.size) * frame.ratio;
  return QPointF(std::round(at.x()), std::round(at.y())) / frame.ratio;
}

}  // namespace

void GroundLayer::Show(platform::MapGround* ground, const MapLook& look) {
  if (ground == ground_ && look == look_) return;
  ground_ = ground;
  look_ = look;
  tiles_.Clear();
  job_.reset();
  sheetJob_.reset();
  sheet_.reset();
  texts_.clear();
}

void GroundLayer::PlaceNamesAnew() {
  sheetJob_.reset();
  isSheetOld_ = true;
}

void GroundLayer::Paint(QPainter& painter, const GroundFrame& frame) {
  const QPointF origin = OriginOf(frame);
  const double unitsPerPixel = frame.sight.UnitsPerPixel();
  painter.fillRect(QRectF({0, 0}, frame.size), look_.Land());
  const TileRange range = TilesOf(frame);
  bool missing = false;
  for (int y = range.first.y; y <= range.last.y; ++y)
    for (int x = range.first.x; x <= range.last.x; ++x) missing = missing || !tiles_.Has({frame.sight.step, x, y});
  if (missing) {
    // What is kept of the two nearest steps, the nearer one above.
    constexpr std::size_t kSteps = 2;
    const std::vector<int> steps = tiles_.StepsNear(frame.sight.step);
    const QRectF seen({0, 0}, frame.size);
    for (std::size_t i = std::min(kSteps, steps.size()); i-- > 0;) {
      tiles_.EachOf(steps[i], [&](const TileKey& key, const Tile& tile) {
        const PlaneBox box = key.Box();
        const QRectF at(origin + box.topLeft() / unitsPerPixel, box.size() / unitsPerPixel);
        if (at.intersects(seen)) painter.drawImage(at, tile.picture);
      });
    }
  }
  for (int y = range.first.y; y <= range.last.y; ++y)
    for (int x = range.first.x; x <= range.last.x; ++x)
      if (const Tile* tile = tiles_.Find({frame.sight.step, x, y}))
        painter.drawImage(origin + QPointF(x, y) * TileKey::kSide, tile->picture);
  if (sheet_ && sheet_->step == frame.sight.step) painter.drawImage(origin + sheet_->box.topLeft() / unitsPerPixel, sheet_->picture);
}

/// From the middle outwards.
std::optional<TileKey> GroundLayer::NextMissing(const GroundFrame& frame) const {
  const TileRange range = TilesOf(frame);
  const QPointF middle = frame.sight.middle / (TileKey::kSide * frame.sight.UnitsPerPixel());
  std::optional<TileKey> nearest;
  double least = 0;
  for (int y = range.first.y; y <= range.last.y; ++y) {
    for (int x = range.first.x; x <= range.last.x; ++x) {
      const TileKey key{frame.sight.step, x, y};
      const double away = std::hypot(x + 0.5 - middle.x(), y + 0.5 - middle.y());
      if ((nearest && away >= least) || tiles_.Has(key)) continue;
      nearest = key;
      least = away;
    }
  }
  return nearest;
}

bool GroundLayer::SheetFits(const GroundFrame& frame) const {
  return sheet_ && !isSheetOld_ && sheet_->step == frame.sight.step && sheet_->box.contains(frame.sight.Box(frame.size));
}

bool GroundLayer::Done(const GroundFrame& frame) const {
  return ground_ == nullptr || (ratio_ == frame.ratio && !NextMissing(frame) && SheetFits(frame));
}

bool GroundLayer::Slice(const GroundFrame& frame, double milliseconds) {
  if (ground_ == nullptr || frame.size.isEmpty()) return false;
  if (ratio_ != frame.ratio) {
    platform::MapGround* ground = ground_;
    ground_ = nullptr;
    Show(ground, look_);
    ratio_ = frame.ratio;
  }
  const TileRange range = TilesOf(frame);
  const double side = TileKey::kSide * frame.ratio;
  const auto count = static_cast<std::size_t>(range.last.x - range.first.x + 1) * static_cast<std::size_t>(range.last.y - range.first.y + 1);
  tiles_.MakeRoomFor(count * static_cast<std::size_t>(side * side * 5));  // four bytes a pixel, and the names
  QElapsedTimer timer;
  timer.start();
  do {
    if (!DrawTiles(frame) && !DrawSheet(frame)) return false;
  } while (static_cast<double>(timer.nsecsElapsed()) < milliseconds * 1e6);
  return true;
}

/// A piece of the tile that is wanted most. False when none is missing.
bool GroundLayer::DrawTiles(const GroundFrame& frame) {
  if (job_ && job_->Key().step != frame.sight.step) job_.reset();
  if (!job_) {
    const std::optional<TileKey> next = NextMissing(frame);
    if (!next) return false;
    job_.emplace(*next, ratio_, look_, *ground_);
  }
  if (job_->Slice()) return true;
  const TileKey key = job_->Key();
  tiles_.Put(key, job_->Take());
  job_.reset();
  return true;
}

bool GroundLayer::DrawSheet(const GroundFrame& frame) {
  if (SheetFits(frame)) return false;
  const PlaneBox seen = frame.sight.Box(frame.size);
  if (sheetJob_ && (sheetJobStep_ != frame.sight.step || !sheetJobBox_.contains(seen))) sheetJob_.reset();
  if (!sheetJob_) {
    // On whole pixels, as the tiles are.
    const double unit = frame.sight.UnitsPerPixel() / ratio_;
    const double left = std::floor(seen.left() / unit - kSheetMargin * ratio_), top = std::floor(seen.top() / unit - kSheetMargin * ratio_);
    const QSizeF size(std::ceil((frame.size.width() + 2 * kSheetMargin) * ratio_) + 1,
                      std::ceil((frame.size.height() + 2 * kSheetMargin) * ratio_) + 1);
    sheetJobBox_ = PlaneBox(QPointF(left, top) * unit, size * unit);
    sheetJobStep_ = frame.sight.step;
    const GroundFrame sheet{{sheetJobBox_.center(), sheetJobStep_}, sheetJobBox_.size() / frame.sight.UnitsPerPixel(), ratio_};
    sheetJob_.emplace(sheetJobBox_, sheetJobStep_, ratio_, look_, *ground_, signs_(frame, sheet));
    if (sheet_ && sheet_->step == sheetJobStep_) sheetJob_->Keep(*sheet_, texts_);
    tiles_.EachOf(sheetJobStep_, [&](const TileKey& key, const Tile& tile) {
      if (!key.Box().intersects(sheetJobBox_)) return;
      for (const NamedLine& line : tile.names) sheetJob_->Add(line);
    });
  }
  if (sheetJob_->Slice()) return true;
  texts_ = sheetJob_->Placed();
  sheet_ = sheetJob_->Take();
  isSheetOld_ = false;
  sheetJob_.reset();
  return true;
}

}  // namespace desktop
