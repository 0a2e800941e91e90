#include "desktop/map/sign_pictures.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace desktop {

namespace {

constexpr qsizetype kMostKept = 3000;

void DrawPin(QPainter& painter, const QRectF& box, const MapLook& look) {
  const double radius = box.width() / 2 - 1, middle = box.center().x(), tip = box.bottom() - 1;
  const QPointF head(middle, box.top() + 1 + radius);
  QPainterPath drop;
  drop.moveTo(middle, tip);
  drop.cubicTo(middle - radius * 0.3, head.y() + radius * 1.2, head.x() - radius, head.y() + radius * 0.7, head.x() - radius, head.y());
  drop.arcTo(QRectF(head.x() - radius, head.y() - radius, 2 * radius, 2 * radius), 180, -180);
  drop.cubicTo(head.x() + radius, head.y() + radius * 0.7, middle + radius * 0.3, head.y() + radius * 1.2, middle, tip);
  painter.setPen(QPen(look.Halo(), 1.2));
  painter.setBrush(look.Sign());
  painter.drawPath(drop);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::white);
  painter.drawEllipse(head, radius * 0.38, radius * 0.38);
}

}  // namespace

void SignPictures::Use(const MapLook& look, qreal ratio) {
  if (look == look_ && ratio == ratio_ && kept_.size() < kMostKept) return;
  look_ = look;
  ratio_ = ratio;
  kept_.clear();
}

QSizeF SignPictures::HeapSize(const QString& count) const {
  const QFontMetricsF metrics(look_.font);
  const double height = std::ceil(metrics.height() + 8);
  return {std::max(height, std::ceil(metrics.horizontalAdvance(count) + 14)), height};
}

QSizeF SignPictures::LabelSize(const QString& text) const {
  const QFontMetricsF metrics(look_.font);
  return {std::ceil(metrics.horizontalAdvance(text) + 8), std::ceil(metrics.height() + 2)};
}

void SignPictures::Paint(QPainter& painter, const QPointF& corner, const QString& key, const QSizeF& size, const Draw& draw) {
  auto found = kept_.find(key);
  if (found == kept_.end()) {
    QPixmap picture((size * ratio_).toSize());
    picture.setDevicePixelRatio(ratio_);
    picture.fill(Qt::transparent);
    QPainter inside(&picture);
    inside.setRenderHint(QPainter::Antialiasing);
    inside.setFont(look_.font);
    draw(inside, QRectF({0, 0}, size));
    inside.end();
    found = kept_.insert(key, picture);
  }
  painter.drawPixmap(QPointF(std::round(corner.x() * ratio_), std::round(corner.y() * ratio_)) / ratio_, *found);
}

void SignPictures::PaintPin(QPainter& painter, const QPointF& corner) {
  Paint(painter, corner, "", kPin, [this](QPainter& inside, const QRectF& box) { DrawPin(inside, box, look_); });
}

void SignPictures::PaintHeap(QPainter& painter, const QPointF& corner, const QString& count) {
  Paint(painter, corner, "#" + count, HeapSize(count), [&](QPainter& inside, const QRectF& box) {
    const QRectF round = box.adjusted(1, 1, -1, -1);
    inside.setPen(QPen(look_.Halo(), 2));
    inside.setBrush(look_.Sign());
    inside.drawRoundedRect(round, round.height() / 2, round.height() / 2);
    inside.setPen(Qt::white);
    inside.drawText(box, Qt::AlignCenter, count);
  });
}

void SignPictures::PaintLabel(QPainter& painter, const QPointF& corner, const QString& text) {
  Paint(painter, corner, "=" + text, LabelSize(text), [&](QPainter& inside, const QRectF& box) {
    QColor sheet = look_.Sheet();
    sheet.setAlphaF(0.9F);
    inside.setPen(Qt::NoPen);
    inside.setBrush(sheet);
    inside.drawRoundedRect(box, 3, 3);
    inside.setPen(look_.Text());
    inside.drawText(box, Qt::AlignCenter, text);
  });
}

}  // namespace desktop
