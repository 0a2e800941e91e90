#pragma once

#include <QMainWindow>

namespace desktop {

/// Adds a Help menu behind the window's own menus: the page of keys (F1), and what program this is.
void AddHelpMenu(QMainWindow& window);

}  // namespace desktop
