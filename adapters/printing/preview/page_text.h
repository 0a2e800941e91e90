#pragma once

#include <QList>
#include <QRectF>
#include <QString>
#include <string>

#include "printing/layout/page.h"

namespace printing {

/// Where something was found: the item of the page and the characters (UTF-16) in its text. What goes over several fields of one line
/// begins in `item` at `from` and ends in `lastItem` in front of `to`.
struct TextHit {
  std::int64_t page = -1;
  int item = -1;
  int from = 0;
  int lastItem = -1;
  int to = 0;
  bool operator==(const TextHit&) const = default;
};

/// The text of an item as it is shown; empty for lines and boxes.
QString ShownText(const PageItem& item, std::int64_t pageCount);

/// All places of `wanted` on a page, in its order; case doesn't count, and the fields of a line are one text with a blank between them.
QList<TextHit> HitsOn(const Page& page, std::int64_t number, const QString& wanted, std::int64_t pageCount);

/// The box of what was found, in inches.
QRectF PlaceOf(const Page& page, const TextHit& hit, std::int64_t pageCount, const TextMeasure& measure);

/// The texts that `area` (inches) touches, as they are read: lines from above to below, a tab between the texts of one line.
QString TextIn(const Page& page, const QRectF& area, std::int64_t pageCount, const TextMeasure& measure);
/// Their boxes.
QList<QRectF> BoxesIn(const Page& page, const QRectF& area, std::int64_t pageCount, const TextMeasure& measure);

}  // namespace printing
