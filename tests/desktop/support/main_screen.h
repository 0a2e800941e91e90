#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QStackedWidget>
#include <memory>

#include "desktop/support/fake_rows.h"
#include "desktop/window/front_end.h"
#include "maintenance/frmCustMain.h"
#include "session/ModCustSch.h"
#include "suite/operating_system.h"
#include "support/controls.h"

namespace desktop_test {

/// The main screen's window without a company behind it: layout alone.
class MainScreen : public testing::Test {
 protected:
  MainScreen() {
    platform::ApplicationParts parts;
    parts.engine = std::make_unique<FakeEngine>(table);
    parts.system = suite::MakeNativeSystem("/tmp");
    auto made = std::make_unique<desktop::DesktopFrontEnd>(desktop::DesktopOptions{});
    front = made.get();
    parts.frontEnd = std::move(made);
    app = std::make_unique<platform::Application>(std::move(parts));
    orcussch::AttachApplication(app.get());
    screen = std::make_unique<orcussch::frmCustMain>(*app);
    front->Loaded(*screen);
    window = front->WindowOf(*screen);
  }
  ~MainScreen() override {
    front->Unloaded(*screen);
    screen.reset();
    orcussch::AttachApplication(nullptr);
    app.reset();
  }

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
  void ShowAt(const QSize& size) {
    window->resize(size);
    window->show();
    QApplication::processEvents();
  }

  FakeTable table;
  desktop::DesktopFrontEnd* front = nullptr;
  std::unique_ptr<platform::Application> app;
  std::unique_ptr<orcussch::frmCustMain> screen;
  desktop::FormWindow* window = nullptr;
};

}  // namespace desktop_test
