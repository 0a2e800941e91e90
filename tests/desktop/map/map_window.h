#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>
#include <memory>
#include <string>

#include "desktop/hands/input.h"
#include "desktop/map/map_view.h"
#include "desktop/support/fake_rows.h"
#include "desktop/window/form_designs.h"
#include "desktop/window/front_end.h"
#include "mapping/frmMap.h"
#include "session/ModCustSch.h"
#include "suite/operating_system.h"
#include "support/made_map.h"

namespace desktop_test {

/// The map's window over a made-up town, without customers.
class MapWindow : public testing::Test {
 protected:
  explicit MapWindow(int streets = 400) : MapWindow(std::make_unique<made::Map>(streets)) {}
  explicit MapWindow(std::unique_ptr<platform::MapEngine> engine) {
    map = dynamic_cast<made::Map*>(engine.get());
    platform::ApplicationParts parts;
    parts.engine = std::make_unique<FakeEngine>(table);
    parts.system = suite::MakeNativeSystem("/tmp");
    parts.map = std::move(engine);
    desktop::DesktopOptions options;
    options.settingsFolder = settings.path().toStdString();
    auto made = std::make_unique<desktop::DesktopFrontEnd>(options);
    front = made.get();
    parts.frontEnd = std::move(made);
    app = std::make_unique<platform::Application>(std::move(parts));
    orcussch::AttachApplication(app.get());
    screen = std::make_unique<orcussch::frmMap>(*app);
    screen->Pwstreet1.PinClick = [this](const std::string& key) { clicked.push_back(key); };
    front->Loaded(*screen);
    window = front->WindowOf(*screen);
    view = window->findChild<desktop::MapView*>("Pwstreet1");
  }
  ~MapWindow() override {
    if (screen) CloseScreen();
    orcussch::AttachApplication(nullptr);
    app.reset();
  }

  void CloseScreen() {
    front->Unloaded(*screen);
    screen.reset();
    view = nullptr;
  }
  /// The middle of the town, or around another crossing.
  void Draw(int width, int column = 200, int row = 200) const {
    const platform::MapPoint at = map->ground.Crossing(column, row);
    map->Draw(at.latitude, at.longitude, width);
  }
  void AddPin(const std::string& key, const std::string& name, platform::MapPoint at) const {
    map->AddPin({key, at.latitude, at.longitude, name, 5730, ""});
  }
  void Show(const QSize& size = {1000, 700}) const {
    window->resize(size);
    front->Shown(*screen);
    Finish();
  }
  /// Until everything is drawn.
  void Finish() const {
    view->repaint();
    EXPECT_TRUE(QTest::qWaitFor([this] { return view->Drawn(); }, 20'000));
    view->repaint();
    QApplication::processEvents();
  }
  QPoint ScreenOf(platform::MapPoint at) const {
    return view->Seen().ToScreen(desktop::ToPlane(at), QSizeF(view->size())).toPoint();
  }
  void Key(Qt::Key key, const QString& text = {}) const {
    view->setFocus();
    desktop::input::Key(*window, key, Qt::NoModifier, text);
    QApplication::processEvents();
  }

  QTemporaryDir settings;
  FakeTable table;
  made::Map* map = nullptr;
  desktop::DesktopFrontEnd* front = nullptr;
  std::unique_ptr<platform::Application> app;
  std::unique_ptr<orcussch::frmMap> screen;
  desktop::FormWindow* window = nullptr;
  desktop::MapView* view = nullptr;
  std::vector<std::string> clicked;
};

}  // namespace desktop_test
