#include "desktop/map/pin_layer.h"

#include <QImageReader>
#include <QLocale>
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "desktop/toolkit/toolkit.h"

namespace desktop {

namespace {

/// How large the cells may be, in pixels, of which the pins are one sign: first those where pins only cover each other, for a map that
/// is zoomed in; then such that a glance takes the signs in.
constexpr double kNearCell = 16;
constexpr double kHeapCell = 48;
constexpr double kLargeCell = 88;
constexpr double kNear = 3;  // units a pixel from which on a map is zoomed in
constexpr std::size_t kMostSigns = 250;
constexpr int kLargestPicture = 48;  // pixels
constexpr std::size_t kMostLabels = 150;

QString CountText(std::size_t count) { return QLocale(QLocale::English, QLocale::UnitedStates).toString(static_cast<qulonglong>(count)); }

/// A picture without transparency of its own has the colour of its first corner around the pin.
QPixmap ReadPicture(const QString& file) {
  QImageReader reader(file);
  QImage picture = reader.read();
  if (picture.isNull()) return {};
  if (!picture.hasAlphaChannel()) {
    const QRgb around = picture.pixel(0, 0);
    picture = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x)
        if (picture.pixel(x, y) == around) picture.setPixel(x, y, 0);
  }
  // A picture that was drawn for a finer screen says so.
  constexpr double kScreen = 96 / 0.0254;  // dots a metre
  const double density = std::max(1.0, std::round(picture.dotsPerMeterX() / kScreen));
  const int most = static_cast<int>(kLargestPicture * density);
  const bool large = std::max(picture.width(), picture.height()) > most;
  if (large) picture = picture.scaled(most, most, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  picture.setDevicePixelRatio(density);
  return QPixmap::fromImage(picture);
}

}  // namespace

void PinLayer::Follow(const std::vector<platform::MapPin>* pins) {
  static const std::vector<platform::MapPin> none;
  pins_ = pins;
  index_.Build(pins != nullptr ? *pins : none);
  signs_.clear();
  labels_.clear();
}

const QPixmap& PinLayer::PictureOf(const std::string& file) {
  const QString name = ToShown(file);
  auto found = pictures_.find(name);
  if (found == pictures_.end()) found = pictures_.insert(name, name.isEmpty() ? QPixmap() : ReadPicture(name));
  return *found;
}

double PinLayer::CellFor(const GroundFrame& frame) {
  const auto isEnough = [&](double cell) { return FindSigns(frame, cell, kMostSigns).size() > kMostSigns; };
  if (frame.sight.UnitsPerPixel() <= kNear && !isEnough(kNearCell)) return kNearCell;
  return isEnough(kHeapCell) ? kLargeCell : kHeapCell;
}

std::vector<PinLayer::Sign> PinLayer::FindSigns(const GroundFrame& frame, double cell, std::size_t most) {
  std::vector<Sign> signs;
  if (pins_ == nullptr || pins_->empty()) return signs;
  const double unitsPerPixel = frame.sight.UnitsPerPixel();
  const double reach = 60 * unitsPerPixel;  // of a sign that is not wholly out of sight
  // The ground may be seen twice when the map is far; a pin is not.
  const double west = frame.sight.middle.x() - kTurn / 2;
  for (const EarthPart& part : PartsOf(frame.sight.Box(frame.size).adjusted(-reach, -reach, reach, reach))) {
    index_.EachHeap(part.box, cell * unitsPerPixel, [&](const PinIndex::Heap& heap) {
      if (signs.size() > most) return;
      const PlanePoint middle = heap.middle + PlanePoint(part.away, 0);
      if (middle.x() >= west && middle.x() < west + kTurn) signs.push_back(SignOf(heap, frame.sight.ToScreen(middle, frame.size)));
    });
  }
  return signs;
}

PinLayer::Sign PinLayer::SignOf(const PinIndex::Heap& heap, const QPointF& at) {
  Sign sign{heap, {}};
  if (sign.IsHeap()) {
    const QSizeF size = drawn_.HeapSize(CountText(heap.count));
    sign.box = {{at.x() - size.width() / 2, at.y() - size.height() / 2}, size};
  } else {
    const QPixmap& picture = PictureOf(PinOf(sign).picture);
    const QSizeF size = picture.isNull() ? SignPictures::kPin : picture.deviceIndependentSize();
    sign.box = {{at.x() - size.width() / 2, at.y() - size.height()}, size};
  }
  return sign;
}

std::vector<QRectF> PinLayer::BoxesIn(const GroundFrame& wider, const GroundFrame& seen, const MapLook& look, bool labels) {
  drawn_.Use(look, seen.ratio);
  const double cell = CellFor(seen);
  std::vector<Sign> signs = FindSigns(wider, cell);
  PutInFrontLast(signs);
  std::vector<QRectF> boxes;
  for (const Sign& sign : signs) boxes.push_back(sign.box);
  if (!labels) return boxes;
  // Those that are seen stand as they are painted there; around, as they will most likely.
  std::vector<Sign> seenSigns = FindSigns(seen, cell);
  PutInFrontLast(seenSigns);
  const QPointF corner = (seen.sight.Box(seen.size).topLeft() - wider.sight.Box(wider.size).topLeft()) / seen.sight.UnitsPerPixel();
  const QRectF inside(corner, seen.size);
  for (const Label& label : PlaceLabels(seenSigns, seen.size)) boxes.push_back(label.box.translated(corner));
  for (const Label& label : PlaceLabels(signs, wider.size))
    if (!inside.contains(label.box)) boxes.push_back(label.box);
  return boxes;
}

/// As things that stand on a table are seen.
void PinLayer::PutInFrontLast(std::vector<Sign>& signs) {
  std::ranges::stable_sort(signs, {}, [](const Sign& sign) { return sign.box.bottom(); });
}

void PinLayer::Paint(QPainter& painter, const GroundFrame& frame, const MapLook& look, bool labels) {
  drawn_.Use(look, frame.ratio);
  signs_ = FindSigns(frame, CellFor(frame));
  PutInFrontLast(signs_);
  labels_ = labels ? PlaceLabels(signs_, frame.size) : std::vector<Label>();
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  for (const Label& label : labels_) drawn_.PaintLabel(painter, label.box.topLeft(), label.text);
  for (const Sign& sign : signs_) {
    if (sign.IsHeap()) {
      drawn_.PaintHeap(painter, sign.box.topLeft(), CountText(sign.heap.count));
    } else if (const QPixmap& picture = PictureOf(PinOf(sign).picture); !picture.isNull()) {
      painter.drawPixmap(sign.box, picture, QRectF(picture.rect()));
    } else {
      drawn_.PaintPin(painter, sign.box.topLeft());
    }
  }
}

/// Beside the pin, else on its other side, below or above; one that has no place without covering another is left out.
std::vector<PinLayer::Label> PinLayer::PlaceLabels(const std::vector<Sign>& signs, const QSizeF& room) {
  std::vector<Label> labels;
  Occupancy taken(room);
  for (const Sign& sign : signs) taken.Take(sign.box);
  for (const Sign& sign : signs) {
    if (sign.IsHeap()) continue;
    if (labels.size() >= kMostLabels) break;
    const QString text = ToShown(PinOf(sign).text).trimmed();
    if (text.isEmpty()) continue;
    const QSizeF size = drawn_.LabelSize(text);
    const QRectF& pin = sign.box;
    const double top = pin.top() + 1, middle = pin.center().x() - size.width() / 2;
    for (const QPointF& corner : {QPointF(pin.right() + 2, top), QPointF(pin.left() - 2 - size.width(), top),
                                  QPointF(middle, pin.bottom() + 3), QPointF(middle, pin.top() - 2 - size.height())}) {
      const QRectF box(corner, size);
      // A pin's own place is taken and touches no side of its label.
      if (!taken.Free(box.adjusted(1, 0, -1, 0))) continue;
      taken.Take(box);
      labels.push_back({text, box});
      break;
    }
  }
  return labels;
}

const PinLayer::Sign* PinLayer::SignAt(const QPointF& at) const {
  for (auto sign = signs_.rbegin(); sign != signs_.rend(); ++sign)
    if (sign->box.contains(at)) return &*sign;
  return nullptr;
}

std::vector<std::size_t> PinLayer::PinsOf(const Sign& sign, std::size_t most) const {
  std::vector<std::size_t> pins;
  for (std::size_t i = 0; i < sign.heap.count && i < most; ++i) pins.push_back(index_.PinAt(sign.heap.first + i));
  return pins;
}

}  // namespace desktop
