#include "printing/preview/page_text.h"

#include <algorithm>
#include <cmath>

#include "printing/output/page_painter.h"

namespace printing {

namespace {

constexpr double kPointsPerInch = 72;

struct Shown {
  const TextItem* item;
  QString text;
  QRectF box;
};

QRectF BoxOf(const TextItem& item, const QString& text, const TextMeasure& measure) {
  const double size = item.style.points / kPointsPerInch;
  const double width = measure.Width(text.toStdString(), item.style) * size;
  double x = item.x;
  if (item.style.align == Align::Right) x += item.width - width;
  if (item.style.align == Align::Center) x += (item.width - width) / 2;
  return {x, item.y, width, measure.LineHeight(item.style) * size};
}

std::vector<Shown> ShownIn(const Page& page, const QRectF& area, std::int64_t pageCount, const TextMeasure& measure) {
  std::vector<Shown> shown;
  for (const PageItem& item : page.items) {
    const auto* text = std::get_if<TextItem>(&item);
    if (!text) continue;
    QString words = ShownText(item, pageCount);
    const QRectF box = BoxOf(*text, words, measure);
    if (box.intersects(area)) shown.push_back({text, std::move(words), box});
  }
  return shown;
}

}  // namespace

QString ShownText(const PageItem& item, std::int64_t pageCount) {
  const auto* text = std::get_if<TextItem>(&item);
  return text ? QString::fromStdString(WithPageCount(*text, pageCount)) : QString();
}

QList<TextHit> HitsOn(const Page& page, std::int64_t number, const QString& wanted, std::int64_t pageCount) {
  QList<TextHit> hits;
  if (wanted.isEmpty()) return hits;
  for (std::size_t item = 0; item < page.items.size(); ++item) {
    const QString text = ShownText(page.items[item], pageCount);
    for (qsizetype at = text.indexOf(wanted, 0, Qt::CaseInsensitive); at >= 0;
         at = text.indexOf(wanted, at + wanted.size(), Qt::CaseInsensitive))
      hits.push_back({number, static_cast<int>(item), static_cast<int>(at), static_cast<int>(wanted.size())});
  }
  return hits;
}

QRectF PlaceOf(const Page& page, const TextHit& hit, std::int64_t pageCount, const TextMeasure& measure) {
  const auto& item = std::get<TextItem>(page.items[static_cast<std::size_t>(hit.item)]);
  const QString text = ShownText(item, pageCount);
  const QRectF whole = BoxOf(item, text, measure);
  // Where the letters of such a text stand only the toolkit knows.
  if (text.isRightToLeft()) return whole;
  const double size = item.style.points / kPointsPerInch;
  const double before = measure.Width(text.left(hit.from).toStdString(), item.style) * size;
  const double width = measure.Width(text.mid(hit.from, hit.length).toStdString(), item.style) * size;
  return {whole.x() + before, whole.y(), width, whole.height()};
}

QString TextIn(const Page& page, const QRectF& area, std::int64_t pageCount, const TextMeasure& measure) {
  std::vector<Shown> shown = ShownIn(page, area, pageCount, measure);
  const auto line = [](const Shown& one) { return std::lround(one.box.bottom() * kPointsPerInch / 2); };
  std::stable_sort(shown.begin(), shown.end(),
                   [&](const Shown& a, const Shown& b) { return line(a) != line(b) ? line(a) < line(b) : a.box.x() < b.box.x(); });
  QString all;
  for (std::size_t at = 0; at < shown.size(); ++at) {
    if (at > 0) all += line(shown[at]) == line(shown[at - 1]) ? '\t' : '\n';
    all += shown[at].text;
  }
  return all;
}

QList<QRectF> BoxesIn(const Page& page, const QRectF& area, std::int64_t pageCount, const TextMeasure& measure) {
  QList<QRectF> boxes;
  for (const Shown& one : ShownIn(page, area, pageCount, measure)) boxes.push_back(one.box);
  return boxes;
}

}  // namespace printing
