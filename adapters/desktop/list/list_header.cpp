#include "desktop/list/list_header.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionHeader>
#include <QToolTip>
#include <algorithm>

#include "desktop/list/list_view.h"
#include "desktop/look/theme.h"
#include "platform/values/text.h"

namespace desktop {

namespace {
constexpr int kEdge = 4;  ///< pixels on either side of an edge that take it
constexpr int kPadding = 6;
constexpr int kArrow = 8;
}  // namespace

ListHeader::ListHeader(ListView& list) : QWidget(&list), list_(list) {
  setMouseTracking(true);
  setFocusPolicy(Qt::NoFocus);
}

QSize ListHeader::sizeHint() const { return {0, fontMetrics().height() + 12}; }

QRect ListHeader::HeadingRect(int column) const {
  const ColumnLayout& columns = list_.Columns();
  const auto place = columns.PlaceOf(column);
  if (!place) return {};
  const int left = list_.MarkerWidth() + columns.ShownLeft(*place, list_.HorizontalOffset());
  QRect rect(left, 0, columns.Width(column), height());
  if (!columns.IsFixed(*place)) rect.setLeft(std::max(rect.left(), list_.MarkerWidth() + columns.FixedWidth()));
  return rect.isValid() ? rect & this->rect() : QRect();
}

void ListHeader::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Button));
  const ColumnLayout& columns = list_.Columns();
  const int fixedRight = list_.MarkerWidth() + columns.FixedWidth();
  painter.save();
  painter.setClipRect(QRect(fixedRight, 0, width() - fixedRight, height()));
  for (int place = columns.FixedCount(); place < columns.PlaceCount(); ++place) PaintPlace(painter, place);
  painter.restore();
  for (int place = 0; place < columns.FixedCount(); ++place) PaintPlace(painter, place);
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawLine(0, height() - 1, width(), height() - 1);
  if (columns.FixedCount() > 0) painter.drawLine(fixedRight - 1, 0, fixedRight - 1, height());
  if (drag_ == Drag::Moving && dropX_ >= 0) painter.fillRect(dropX_ - 1, 0, 3, height(), palette().color(QPalette::Highlight));
}

void ListHeader::PaintPlace(QPainter& painter, int place) {
  const ColumnLayout& columns = list_.Columns();
  const int column = columns.ColumnAt(place);
  const QRect whole(list_.MarkerWidth() + columns.ShownLeft(place, list_.HorizontalOffset()), 0, columns.Width(column), height());
  if (!whole.intersects(rect())) return;
  if (column == column_ && drag_ != Drag::None && drag_ != Drag::Resizing) painter.fillRect(whole, palette().color(QPalette::Midlight));
  painter.setPen(theme::LineColour(palette()));
  painter.drawLine(whole.right(), 5, whole.right(), height() - 6);
  QRect text = whole.adjusted(kPadding, 0, -kPadding, 0);
  const auto& sorted = list_.Sorted();
  const bool arrow = sorted && platform::EqualsNoCase(sorted->field, list_.FieldOf(column));
  if (arrow) {
    QStyleOption option;
    option.initFrom(this);
    option.rect = QRect(text.right() - kArrow + 1, (height() - kArrow) / 2, kArrow, kArrow);
    style()->drawPrimitive(sorted->descending ? QStyle::PE_IndicatorArrowDown : QStyle::PE_IndicatorArrowUp, &option, &painter, this);
    text.setRight(text.right() - kArrow - 3);
  }
  QFont font = this->font();
  font.setWeight(QFont::DemiBold);
  painter.setFont(font);
  painter.setPen(palette().color(list_.isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
  const auto side = list_.IsFigure(column) ? Qt::AlignRight : Qt::AlignLeft;
  painter.drawText(text, static_cast<int>(side) | Qt::AlignVCenter | Qt::TextSingleLine,
                   painter.fontMetrics().elidedText(list_.CaptionOf(column), Qt::ElideRight, text.width()));
}

std::optional<int> ListHeader::ColumnUnder(int x) const {
  const auto place = list_.Columns().PlaceAt(x - list_.MarkerWidth(), list_.HorizontalOffset());
  if (!place) return {};
  return list_.Columns().ColumnAt(*place);
}

std::optional<int> ListHeader::EdgeAt(int x) const {
  const ColumnLayout& columns = list_.Columns();
  for (int place = 0; place < columns.PlaceCount(); ++place) {
    const QRect rect = HeadingRect(columns.ColumnAt(place));
    if (!rect.isEmpty() && rect.right() < width() && std::abs(rect.right() - x) <= kEdge) return columns.ColumnAt(place);
  }
  return {};
}

int ListHeader::PlaceForDrop(int x) const {
  const ColumnLayout& columns = list_.Columns();
  const auto place = columns.PlaceAt(x - list_.MarkerWidth(), list_.HorizontalOffset());
  return place.value_or(x < list_.MarkerWidth() ? 0 : columns.PlaceCount() - 1);
}

void ListHeader::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const int x = event->position().toPoint().x();
  pressX_ = x;
  if (const auto edge = EdgeAt(x)) {
    drag_ = Drag::Resizing;
    column_ = *edge;
    pressWidth_ = list_.Columns().Width(*edge);
  } else if (const auto column = ColumnUnder(x)) {
    drag_ = Drag::Pressed;
    column_ = *column;
  }
  update();
}

void ListHeader::mouseMoveEvent(QMouseEvent* event) {
  const int x = event->position().toPoint().x();
  if (drag_ == Drag::None) {
    setCursor(EdgeAt(x) ? Qt::SplitHCursor : Qt::ArrowCursor);
    return;
  }
  if (drag_ == Drag::Resizing) {
    list_.ColumnResized(column_, pressWidth_ + x - pressX_);
    return;
  }
  if (drag_ == Drag::Pressed && std::abs(x - pressX_) >= QApplication::startDragDistance()) drag_ = Drag::Moving;
  if (drag_ != Drag::Moving) return;
  const int place = PlaceForDrop(x);
  const QRect target = HeadingRect(list_.Columns().ColumnAt(place));
  const auto from = list_.Columns().PlaceOf(column_);
  dropX_ = from && place > *from ? target.right() : target.left();
  update();
}

void ListHeader::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const Drag drag = drag_;
  const int column = column_;
  drag_ = Drag::None;
  column_ = -1;
  dropX_ = -1;
  update();
  const int x = event->position().toPoint().x();
  if (drag == Drag::Moving) {
    list_.ColumnMoved(column, PlaceForDrop(x));
  } else if (drag == Drag::Pressed && rect().contains(event->position().toPoint()) && ColumnUnder(x) == column) {
    list_.HeadClicked(column);
  }
}

void ListHeader::mouseDoubleClickEvent(QMouseEvent* event) {
  if (const auto edge = EdgeAt(event->position().toPoint().x())) {
    list_.FitColumn(*edge);
  } else {
    mousePressEvent(event);
  }
}

void ListHeader::contextMenuEvent(QContextMenuEvent* event) {
  list_.HeadMenu(event->globalPos(), ColumnUnder(event->pos().x()).value_or(-1));
}

bool ListHeader::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const auto column = ColumnUnder(help->pos().x());
    const bool cut = column && fontMetrics().horizontalAdvance(list_.CaptionOf(*column)) + 4 * kPadding > list_.Columns().Width(*column);
    if (cut) {
      QToolTip::showText(help->globalPos(), list_.CaptionOf(*column), this);
    } else {
      QToolTip::hideText();
    }
    return true;
  }
  return QWidget::event(event);
}

}  // namespace desktop
