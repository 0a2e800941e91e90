#pragma once

#include <gtest/gtest.h>

#include <QApplication>

#include "desktop/support/screen_window.h"
#include "queries/frmCustQueries.h"

namespace desktop_test {

/// The query screen's window.
class QueryScreen : public ScreenWindow<orcussch::frmCustQueries> {
 protected:
  /// The models of a screen that is not loaded tell nobody.
  void Follow() {
    for (const auto& binding : window->Bindings()) binding->ShowAll();
    QApplication::processEvents();
  }
  void ShowTab(int tab) {
    screen->SSTab1.Tab(tab);
    Follow();
  }
};

}  // namespace desktop_test
