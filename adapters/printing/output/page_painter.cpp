#include "printing/output/page_painter.h"

#include <QTextLayout>
#include <algorithm>

namespace printing {

namespace {

constexpr double kPointsPerInch = 72;
/// The size in which the toolkit lays foreign texts out before they are scaled.
constexpr int kLayoutPixels = 100;

QColor ToColour(const Color& color) { return {color.red, color.green, color.blue}; }

}  // namespace

std::string WithPageCount(const TextItem& item, std::int64_t pageCount) {
  if (!item.hasPageCount) return item.text;
  const std::string count = pageCount > 0 ? std::to_string(pageCount) : "\xE2\x80\xA6";
  std::string text;
  for (const char c : item.text) {
    if (c == kPageCountMark) {
      text += count;
    } else {
      text += c;
    }
  }
  return text;
}

void PagePainter::Paint(QPainter& painter, const Page& page, double unit, std::int64_t pageCount) {
  unit_ = unit;
  pageCount_ = pageCount;
  for (const PageItem& item : page.items) std::visit([&](const auto& one) { Paint(painter, one); }, item);
}

void PagePainter::Paint(QPainter& painter, const BoxItem& box) const {
  const QRectF place(X(box.x), Y(box.y), Length(box.width), Length(box.height));
  if (box.fill) painter.fillRect(place, ToColour(*box.fill));
  if (box.penWidth <= 0) return;
  QPen pen(ToColour(box.color), Length(box.penWidth / kPointsPerInch));
  pen.setJoinStyle(Qt::MiterJoin);
  painter.setPen(pen);
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(place);
}

void PagePainter::Paint(QPainter& painter, const LineItem& line) const {
  if (line.penWidth <= 0) return;
  QPen pen(ToColour(line.color), Length(line.penWidth / kPointsPerInch));
  pen.setCapStyle(Qt::FlatCap);
  painter.setPen(pen);
  painter.drawLine(QPointF(X(line.x1), Y(line.y1)), QPointF(X(line.x2), Y(line.y2)));
}

void PagePainter::Paint(QPainter& painter, const TextItem& item) {
  if (item.text.empty() || item.style.points <= 0) return;
  const std::string counted = item.hasPageCount ? WithPageCount(item, pageCount_) : std::string();
  const std::string& text = item.hasPageCount ? counted : item.text;
  const double pixels = Length(item.style.points / kPointsPerInch);
  const double width = fonts_.Width(text, item.style) * pixels;
  double x = X(item.x);
  if (item.style.align == Align::Right) x += Length(item.width) - width;
  if (item.style.align == Align::Center) x += (Length(item.width) - width) / 2;
  const QPointF baseline(x, Y(item.y) + fonts_.Ascent(item.style) * pixels);
  painter.setPen(ToColour(item.style.color));
  if (!fonts_.Glyphs(text, item.style, glyphs_, places_)) {
    PaintByToolkit(painter, item, text, baseline, pixels, width);
    return;
  }
  positions_.clear();
  for (const double place : places_) positions_.emplace_back(place * pixels, 0);
  QGlyphRun run;
  run.setRawFont(fonts_.Sized(item.style, pixels));
  run.setRawData(glyphs_.data(), positions_.data(), static_cast<int>(glyphs_.size()));
  painter.drawGlyphRun(baseline, run);
}

/// Texts of other scripts, with the fonts that there are. What comes out wider than the room that was kept for it is made narrower.
void PagePainter::PaintByToolkit(QPainter& painter, const TextItem& item, const std::string& text, QPointF baseline, double pixels,
                                 double width) const {
  QFont font(FontSet::Family());
  font.setPixelSize(kLayoutPixels);
  font.setBold(item.style.bold);
  font.setItalic(item.style.italic);
  font.setKerning(false);
  font.setHintingPreference(QFont::PreferNoHinting);
  QTextLayout layout(QString::fromStdString(text), font);
  layout.beginLayout();
  QTextLine line = layout.createLine();
  line.setNumColumns(static_cast<int>(text.size()));
  layout.endLayout();
  const double natural = line.naturalTextWidth() * pixels / kLayoutPixels;
  if (natural <= 0) return;
  const double room = std::max(width, std::min(Length(item.width), natural));
  const double squeeze = std::min(1.0, room / natural);
  double x = baseline.x();
  if (item.style.align == Align::Right) x += width - natural * squeeze;
  if (item.style.align == Align::Center) x += (width - natural * squeeze) / 2;
  painter.save();
  painter.translate(x, baseline.y());
  painter.scale(squeeze * pixels / kLayoutPixels, pixels / kLayoutPixels);
  layout.draw(&painter, QPointF(-line.x(), -line.ascent()));
  painter.restore();
}

}  // namespace printing
