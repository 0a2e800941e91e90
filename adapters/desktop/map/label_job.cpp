#include "desktop/map/label_job.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "desktop/toolkit/toolkit.h"

namespace desktop {

using platform::MapPoint;
using platform::MapText;

namespace {

constexpr std::size_t kTextsAtOnce = 12;
constexpr std::size_t kMostTexts = 400;
constexpr double kApart = 260;  // pixels between two of one name
constexpr double kAir = 3;      // pixels around a text

double Length(const QPointF& way) { return std::hypot(way.x(), way.y()); }

double Off(const QPointF& point, const QPointF& from, const QPointF& along) {
  const QPointF way = point - from;
  return std::abs(way.x() * along.y() - way.y() * along.x());
}

/// A line in pixels, walked by its length.
class Path {
 public:
  explicit Path(std::vector<QPointF> points) : points_(std::move(points)), at_{0} {
    for (std::size_t i = 1; i < points_.size(); ++i) at_.push_back(at_.back() + Length(points_[i] - points_[i - 1]));
  }
  double Whole() const { return at_.back(); }
  QPointF At(double length) const {
    const auto next = static_cast<std::size_t>(std::lower_bound(at_.begin(), at_.end(), length) - at_.begin());
    if (next == 0) return points_.front();
    if (next >= points_.size()) return points_.back();
    return points_[next - 1] + (points_[next] - points_[next - 1]) * ((length - at_[next - 1]) / (at_[next] - at_[next - 1]));
  }
  /// Whether the piece runs so straight that no bend leaves the chord by more.
  bool Straight(double begin, double end, double most) const {
    const QPointF from = At(begin), to = At(end);
    const double length = Length(to - from);
    if (length < (end - begin) * 0.97) return false;
    const QPointF along = (to - from) / length;
    auto i = static_cast<std::size_t>(std::upper_bound(at_.begin(), at_.end(), begin) - at_.begin());
    for (; i < points_.size() && at_[i] < end; ++i)
      if (Off(points_[i], from, along) > most) return false;
    return true;
  }

 private:
  std::vector<QPointF> points_;
  std::vector<double> at_;
};

}  // namespace

LabelJob::LabelJob(const PlaneBox& box, int step, qreal ratio, const MapLook& look, platform::MapGround& ground,
                   const std::vector<QRectF>& signs)
    : unitsPerPixel_(zoom::UnitsPerPixel(step)),
      ratio_(ratio),
      look_(look),
      ground_(ground),
      sheet_{{}, box, step},
      taken_(box.size() / unitsPerPixel_) {
  for (const QRectF& sign : signs) taken_.Take(sign);
}

bool LabelJob::Slice() {
  if (stage_ == 0) {
    const QSizeF size = sheet_.box.size() / unitsPerPixel_ * ratio_;
    sheet_.picture = QImage(size.toSize(), QImage::Format_ARGB32_Premultiplied);
    sheet_.picture.setDevicePixelRatio(ratio_);
    sheet_.picture.fill(Qt::transparent);
    PlaceTexts();
    PlaceKept();
    stage_ = 1;
  } else if (stage_ == 1) {
    PlaceNames();
    stage_ = 2;
  } else {
    const std::size_t end = std::min(placed_.size(), drawn_ + kTextsAtOnce);
    for (; drawn_ < end; ++drawn_) Draw(placed_[drawn_]);
  }
  return stage_ < 2 || drawn_ < placed_.size();
}

/// The most important come first and keep their place.
void LabelJob::PlaceTexts() {
  for (const EarthPart& part : PartsOf(sheet_.box)) {
    ground_.Texts(ToEarth(part.box), unitsPerPixel_, [&](MapText kind, MapPoint at, const std::string& text) {
      PlaceText(kind, OnSheet(ToPlane(at) + QPointF(part.away, 0)), text);
    });
  }
}

void LabelJob::PlaceText(MapText kind, const QPointF& middle, const std::string& text) {
  if (placed_.size() >= kMostTexts) return;
  const QFont font = look_.FontOf(kind);
  const QFontMetricsF metrics(font);
  const QString shown = ToShown(text);
  const double width = metrics.horizontalAdvance(shown), height = metrics.height();
  const QRectF box(middle.x() - width / 2 - kAir, middle.y() - height / 2 - kAir, width + 2 * kAir, height + 2 * kAir);
  const std::optional<QRectF> room = RoomFor(box, kind);
  if (!room) return;
  taken_.Take(*room);
  const double line = room->center().y();
  placed_.push_back({shown, {room->left() + kAir, line}, {room->right() - kAir, line}, font, look_.TextOf(kind)});
}

/// A place's name may stand below, above or beside it, where customers' signs cover it. One that leaves the sheet stays where it is and
/// is left out: it must not jump when the map is pushed.
std::optional<QRectF> LabelJob::RoomFor(const QRectF& box, MapText kind) const {
  if (taken_.Free(box)) return box;
  if (kind != MapText::Place || !taken_.Holds(box)) return {};
  const double down = box.height(), aside = box.width() / 2 + 20;
  for (const QPointF& away : {QPointF(0, down), QPointF(0, -down), QPointF(aside, 0), QPointF(-aside, 0), QPointF(0, 1.7 * down), QPointF(0, -1.7 * down)})
    if (taken_.Free(box.translated(away))) return box.translated(away);
  return {};
}

void LabelJob::Keep(const LabelSheet& before, const std::vector<PlacedText>& texts) {
  const QPointF moved = (before.box.topLeft() - sheet_.box.topLeft()) / unitsPerPixel_;
  for (PlacedText text : texts) {
    if (!text.alongStreet) continue;
    text.from += moved;
    text.to += moved;
    kept_.push_back(std::move(text));
  }
}

void LabelJob::PlaceKept() {
  for (const PlacedText& text : kept_) {
    const double height = QFontMetricsF(text.font).height();
    if (!taken_.FreeAlong(text.from, text.to, height)) continue;
    taken_.TakeAlong(text.from, text.to, height);
    placed_.push_back(text);
  }
}

void LabelJob::PlaceNames() {
  for (const NameChains::Chain& chain : chains_.Join()) {
    if (placed_.size() >= kMostTexts) return;
    const QFont font = look_.FontOf(chain.kind);
    const QFontMetricsF metrics(font);
    const QString text = ToShown(chain.name);
    PlaceAlong(chain, text, font, {metrics.horizontalAdvance(text), metrics.height()});
  }
}

/// The middle of the street is tried first, then to both sides of it.
bool LabelJob::PlaceAlong(const NameChains::Chain& chain, const QString& text, const QFont& font, const QSizeF& room) {
  std::vector<QPointF> points;
  points.reserve(chain.points.size());
  for (const PlanePoint& point : chain.points) points.push_back(OnSheet(point));
  const Path path(std::move(points));
  const double width = room.width(), spare = path.Whole() - width;
  if (spare < 2 * kAir) return false;
  bool any = false;
  const double stride = std::max(width / 2, 24.0);
  for (double away = 0; away <= spare / 2; away += stride) {
    for (const double side : {1.0, -1.0}) {
      if (away == 0 && side < 0) continue;
      const double begin = spare / 2 + side * away;
      const QPointF from = path.At(begin), to = path.At(begin + width);
      if (IsRepeated(text, (from + to) / 2) || !path.Straight(begin, begin + width, room.height() / 4)) continue;
      if (!taken_.FreeAlong(from, to, room.height())) continue;
      taken_.TakeAlong(from, to, room.height());
      const bool upright = from.x() <= to.x();
      placed_.push_back({text, upright ? from : to, upright ? to : from, font, look_.Text(), true});
      any = true;
    }
  }
  return any;
}

bool LabelJob::IsRepeated(const QString& text, const QPointF& at) const {
  return std::any_of(placed_.begin(), placed_.end(),
                     [&](const PlacedText& placed) { return placed.text == text && Length((placed.from + placed.to) / 2 - at) < kApart; });
}

void LabelJob::Draw(const PlacedText& text) {
  QPainter painter(&sheet_.picture);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  const QFontMetricsF metrics(text.font);
  const QPointF way = text.to - text.from;
  painter.translate(text.from);
  painter.rotate(std::atan2(way.y(), way.x()) * 180 / std::numbers::pi);
  QPainterPath letters;
  letters.addText({0, (metrics.ascent() - metrics.descent()) / 2}, text.font, text.text);
  QColor halo = look_.Halo();
  halo.setAlphaF(0.85F);
  painter.strokePath(letters, QPen(halo, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.fillPath(letters, text.colour);
}

}  // namespace desktop
