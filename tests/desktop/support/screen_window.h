#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <utility>

#include "desktop/support/fake_rows.h"
#include "desktop/window/front_end.h"
#include "session/ModCustSch.h"
#include "suite/operating_system.h"

namespace desktop_test {

/// The window of one of the library's screens without a company behind it: layout alone.
template <class Screen, class Fixture = testing::Test>
class ScreenWindow : public Fixture {
 protected:
  using Maker = std::function<std::unique_ptr<Screen>(platform::Application&)>;

  ScreenWindow() : ScreenWindow([](platform::Application& application) { return std::make_unique<Screen>(application); }) {}
  explicit ScreenWindow(Maker maker) : make(std::move(maker)) {
    platform::ApplicationParts parts;
    parts.engine = std::make_unique<FakeEngine>(table);
    parts.system = suite::MakeNativeSystem("/tmp");
    desktop::DesktopOptions options;
    options.settingsFolder = settings.path().toStdString();
    auto made = std::make_unique<desktop::DesktopFrontEnd>(options);
    front = made.get();
    parts.frontEnd = std::move(made);
    app = std::make_unique<platform::Application>(std::move(parts));
    orcussch::AttachApplication(app.get());
    MakeScreen();
  }
  ~ScreenWindow() override {
    CloseScreen();
    orcussch::AttachApplication(nullptr);
    app.reset();
  }

  void MakeScreen() {
    screen = make(*app);
    front->Loaded(*screen);
    window = front->WindowOf(*screen);
  }
  void CloseScreen() {
    front->Unloaded(*screen);
    screen.reset();
  }
  /// As the user sees it first.
  void Show() {
    front->Shown(*screen);
    QApplication::processEvents();
  }

  void ShowAt(const QSize& size) {
    window->resize(size);
    window->show();
    QApplication::processEvents();
  }

  Maker make;
  QTemporaryDir settings;
  FakeTable table;
  desktop::DesktopFrontEnd* front = nullptr;
  std::unique_ptr<platform::Application> app;
  std::unique_ptr<Screen> screen;
  desktop::FormWindow* window = nullptr;
};

}  // namespace desktop_test
