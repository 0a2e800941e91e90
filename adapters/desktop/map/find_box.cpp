#include "desktop/map/find_box.h"

#include <QKeyEvent>
#include <QVBoxLayout>

#include "desktop/toolkit/toolkit.h"

namespace desktop {

namespace {
constexpr int kAway = 10;  // pixels from the map's corner
constexpr int kCharacters = 42;
}  // namespace

FindBox::FindBox(QWidget* map) : QFrame(map), line_(NewWidget<QLineEdit>(this)), answer_(NewWidget<QLabel>(this)) {
  setObjectName("mapFindBox");
  setProperty("role", "sheet");
  setAutoFillBackground(true);
  line_->setPlaceholderText(tr("Street, city, state, ZIP"));
  line_->setAccessibleName(tr("Address to look for on the map"));
  line_->setMinimumWidth(line_->fontMetrics().averageCharWidth() * kCharacters);
  line_->installEventFilter(this);
  answer_->setTextFormat(Qt::PlainText);
  answer_->hide();
  auto* layout = NewWidget<QVBoxLayout>(this);
  layout->setContentsMargins(6, 6, 6, 6);
  layout->addWidget(line_);
  layout->addWidget(answer_);
  hide();
}

void FindBox::Open() {
  Say("");
  move(kAway, kAway);
  show();
  raise();
  line_->selectAll();
  line_->setFocus(Qt::PopupFocusReason);
}

void FindBox::Close() {
  if (isHidden()) return;
  hide();
  parentWidget()->setFocus(Qt::PopupFocusReason);
  if (OnClosed) OnClosed();
}

void FindBox::Say(const QString& text) {
  answer_->setText(text);
  answer_->setHidden(text.isEmpty());
  adjustSize();
}

/// The keys that the window would take for itself.
bool FindBox::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QFrame::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_Escape) return Close(), true;
  if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
  const QString address = line_->text().simplified();
  if (!address.isEmpty() && OnFind) OnFind(address);
  return true;
}

}  // namespace desktop
