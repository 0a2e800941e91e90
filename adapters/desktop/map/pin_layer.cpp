#include "desktop/map/pin_layer.h"

#include <QFileInfo>
#include <QFontMetricsF>
#include <QImageReader>
#include <QLocale>
#include <QPainterPath>
#include <algorithm>

#include "desktop/toolkit/toolkit.h"

namespace desktop {

namespace {

constexpr double kHeapCell = 72;        // pixels: the largest cell of which the pins are one sign
constexpr double kNearCell = 16;        // the same when zoomed in, where only pins that cover each other are one
constexpr double kNear = 8;             // units a pixel from which on that is so
constexpr QSizeF kPin{18, 24};          // of the pin that is drawn where there is no picture
constexpr int kLargestPicture = 48;     // pixels
constexpr std::size_t kMostLabels = 150;
constexpr std::size_t kMostSignsWithLabels = 400;  // more stand too close for words

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
  const bool large = std::max(picture.width(), picture.height()) > kLargestPicture;
  if (large) picture = picture.scaled(kLargestPicture, kLargestPicture, Qt::KeepAspectRatio, Qt::SmoothTransformation);
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

void PinLayer::FindSigns(const GroundFrame& frame, const MapLook& look) {
  signs_.clear();
  if (pins_ == nullptr || pins_->empty()) return;
  const double unitsPerPixel = frame.sight.UnitsPerPixel();
  const double cell = unitsPerPixel <= kNear ? kNearCell : kHeapCell;
  const QFontMetricsF metrics(look.font);
  constexpr double kReach = 60;  // a sign that is not wholly out of sight
  index_.EachHeap(frame.sight.Box(frame.size).adjusted(-kReach * unitsPerPixel, -kReach * unitsPerPixel, kReach * unitsPerPixel,
                                                       kReach * unitsPerPixel),
                  cell * unitsPerPixel, [&](const PinIndex::Heap& heap) {
                    Sign sign{heap, {}};
                    const QPointF at = frame.sight.ToScreen(heap.middle, frame.size);
                    if (sign.IsHeap()) {
                      const double height = metrics.height() + 8;
                      const double width = std::max(height, metrics.horizontalAdvance(CountText(heap.count)) + 14);
                      sign.box = {at.x() - width / 2, at.y() - height / 2, width, height};
                    } else {
                      const QPixmap& picture = PictureOf(PinOf(sign).picture);
                      const QSizeF size = picture.isNull() ? kPin : QSizeF(picture.size());
                      sign.box = {{at.x() - size.width() / 2, at.y() - size.height()}, size};
                    }
                    signs_.push_back(sign);
                  });
  // Those in front last, as things that stand on a table are seen.
  std::stable_sort(signs_.begin(), signs_.end(), [](const Sign& one, const Sign& other) { return one.box.bottom() < other.box.bottom(); });
}

void PinLayer::Paint(QPainter& painter, const GroundFrame& frame, const MapLook& look, bool labels) {
  labels_.clear();
  FindSigns(frame, look);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  if (labels && signs_.size() <= kMostSignsWithLabels) PaintLabels(painter, frame, look);
  for (const Sign& sign : signs_) {
    if (sign.IsHeap()) {
      PaintHeap(painter, sign, look);
    } else {
      PaintPin(painter, sign, look);
    }
  }
}

void PinLayer::PaintPin(QPainter& painter, const Sign& sign, const MapLook& look) {
  const QPixmap& picture = PictureOf(PinOf(sign).picture);
  if (!picture.isNull()) {
    painter.drawPixmap(sign.box, picture, QRectF(picture.rect()));
    return;
  }
  const double radius = sign.box.width() / 2;
  const QPointF head(sign.box.center().x(), sign.box.top() + radius);
  QPainterPath drop;
  drop.moveTo(sign.box.center().x(), sign.box.bottom());
  drop.cubicTo(head.x() - radius * 0.3, head.y() + radius * 1.2, head.x() - radius, head.y() + radius * 0.7, head.x() - radius, head.y());
  drop.arcTo(QRectF(head.x() - radius, head.y() - radius, 2 * radius, 2 * radius), 180, -180);
  drop.cubicTo(head.x() + radius, head.y() + radius * 0.7, head.x() + radius * 0.3, head.y() + radius * 1.2, sign.box.center().x(),
               sign.box.bottom());
  painter.setPen(QPen(look.Halo(), 1.2));
  painter.setBrush(look.Sign());
  painter.drawPath(drop);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor("#ffffff"));
  painter.drawEllipse(head, radius * 0.38, radius * 0.38);
}

void PinLayer::PaintHeap(QPainter& painter, const Sign& sign, const MapLook& look) {
  painter.setPen(QPen(look.Halo(), 2));
  painter.setBrush(look.Sign());
  painter.drawRoundedRect(sign.box, sign.box.height() / 2, sign.box.height() / 2);
  painter.setPen(QColor("#ffffff"));
  painter.setFont(look.font);
  painter.drawText(sign.box, Qt::AlignCenter, CountText(sign.heap.count));
}

/// Beside the pin, else on its other side, below or above; one that has no place without covering another is left out.
void PinLayer::PaintLabels(QPainter& painter, const GroundFrame& frame, const MapLook& look) {
  Occupancy taken(frame.size);
  for (const Sign& sign : signs_) taken.Take(sign.box);
  painter.setFont(look.font);
  const QFontMetricsF metrics(look.font);
  QColor sheet = look.Sheet();
  sheet.setAlphaF(0.9F);
  for (const Sign& sign : signs_) {
    if (sign.IsHeap()) continue;
    if (labels_.size() >= kMostLabels) return;
    const QString text = ToShown(PinOf(sign).text).trimmed();
    if (text.isEmpty()) continue;
    const QSizeF size(metrics.horizontalAdvance(text) + 8, metrics.height() + 2);
    const QRectF& pin = sign.box;
    const double top = pin.top() + 1, middle = pin.center().x() - size.width() / 2;
    for (const QPointF& corner : {QPointF(pin.right() + 2, top), QPointF(pin.left() - 2 - size.width(), top),
                                  QPointF(middle, pin.bottom() + 3), QPointF(middle, pin.top() - 2 - size.height())}) {
      const QRectF box(corner, size);
      // A pin's own place is taken and touches no side of its label.
      if (!taken.Free(box.adjusted(1, 0, -1, 0))) continue;
      taken.Take(box);
      painter.setPen(Qt::NoPen);
      painter.setBrush(sheet);
      painter.drawRoundedRect(box, 3, 3);
      painter.setPen(look.Text());
      painter.drawText(box, Qt::AlignCenter, text);
      labels_.push_back({text, box});
      break;
    }
  }
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
