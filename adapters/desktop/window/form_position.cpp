#include <QApplication>
#include <QBoxLayout>
#include <QScreen>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>

#include "desktop/window/form_window.h"

// Where a window stands and how large it is.
namespace desktop {

namespace {

constexpr double kFirstShare = 0.8;
constexpr double kWidest = 1.8;  // a window over the whole width of two screens is no window to read in

QScrollArea* NewScroll(QWidget* parent, QWidget* content) {
  auto* area = NewWidget<QScrollArea>(parent);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(content);
  return area;
}

/// Puts what stands on a page into a scroll area of its own.
void LetScroll(QWidget& page) {
  auto content = std::make_unique<QWidget>();
  content->setLayout(page.layout());
  auto* layout = NewWidget<QVBoxLayout>(&page);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(NewScroll(&page, content.release()));
}

}  // namespace

/// The first time most of the screen, so that the lists show much, and never more than there is. A small screen's layout says how
/// large it is at first (the window's property "opensAsDesigned"); it stands in the middle of the window that it came from.
QSize FormWindow::FirstSize(const QSize& needed, const QSize& room) {
  QSize most = room * kFirstShare;
  most.setWidth(std::min(most.width(), qRound(most.height() * kWidest)));
  return needed.expandedTo(most).boundedTo(room);
}

void FormWindow::RestorePosition() {
  placed_ = true;
  const QSize room = screen()->availableGeometry().size();
  const QWidget* owner = QApplication::activeWindow();
  const bool small = property("opensAsDesigned").toBool();
  FitInto(room);
  resize(small ? size().expandedTo(minimumSizeHint()).boundedTo(room) : FirstSize(size(), room));
  if (small && owner && owner != this) move(owner->frameGeometry().center() - rect().center());
  if (const auto position = services_.Kept().WindowPosition(name_); position && restoreGeometry(*position)) {
    if (!isMaximized() && !isFullScreen()) setGeometry(OnScreen(geometry(), screen()->availableGeometry()));
  }
}

QRect FormWindow::OnScreen(const QRect& was, const QRect& room) {
  QRect is(was.topLeft(), was.size().boundedTo(room.size()));
  is.moveRight(std::min(is.right(), room.right()));
  is.moveBottom(std::min(is.bottom(), room.bottom()));
  is.moveLeft(std::max(is.left(), room.left()));
  is.moveTop(std::max(is.top(), room.top()));
  return is;
}

/// With larger letters than the layout was made for, or on a smaller screen: choices stand below each other, pages scroll, and
/// when that is not enough the whole window does.
void FormWindow::FitInto(const QSize& room) {
  const auto larger = [](const QSize& one, const QSize& other) { return one.width() > other.width() || one.height() > other.height(); };
  const auto fits = [&] {
    // Nothing of a window that is not shown yet is laid out anew by itself.
    for (QWidget* inside : findChildren<QWidget*>()) inside->updateGeometry();
    for (QLayout* inside : findChildren<QLayout*>()) inside->invalidate();
    return !larger(minimumSizeHint(), room);
  };
  if (!centralWidget() || fits()) return;
  for (const QWidget* group : findChildren<QWidget*>())
    if (auto* row = group->property("stacksWhenNarrow").toBool() ? qobject_cast<QBoxLayout*>(group->layout()) : nullptr)
      row->setDirection(QBoxLayout::TopToBottom);
  if (fits()) return;
  for (const QStackedWidget* pages : findChildren<QStackedWidget*>()) {
    const QSize forPage = room - (minimumSizeHint() - pages->minimumSizeHint());
    for (int i = 0; i < pages->count(); ++i) {
      QWidget* page = pages->widget(i);
      if (page->layout() && larger(page->minimumSizeHint(), forPage)) LetScroll(*page);
    }
  }
  if (fits()) return;
  setCentralWidget(NewScroll(this, takeCentralWidget()));
}

void FormWindow::KeepPosition() {
  if (isVisible()) services_.Kept().KeepWindowPosition(name_, saveGeometry());
}

}  // namespace desktop
