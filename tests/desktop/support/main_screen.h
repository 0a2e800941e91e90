#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QStackedWidget>

#include "desktop/support/screen_window.h"
#include "maintenance/frmCustMain.h"
#include "support/controls.h"

namespace desktop_test {

/// The main screen's window without a company behind it: layout alone.
class MainScreen : public ScreenWindow<orcussch::frmCustMain> {
 protected:
  void ShowPage(int tab, int page) {
    auto* pages = window->findChild<QStackedWidget*>("SSIndexTab1_pages");
    pages->setCurrentWidget(window->findChild<QWidget*>(QString("tab_%1_page_%2").arg(tab).arg(page)));
    QApplication::processEvents();
  }
  QRect PlaceOf(const char* name) const {
    const auto* widget = window->findChild<QWidget*>(name);
    return {widget->mapTo(window, QPoint()), widget->size()};
  }
  /// The six controls that the comment box hides and shows, as their models are.
  void ShowWhatIsHidden() {
    for (const char* name : {"fraStatus", "fraBillingStatus", "fraTaxBasis", "fraTax", "chkAgeMethod", "chkOmitFinChg"})
      window->BindingOf(*screen->Find(name))->ShowAll();
    QApplication::processEvents();
  }
};

}  // namespace desktop_test
