#include "printing/preview/modal_escape.h"

#include <QEvent>
#include <QGuiApplication>

namespace printing {

namespace {

constexpr char kOurs[] = "printingPreview";

/// Whether the window, or one that it belongs to, is a preview.
bool BelongsToPreview(const QWindow* window) {
  for (; window; window = window->transientParent())
    if (window->property(kOurs).toBool()) return true;
  return false;
}

}  // namespace

ModalEscape::ModalEscape(QWidget& window) : QObject(&window), window_(window) {
  window_.winId();
  handle_ = window_.windowHandle();
  if (!handle_) return;
  handle_->setProperty(kOurs, true);
  handle_->installEventFilter(this);
  Anchor();
}

bool ModalEscape::eventFilter(QObject* watched, QEvent* event) {
  // Blocked by a new modal window: the next event finds that one's companion.
  if (watched == handle_ && event->type() == QEvent::WindowBlocked)
    QMetaObject::invokeMethod(this, &ModalEscape::Anchor, Qt::QueuedConnection);
  return QObject::eventFilter(watched, event);
}

void ModalEscape::Anchor() {
  if (!handle_) return;
  QWindow* modal = QGuiApplication::modalWindow();
  if (modal && (modal == handle_ || BelongsToPreview(modal))) return;
  if (anchor_) disconnect(anchor_, nullptr, this, nullptr);
  anchor_ = modal;
  if (modal) {
    connect(modal, &QWindow::visibleChanged, this, &ModalEscape::Anchor, Qt::QueuedConnection);
    connect(modal, &QObject::destroyed, this, &ModalEscape::Anchor, Qt::QueuedConnection);
  }
  if (handle_->transientParent() != modal) handle_->setTransientParent(modal);
}

}  // namespace printing
