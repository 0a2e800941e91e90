#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleHints>
#include <QToolTip>
#include <QWheelEvent>
#include <QGuiApplication>
#include <algorithm>

#include "desktop/map/map_view.h"
#include "desktop/services/services.h"
#include "desktop/toolkit/toolkit.h"

// Mouse, wheel and keys.
namespace desktop {

namespace {

constexpr int kWheelSteps = 2;  // of zoom to a notch
constexpr int kKeySteps = zoom::kPerDoubling;
constexpr double kArrow = 0.25;    // of what is seen
constexpr double kLeastBand = 6;   // pixels: less is a hand that trembles
constexpr std::size_t kTipNames = 12;

}  // namespace

void MapView::Later(std::function<void(platform::MapControl&)> act) {
  if (control_ == nullptr || !control_->EffectivelyEnabled()) return;
  services_->Later(this, [this, act = std::move(act)] {
    if (control_ == nullptr) return;
    platform::FormHost& host = control_->Owner().Host();
    Safely(host, [&] { act(*control_); });
  });
}

void MapView::mousePressEvent(QMouseEvent* event) {
  if (held_ != Qt::NoButton || (event->button() != Qt::LeftButton && event->button() != Qt::MiddleButton)) return;
  held_ = event->button();
  pressedAt_ = movedTo_ = event->position();
}

void MapView::mouseMoveEvent(QMouseEvent* event) {
  const QPointF before = std::exchange(movedTo_, event->position());
  if (held_ == Qt::MiddleButton) return Go(sight_.Moved(before - movedTo_), Way::Joined);
  if (held_ == Qt::LeftButton) {
    const QPointF way = movedTo_ - pressedAt_;
    band_ = band_ || way.manhattanLength() >= QGuiApplication::styleHints()->startDragDistance();
    return update();
  }
  setCursor(pins_.SignAt(movedTo_) != nullptr ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void MapView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != held_) return;
  const bool click = held_ == Qt::LeftButton && !band_;
  const bool zoomed = std::exchange(band_, false);
  held_ = Qt::NoButton;
  movedTo_ = event->position();
  update();
  if (click) return ClickAt(movedTo_);
  const QRectF band = Band() & QRectF(rect());
  if (!zoomed || band.width() < kLeastBand || band.height() < kLeastBand) return;
  Sync();
  Go(SightOver(PlaneBox(sight_.ToPlane(band.topLeft(), size()), sight_.ToPlane(band.bottomRight(), size())), size()), Way::Kept);
}

void MapView::ClickAt(const QPointF& at) {
  if (changed_) return;  // what was painted stands no longer
  const PinLayer::Sign* sign = pins_.SignAt(at);
  if (sign == nullptr) return;
  if (sign->IsHeap()) {
    const PinLayer::Sign heap = *sign;
    ClickHeap(heap);
  } else {
    ClickPin(pins_.PinsOf(*sign, 1).front());
  }
}

void MapView::ClickPin(std::size_t pin) {
  if (changed_ || pin >= PinList().size()) return;
  Later([key = PinList()[pin].key](platform::MapControl& control) { control.UserPinClick(key); });
}

QString MapView::TipAt(const QPointF& at) const {
  const PinLayer::Sign* sign = changed_ ? nullptr : pins_.SignAt(at);
  if (sign == nullptr) return {};
  QStringList names;
  for (const std::size_t pin : pins_.PinsOf(*sign, kTipNames)) names.append(ToShown(PinList().at(pin).text).trimmed());
  names.sort(Qt::CaseInsensitive);
  if (sign->heap.count > kTipNames) names.append(tr("and %1 more").arg(sign->heap.count - kTipNames));
  return names.join('\n');
}

bool MapView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const QString tip = TipAt(help->pos()).toHtmlEscaped().replace('\n', "<br>");
  if (tip.isEmpty()) {
    QToolTip::hideText();
  } else {
    QToolTip::showText(help->globalPos(), "<p style='white-space:pre'>" + tip, this);
  }
  return true;
}

void MapView::wheelEvent(QWheelEvent* event) {
  event->accept();
  constexpr int kNotch = 120;
  wheel_ += event->angleDelta().y() * kWheelSteps;
  const int steps = wheel_ / kNotch;
  if (steps == 0) return;
  wheel_ -= steps * kNotch;
  ZoomBy(steps, event->position());
}

void MapView::keyPressEvent(QKeyEvent* event) {
  const QPointF middle = QRectF(rect()).center();
  const auto push = [this](double x, double y) { Go(sight_.Moved({x * width() * kArrow, y * height() * kArrow}), Way::Joined); };
  switch (event->key()) {
    case Qt::Key_Left:
      return push(-1, 0);
    case Qt::Key_Right:
      return push(1, 0);
    case Qt::Key_Up:
      return push(0, -1);
    case Qt::Key_Down:
      return push(0, 1);
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return ZoomBy(kKeySteps, middle);
    case Qt::Key_Minus:
    case Qt::Key_Underscore:
      return ZoomBy(-kKeySteps, middle);
    case Qt::Key_Home:
      return Whole();
    case Qt::Key_Backspace:
      return Back();
    case Qt::Key_Escape:
      if (!band_) break;
      band_ = false;
      held_ = Qt::NoButton;
      return update();
    default:
      break;
  }
  event->ignore();
}

void MapView::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (control_ == nullptr || services_->PaintingOnly() || band_) return;
  const bool mouse = event->reason() == QContextMenuEvent::Mouse;
  const QPoint at = mouse ? event->pos() : rect().center();
  OpenMenu(at, mouse ? event->globalPos() : mapToGlobal(at));
}

void MapView::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void MapView::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

}  // namespace desktop
