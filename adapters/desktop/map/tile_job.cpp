#include "desktop/map/tile_job.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <utility>

namespace desktop {

using platform::MapLine;

namespace {

constexpr double kMargin = 20;             // pixels around the tile whose lines reach into it by their width
constexpr double kPlainJoints = 5;         // pixels: wider lines have round joints
constexpr std::size_t kLinesAtOnce = 200;  // drawn in well under a slice

bool Crosses(const PlanePoint& from, const PlanePoint& to, const PlaneBox& box) {
  return std::max(from.x(), to.x()) >= box.left() && std::min(from.x(), to.x()) <= box.right() &&
         std::max(from.y(), to.y()) >= box.top() && std::min(from.y(), to.y()) <= box.bottom();
}

/// A piece of the seam at which a country's outline was cut in two is no border.
bool IsSeam(const PlanePoint& from, const PlanePoint& to) { return std::abs(from.x()) == kTurn / 2 && std::abs(to.x()) == kTurn / 2; }

/// Calls `take(from, to)` for each piece of a line, so far away from its place on the earth. From a point to the next it goes the short
/// way, which may be over the antimeridian. Says how many turns the line has made to the east at its most, and to the west.
template <class Take>
std::pair<int, int> EachPiece(std::span<const platform::MapPoint> points, double away, Take&& take) {
  std::pair<int, int> most{0, 0};
  int turns = 0;
  PlanePoint before = ToPlane(points.front());
  for (const platform::MapPoint& point : points.subspan(1)) {
    const PlanePoint here = ToPlane(point);
    const PlanePoint from = before + QPointF(away + turns * kTurn, 0);
    const double way = here.x() - before.x();
    if (std::abs(way) > kTurn / 2) turns += way < 0 ? 1 : -1;
    most = {std::max(most.first, turns), std::min(most.second, turns)};
    const PlanePoint to = here + QPointF(away + turns * kTurn, 0);
    if (!IsSeam(before, here)) take(from, to);
    before = here;
  }
  return most;
}

/// The runs of a line that can be seen in the box: a border that goes on for hundreds of miles is cut.
template <class Take>
void EachRunIn(const PlaneBox& box, std::span<const platform::MapPoint> points, double away, Take&& take) {
  if (points.empty()) return;
  std::vector<PlanePoint> run;
  const auto end = [&] {
    if (run.size() > 1) take(run);
    run.clear();
  };
  const auto walk = [&](double from) {
    const auto turns = EachPiece(points, from, [&](const PlanePoint& before, const PlanePoint& here) {
      if (!Crosses(before, here, box)) return end();
      if (run.empty() || run.back() != before) {
        end();
        run.push_back(before);
      }
      run.push_back(here);
    });
    end();
    return turns;
  };
  // Of a line over the antimeridian that begins on one side, what lies on the other is seen there too.
  const std::pair<int, int> turns = walk(away);
  for (int turn = turns.second; turn <= turns.first; ++turn)
    if (turn != 0) walk(away - turn * kTurn);
}

/// Each piece for itself with square ends, which is drawn many times faster and, on lines so thin, looks the same.
void DrawPlain(QPainter& painter, QPen pen, std::span<const QPolygonF> lines) {
  std::vector<QLineF> pieces;
  for (const QPolygonF& line : lines)
    for (qsizetype i = 0; i + 1 < line.size(); ++i) pieces.emplace_back(line[i], line[i + 1]);
  pen.setCapStyle(Qt::SquareCap);
  painter.setPen(pen);
  painter.drawLines(pieces.data(), static_cast<int>(pieces.size()));
}

}  // namespace

TileJob::TileJob(const TileKey& key, qreal ratio, const MapLook& look, platform::MapGround& ground)
    : key_(key), box_(key.Box()), unitsPerPixel_(zoom::UnitsPerPixel(key.step)), look_(look), ground_(ground) {
  const int side = qRound(TileKey::kSide * ratio);
  tile_.picture = QImage(side, side, QImage::Format_RGB32);
  tile_.picture.setDevicePixelRatio(ratio);
  tile_.picture.fill(look_.Land());
}

bool TileJob::Slice() { return Read() || Draw(); }

/// One kind at a time. False when all have been read before.
bool TileJob::Read() {
  while (nextRead_ < kKinds) {
    const auto kind = static_cast<MapLine>(nextRead_++);
    if (!MapLook::Draws(kind, unitsPerPixel_)) continue;
    const double margin = kMargin * unitsPerPixel_;
    const PlaneBox around = box_.adjusted(-margin, -margin, margin, margin);
    const double resolution = unitsPerPixel_ * FeetPerUnit(box_.center()) / FeetPerUnit({0, 0});
    for (const EarthPart& part : PartsOf(around)) {
      ground_.Lines(kind, ToEarth(part.box), resolution, [&](MapLine taken, std::span<const platform::MapPoint> points, const std::string& name) {
        TakeLine(taken, points, part.away, name);
      });
    }
    return true;
  }
  if (strokes_.empty()) PlanStrokes();
  return false;
}

void TileJob::TakeLine(MapLine kind, std::span<const platform::MapPoint> points, double away, const std::string& name) {
  const double margin = kMargin * unitsPerPixel_;
  EachRunIn(box_.adjusted(-margin, -margin, margin, margin), points, away, [&](const std::vector<PlanePoint>& run) {
    QPolygonF line;
    line.reserve(static_cast<qsizetype>(run.size()));
    for (const PlanePoint& point : run) line.append((point - box_.topLeft()) / unitsPerPixel_);
    lines_.at(static_cast<std::size_t>(kind)).push_back(std::move(line));
  });
  if (name.empty() || !MapLook::Names(kind, unitsPerPixel_)) return;
  EachRunIn(box_, points, away, [&](const std::vector<PlanePoint>& run) { tile_.names.push_back({kind, name, run}); });
}

/// Borders below; then the edges of all roads, and on them the roads, the greatest last: so crossings are open.
void TileJob::PlanStrokes() {
  const auto plan = [this](MapLine kind, QPen pen) {
    if (!lines_.at(static_cast<std::size_t>(kind)).empty() && pen.style() != Qt::NoPen) strokes_.push_back({kind, std::move(pen)});
  };
  for (const MapLine border : {MapLine::County, MapLine::State}) plan(border, look_.Fill(border, unitsPerPixel_));
  constexpr std::array roads{MapLine::Path, MapLine::Street, MapLine::Road, MapLine::MainRoad, MapLine::Highway};
  for (const MapLine road : roads) plan(road, look_.Outline(road, unitsPerPixel_));
  for (const MapLine road : roads) plan(road, look_.Fill(road, unitsPerPixel_));
}

bool TileJob::Draw() {
  if (stroke_ >= strokes_.size()) return false;
  const Stroke& stroke = strokes_[stroke_];
  const std::vector<QPolygonF>& lines = lines_.at(static_cast<std::size_t>(stroke.kind));
  const std::size_t end = std::min(lines.size(), drawn_ + kLinesAtOnce);
  QPainter painter(&tile_.picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(stroke.pen);
  if (stroke.pen.style() == Qt::SolidLine && stroke.pen.widthF() <= kPlainJoints) {
    DrawPlain(painter, stroke.pen, {lines.data() + drawn_, end - drawn_});
  } else {
    QPainterPath path;
    for (std::size_t i = drawn_; i < end; ++i) path.addPolygon(lines[i]);
    painter.drawPath(path);
  }
  drawn_ = end;
  if (drawn_ == lines.size()) {
    ++stroke_;
    drawn_ = 0;
  }
  return stroke_ < strokes_.size();
}

}  // namespace desktop
