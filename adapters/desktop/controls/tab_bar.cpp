#include "desktop/controls/tab_bar.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

namespace desktop {

TabBar::TabBar(QWidget* parent) : QTabBar(parent) {
  setFocusPolicy(Qt::NoFocus);
  setDrawBase(true);
  setExpanding(false);
}

void TabBar::mousePressEvent(QMouseEvent* event) {
  const int tab = tabAt(event->position().toPoint());
  if (event->button() == Qt::LeftButton && tab >= 0 && isTabEnabled(tab) && click_) click_(tab);
  event->accept();
}

void TabBar::wheelEvent(QWheelEvent* event) { event->ignore(); }

void TabBar::keyPressEvent(QKeyEvent* event) { event->ignore(); }

}  // namespace desktop
