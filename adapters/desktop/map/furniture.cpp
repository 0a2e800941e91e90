#include "desktop/map/furniture.h"

#include <QFontMetricsF>
#include <QLocale>
#include <algorithm>
#include <cmath>

namespace desktop::furniture {

namespace {

constexpr double kAway = 10;  // pixels from the edges
constexpr double kFeetInMile = 5280;

/// 1, 2 or 5 with zeros, at most so much.
double RoundBelow(double most) {
  const double power = std::pow(10, std::floor(std::log10(most)));
  for (const double lead : {5.0, 2.0})
    if (lead * power <= most) return lead * power;
  return power;
}

QFont Small(const MapLook& look) { return look.FontOf(platform::MapText::Zip); }

QColor Glass(const MapLook& look) {
  QColor glass = look.Sheet();
  glass.setAlphaF(0.92F);  // a name below is not read with it
  return glass;
}

}  // namespace

ScaleBar ScaleBarFor(double feetPerPixel, double mostPixels) {
  const QLocale english(QLocale::English, QLocale::UnitedStates);
  const double most = feetPerPixel * mostPixels;
  if (most < kFeetInMile) {
    const double feet = RoundBelow(std::max(most, 1.0));
    return {feet / feetPerPixel, QObject::tr("%1 ft").arg(english.toString(feet, 'f', 0))};
  }
  const double miles = RoundBelow(most / kFeetInMile);
  return {miles * kFeetInMile / feetPerPixel, QObject::tr(miles == 1 ? "%1 mile" : "%1 miles").arg(english.toString(miles, 'f', 0))};
}

void PaintScale(QPainter& painter, const GroundFrame& frame, const MapLook& look) {
  const ScaleBar bar = ScaleBarFor(FeetPerUnit(frame.sight.middle) * frame.sight.UnitsPerPixel(), 140);
  painter.setFont(Small(look));
  const QFontMetricsF metrics(painter.font());
  const double height = metrics.height() + 12;
  const double width = std::max(bar.pixels, metrics.horizontalAdvance(bar.text)) + 12;
  const QRectF box(kAway, frame.size.height() - kAway - height, width, height);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Glass(look));
  painter.drawRoundedRect(box, 4, 4);
  painter.setPen(look.Text());
  painter.drawText(QPointF(box.left() + 6, box.top() + 3 + metrics.ascent()), bar.text);
  const double left = box.left() + 6, right = left + bar.pixels, bottom = box.bottom() - 5, top = bottom - 4;
  painter.setPen(QPen(look.Text(), 1.4));
  painter.drawPolyline(QPolygonF{{left, top}, {left, bottom}, {right, bottom}, {right, top}});
}

void PaintNotices(QPainter& painter, const GroundFrame& frame, const MapLook& look, const QStringList& notices) {
  if (notices.isEmpty()) return;
  painter.setFont(Small(look));
  const QString text = notices.join('\n');
  const QFontMetricsF metrics(painter.font());
  const QSizeF size = metrics.size(0, text) + QSizeF(10, 4);
  const QRectF box(frame.size.width() - size.width() - 1, frame.size.height() - size.height() - 1, size.width(), size.height());
  painter.fillRect(box, Glass(look));
  painter.setPen(look.Text());
  painter.drawText(box, Qt::AlignCenter, text);
}

void PaintComplaint(QPainter& painter, const GroundFrame& frame, const MapLook& look, const QString& complaint) {
  if (complaint.isEmpty()) return;
  painter.setFont(look.font);
  const QRectF room(kAway, kAway, frame.size.width() - 2 * kAway, frame.size.height() / 3);
  constexpr int kFlags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;
  const QRectF box = painter.boundingRect(room.adjusted(10, 6, -10, -6), kFlags, complaint).adjusted(-10, -6, 10, 6);
  painter.setPen(QPen(QColor(look.dark ? "#b98b2f" : "#d9a93a"), 1));
  painter.setBrush(QColor(look.dark ? "#463a1c" : "#fff6d9"));
  painter.drawRoundedRect(box, 5, 5);
  painter.setPen(look.Text());
  painter.drawText(box.adjusted(10, 6, -10, -6), kFlags, complaint);
}

void PaintBand(QPainter& painter, const QRectF& band, const MapLook& look) {
  QColor inside = look.Sign();
  inside.setAlphaF(0.16F);
  painter.setPen(QPen(look.Sign(), 1.5));
  painter.setBrush(inside);
  painter.drawRect(band);
}

void PaintFocus(QPainter& painter, const GroundFrame& frame, const MapLook& look) {
  painter.setPen(QPen(look.Sign(), 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRectF({0, 0}, frame.size).adjusted(1, 1, -1, -1));
}

}  // namespace desktop::furniture
