#include "desktop/list/list_painter.h"

#include <QStyle>
#include <QStyleOptionViewItem>
#include <algorithm>

#include "desktop/look/theme.h"
#include "desktop/toolkit/toolkit.h"
#include "platform/values/error.h"

namespace desktop {

namespace {
constexpr int kPadding = 6;
constexpr int kCursorInset = 1;

QColor Soft(QColor colour, float strength) {
  colour.setAlphaF(strength);
  return colour;
}
}  // namespace

void ListPainter::Paint() {
  const QWidget& viewport = *list_.viewport();
  const std::int64_t first = list_.FirstShown();
  int top = static_cast<int>(first * list_.rowHeight_ - list_.TopPixel());
  const std::int64_t count = list_.rows_.Count();
  for (std::int64_t ordinal = first; ordinal < count && top < viewport.height(); ++ordinal, top += list_.rowHeight_) PaintRow(ordinal, top);
  PaintLines();
  if (list_.hasList_ && count == 0) PaintEmpty();
}

void ListPainter::PaintRow(std::int64_t ordinal, int top) {
  const int width = list_.viewport()->width();
  ShownRow* row = list_.rows_.At(ordinal);
  PaintBackground(ordinal, row, QRect(0, top, width, list_.rowHeight_));
  if (!row) return;
  const ColumnLayout& columns = list_.columns_;
  const int fixedRight = list_.MarkerWidth() + columns.FixedWidth();
  if (row->Readable()) {
    const bool standsOut = StandsOut(*row);
    painter_.save();
    if (standsOut) {
      QFont bold = painter_.font();
      bold.setBold(true);
      painter_.setFont(bold);
    }
    painter_.save();
    painter_.setClipRect(QRect(fixedRight, top, width - fixedRight, list_.rowHeight_));
    PaintCells(ordinal, *row, top, columns.FixedCount(), columns.PlaceCount());
    painter_.restore();
    PaintCells(ordinal, *row, top, 0, columns.FixedCount());
    painter_.restore();
    if (standsOut) PaintEmphasis(ordinal, top);
  }
  if (list_.MarkerWidth() > 0) PaintMarker(row, ordinal == list_.currentOrdinal_, top);
}

void ListPainter::PaintBackground(std::int64_t ordinal, const ShownRow* row, const QRect& rect) {
  const QPalette& palette = list_.palette();
  painter_.fillRect(rect, palette.color(ordinal % 2 == 0 ? QPalette::Base : QPalette::AlternateBase));
  if (row && !row->Readable()) painter_.fillRect(rect, Soft(palette.color(QPalette::Disabled, QPalette::Text), 0.18F));
  const bool marked = row && list_.grid_->SelBookmarks.Contains(row->row.bookmark);
  const QColor accent = palette.color(QPalette::Active, QPalette::Highlight);
  if (marked) painter_.fillRect(rect, Soft(accent, 0.22F));
  if (ordinal != list_.currentOrdinal_) return;
  if (list_.hasFocus() || list_.Editor()) {
    painter_.fillRect(rect, accent);
  } else {
    painter_.fillRect(rect, Soft(accent, 0.30F));
  }
}

QColor ListPainter::RowTextColour(const ShownRow&, bool current) const {
  const QPalette& palette = list_.palette();
  if (!list_.isEnabled()) return palette.color(QPalette::Disabled, QPalette::Text);
  if (current && (list_.hasFocus() || list_.Editor())) return palette.color(QPalette::Active, QPalette::HighlightedText);
  return palette.color(QPalette::Active, QPalette::Text);
}

void ListPainter::PaintMarker(const ShownRow* row, bool current, int top) {
  const QRect rect(0, top, list_.MarkerWidth(), list_.rowHeight_);
  const QPalette& palette = list_.palette();
  painter_.fillRect(rect, palette.color(QPalette::Button));
  const QColor accent = palette.color(QPalette::Active, QPalette::Highlight);
  if (row && list_.grid_->SelBookmarks.Contains(row->row.bookmark)) {
    painter_.fillRect(QRect(rect.left(), rect.top(), 4, rect.height()), accent);
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(QPen(accent, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF middle = QRectF(rect).center() + QPointF(2, 0);
    painter_.drawPolyline(QPolygonF({middle + QPointF(-4, 0), middle + QPointF(-1, 3.5), middle + QPointF(4.5, -3.5)}));
    painter_.setRenderHint(QPainter::Antialiasing, false);
  } else if (current) {
    QStyleOption option;
    option.initFrom(&list_);
    option.rect = QRect(0, 0, 9, 9);
    option.rect.moveCenter(rect.center());
    list_.style()->drawPrimitive(QStyle::PE_IndicatorArrowRight, &option, &painter_, &list_);
  }
  painter_.setPen(theme::LineColour(palette));
  painter_.drawLine(rect.topRight(), rect.bottomRight());
}

bool ListPainter::StandsOut(const ShownRow& row) const {
  try {
    return !list_.EmphasisOf(row).isEmpty();
  } catch (const std::exception&) {
    return false;  // a number beyond all numbers
  }
}

/// A bar at the left edge, besides the bold texts.
void ListPainter::PaintEmphasis(std::int64_t ordinal, int top) {
  const QPalette& palette = list_.palette();
  const bool onAccent = ordinal == list_.currentOrdinal_ && (list_.hasFocus() || list_.Editor());
  painter_.fillRect(QRect(list_.MarkerWidth(), top + 2, 3, list_.rowHeight_ - 4),
                    palette.color(QPalette::Active, onAccent ? QPalette::HighlightedText : QPalette::Highlight));
}

QString ListPainter::TextOf(std::int64_t ordinal, ShownRow& row, int column) {
  try {
    if (ordinal == list_.currentOrdinal_ && list_.grid_->DataChanged() && !list_.listChanged_)
      return ToShown(list_.grid_->SeenText(column, list_.grid_->ColumnValue(column)));
    const auto at = static_cast<std::size_t>(column);
    if (row.known.size() <= at) {
      row.known.resize(static_cast<std::size_t>(list_.grid_->ColumnCount()), false);
      row.texts.resize(row.known.size());
    }
    if (!row.known[at]) {
      const int field = at < list_.fieldOf_.size() ? list_.fieldOf_[at] : -1;
      const bool there = field >= 0 && static_cast<std::size_t>(field) < row.row.cells.size();
      row.texts[at] = there ? ToShown(list_.grid_->SeenText(column, row.row.cells[static_cast<std::size_t>(field)])) : QString();
      row.texts[at].replace(QChar('\n'), QChar(' ')).replace(QChar('\r'), QChar(' '));
      row.known[at] = true;
    }
    return row.texts[at];
  } catch (const std::exception&) {
    return {};
  }
}

void ListPainter::PaintCells(std::int64_t ordinal, ShownRow& row, int top, int firstPlace, int endPlace) {
  const ColumnLayout& columns = list_.columns_;
  const int offset = list_.HorizontalOffset();
  const bool current = ordinal == list_.currentOrdinal_;
  const QRect area = list_.viewport()->rect();
  const QFontMetrics metrics = painter_.fontMetrics();
  const QColor colour = RowTextColour(row, current);
  for (int place = firstPlace; place < endPlace; ++place) {
    const int column = columns.ColumnAt(place);
    const QRect cell(list_.MarkerWidth() + columns.ShownLeft(place, offset), top, columns.Width(column), list_.rowHeight_);
    if (cell.right() < area.left() || cell.left() > area.right()) continue;
    QString text = TextOf(ordinal, row, column);
    if (list_.grid_->Column(column).checkBox) {
      PaintCheck(cell, text == QStringLiteral("True"));
    } else if (!text.isEmpty()) {
      const QRect inner = cell.adjusted(kPadding, 0, -kPadding, 0);
      if (metrics.horizontalAdvance(text) > inner.width()) text = metrics.elidedText(text, Qt::ElideRight, inner.width());
      painter_.setPen(colour);
      const auto side = list_.IsFigure(column) ? Qt::AlignRight : Qt::AlignLeft;
      painter_.drawText(inner, static_cast<int>(side) | Qt::AlignVCenter | Qt::TextSingleLine, text);
    }
    if (current && column == list_.CursorColumn() && list_.hasFocus()) {
      painter_.setPen(QPen(colour, 1, Qt::DotLine));
      painter_.drawRect(cell.adjusted(kCursorInset, kCursorInset, -kCursorInset - 2, -kCursorInset - 1));
    }
  }
}

void ListPainter::PaintCheck(const QRect& cell, bool on) {
  QStyleOptionViewItem option;
  option.initFrom(&list_);
  option.rect = list_.CheckRect(cell);
  option.state &= ~QStyle::State_HasFocus;
  option.state |= on ? QStyle::State_On : QStyle::State_Off;
  list_.style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &option, &painter_, &list_);
}

void ListPainter::PaintLines() {
  const ColumnLayout& columns = list_.columns_;
  const auto rows = list_.rows_.Count() - list_.FirstShown();
  const int bottom =
      static_cast<int>(std::min<std::int64_t>(list_.viewport()->height(), rows * list_.rowHeight_ - list_.TopPixel() % list_.rowHeight_));
  const int fixedRight = list_.MarkerWidth() + columns.FixedWidth();
  painter_.setPen(theme::LineColour(list_.palette()));
  for (int place = 0; place < columns.PlaceCount(); ++place) {
    const int right = list_.MarkerWidth() + columns.ShownLeft(place, list_.HorizontalOffset()) + columns.Width(columns.ColumnAt(place)) - 1;
    if (columns.IsFixed(place) || right > fixedRight) painter_.drawLine(right, 0, right, bottom);
  }
  if (columns.FixedCount() == 0) return;
  painter_.setPen(list_.palette().color(QPalette::Mid));
  painter_.drawLine(fixedRight - 1, 0, fixedRight - 1, list_.viewport()->height());
}

void ListPainter::PaintEmpty() {
  const QRect area = list_.viewport()->rect();
  painter_.setPen(theme::HintColour(list_.palette()));
  painter_.drawText(area.adjusted(0, 0, 0, -area.height() / 3), Qt::AlignCenter, QObject::tr("No records"));
  if (!list_.hasFocus()) return;
  painter_.setPen(QPen(list_.palette().color(QPalette::Highlight), 1, Qt::DotLine));
  painter_.drawRect(area.adjusted(2, 2, -3, -3));
}

}  // namespace desktop
