#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QStackedWidget>
#include <memory>

#include "desktop/support/fake_rows.h"
#include "desktop/window/front_end.h"
#include "queries/frmCustQueries.h"
#include "session/ModCustSch.h"
#include "suite/operating_system.h"

namespace desktop_test {

/// The query screen's window without a company behind it: layout alone.
class QueryScreen : public testing::Test {
 protected:
  QueryScreen() {
    platform::ApplicationParts parts;
    parts.engine = std::make_unique<FakeEngine>(table);
    parts.system = suite::MakeNativeSystem("/tmp");
    auto made = std::make_unique<desktop::DesktopFrontEnd>(desktop::DesktopOptions{});
    front = made.get();
    parts.frontEnd = std::move(made);
    app = std::make_unique<platform::Application>(std::move(parts));
    orcussch::AttachApplication(app.get());
    screen = std::make_unique<orcussch::frmCustQueries>(*app);
    front->Loaded(*screen);
    window = front->WindowOf(*screen);
  }
  ~QueryScreen() override {
    front->Unloaded(*screen);
    screen.reset();
    orcussch::AttachApplication(nullptr);
    app.reset();
  }

  void ShowAt(const QSize& size) {
    window->resize(size);
    window->show();
    QApplication::processEvents();
  }
  /// The models of a screen that is not loaded tell nobody.
  void Follow() {
    for (const auto& binding : window->Bindings()) binding->ShowAll();
    QApplication::processEvents();
  }
  void ShowTab(int tab) {
    screen->SSTab1.Tab(tab);
    Follow();
  }

  FakeTable table;
  desktop::DesktopFrontEnd* front = nullptr;
  std::unique_ptr<platform::Application> app;
  std::unique_ptr<orcussch::frmCustQueries> screen;
  desktop::FormWindow* window = nullptr;
};

}  // namespace desktop_test
