#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <cmath>

#include "printing/preview/page_view.h"

namespace printing {

namespace {
constexpr double kWheelZoom = 1.15;
constexpr double kNotch = 120;
}  // namespace

void PageView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_PageDown:
      GoTo(current_ + 1);
      return;
    case Qt::Key_PageUp:
      GoTo(current_ - 1);
      return;
    case Qt::Key_Home:
      GoTo(0);
      return;
    case Qt::Key_End:
      GoTo(pages_.Count() - 1);
      return;
    case Qt::Key_Down:
      verticalScrollBar()->triggerAction(QScrollBar::SliderSingleStepAdd);
      return;
    case Qt::Key_Up:
      verticalScrollBar()->triggerAction(QScrollBar::SliderSingleStepSub);
      return;
    case Qt::Key_Right:
      horizontalScrollBar()->triggerAction(QScrollBar::SliderSingleStepAdd);
      return;
    case Qt::Key_Left:
      horizontalScrollBar()->triggerAction(QScrollBar::SliderSingleStepSub);
      return;
    case Qt::Key_Space:
      verticalScrollBar()->triggerAction(event->modifiers() & Qt::ShiftModifier ? QScrollBar::SliderPageStepSub
                                                                                : QScrollBar::SliderPageStepAdd);
      return;
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

void PageView::wheelEvent(QWheelEvent* event) {
  if (event->modifiers() & Qt::ControlModifier) {
    fit_ = Fit::None;
    ZoomAround(zoom_ * std::pow(kWheelZoom, event->angleDelta().y() / kNotch), event->position());
    event->accept();
    return;
  }
  QAbstractScrollArea::wheelEvent(event);
}

void PageView::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton) {
    panned_ = event->pos();
    viewport()->setCursor(Qt::ClosedHandCursor);
    return;
  }
  if (event->button() != Qt::LeftButton) return;
  ClearSelection();
  const std::int64_t page = PageAt(event->position().y());
  if (const auto at = OnPage(page, event->position())) dragged_ = {page, *at};
}

void PageView::mouseMoveEvent(QMouseEvent* event) {
  if (panned_) {
    const QPoint by = event->pos() - *panned_;
    panned_ = event->pos();
    SetTop(Top() - by.y());
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - by.x());
    return;
  }
  if (!dragged_) return;
  const auto at = OnPage(dragged_->first, event->position());
  if (!at || (*at - dragged_->second).manhattanLength() * Unit() < QApplication::startDragDistance()) return;
  selected_ = Selection{dragged_->first, QRectF(dragged_->second, *at).normalized()};
  viewport()->update();
  emit SelectionChanged();
}

void PageView::mouseReleaseEvent(QMouseEvent*) {
  dragged_.reset();
  if (!panned_) return;
  panned_.reset();
  viewport()->setCursor(Qt::IBeamCursor);
}

}  // namespace printing
