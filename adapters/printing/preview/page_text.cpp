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

/// The characters of an item's text from `from` up to `to` (-1: its end), in inches.
QRectF PlaceIn(const Page& page, int number, int from, int to, std::int64_t pageCount, const TextMeasure& measure) {
  const auto& item = std::get<TextItem>(page.items[static_cast<std::size_t>(number)]);
  const QString text = ShownText(item, pageCount);
  const QRectF whole = BoxOf(item, text, measure);
  // Where the letters of such a text stand only the toolkit knows.
  if (text.isRightToLeft()) return whole;
  const double size = item.style.points / kPointsPerInch;
  const double before = measure.Width(text.left(from).toStdString(), item.style) * size;
  const double width = measure.Width(text.mid(from, to < 0 ? -1 : to - from).toStdString(), item.style) * size;
  return {whole.x() + before, whole.y(), width, whole.height()};
}

/// A field's text in that of its line.
struct Field {
  int item = -1;
  qsizetype start = 0, length = 0;
};

/// The fields of one height from left to right, as one text.
struct Line {
  QString text;
  std::vector<Field> fields;

  /// The one that the character belongs to; a blank between two belongs to the one in front of it.
  const Field& FieldAt(qsizetype at) const {
    const auto behind = std::upper_bound(fields.begin(), fields.end(), at, [](qsizetype place, const Field& field) { return place < field.start; });
    return *(behind - 1);
  }
};

/// About where the letters of an item stand, in units of two points: fields of one row agree, whatever their fonts.
long HeightOf(const TextItem& item) { return std::lround((item.y * kPointsPerInch + item.style.points) / 2); }

std::vector<Line> LinesOf(const Page& page, std::int64_t pageCount) {
  std::vector<int> items;
  for (std::size_t item = 0; item < page.items.size(); ++item)
    if (std::holds_alternative<TextItem>(page.items[item])) items.push_back(static_cast<int>(item));
  const auto at = [&](int item) -> const TextItem& { return std::get<TextItem>(page.items[static_cast<std::size_t>(item)]); };
  std::stable_sort(items.begin(), items.end(), [&](int a, int b) {
    const long left = HeightOf(at(a));
    const long right = HeightOf(at(b));
    return left != right ? left < right : at(a).x < at(b).x;
  });
  std::vector<Line> lines;
  for (std::size_t i = 0; i < items.size(); ++i) {
    const QString text = ShownText(page.items[static_cast<std::size_t>(items[i])], pageCount);
    if (text.isEmpty()) continue;
    const bool goesOn = !lines.empty() && HeightOf(at(lines.back().fields.back().item)) == HeightOf(at(items[i]));
    if (!goesOn) lines.emplace_back();
    Line& line = lines.back();
    if (goesOn) line.text += ' ';
    line.fields.push_back({items[i], line.text.size(), text.size()});
    line.text += text;
  }
  return lines;
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
  for (const Line& line : LinesOf(page, pageCount)) {
    for (qsizetype at = line.text.indexOf(wanted, 0, Qt::CaseInsensitive); at >= 0;
         at = line.text.indexOf(wanted, at + wanted.size(), Qt::CaseInsensitive)) {
      const Field& first = line.FieldAt(at);
      const Field& last = line.FieldAt(at + wanted.size() - 1);
      hits.push_back({number, first.item, static_cast<int>(std::min(at - first.start, first.length)), last.item,
                      static_cast<int>(std::min(at + wanted.size() - last.start, last.length))});
    }
  }
  std::sort(hits.begin(), hits.end(),
            [](const TextHit& a, const TextHit& b) { return a.item != b.item ? a.item < b.item : a.from < b.from; });
  return hits;
}

QRectF PlaceOf(const Page& page, const TextHit& hit, std::int64_t pageCount, const TextMeasure& measure) {
  if (hit.item != hit.lastItem)
    return PlaceIn(page, hit.item, hit.from, -1, pageCount, measure).united(PlaceIn(page, hit.lastItem, 0, hit.to, pageCount, measure));
  return PlaceIn(page, hit.item, hit.from, hit.to, pageCount, measure);
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
