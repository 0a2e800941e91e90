#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <memory>

#include "desktop/support/fake_rows.h"
#include "desktop/support/sample_screen.h"
#include "desktop/window/front_end.h"

namespace desktop_test {

/// A front end, an application on a made-up table, and the sample screen's window.
class Desk : public testing::Test {
 protected:
  Desk();
  ~Desk() override;

  /// Makes the application; call before anything else when options or table differ.
  void Start(const desktop::DesktopOptions& options = {});
  /// Loads the sample screen and shows its window without waiting for its end.
  void Open();
  /// As Open, with the list filled from a table of so many rows.
  void OpenList(std::int64_t rows);
  void CloseScreen();
  void Process();

  template <class T>
  T& Widget(const char* name) {
    T* found = window->findChild<T*>(name);
    if (!found) throw std::runtime_error(std::string("no widget ") + name);
    return *found;
  }
  bool Saw(const std::string& event) const;

  std::unique_ptr<platform::ListExport> exporter;  ///< the application takes it at Start
  FakeTable table;
  FakeEngine* engine = nullptr;
  desktop::DesktopFrontEnd* front = nullptr;
  std::unique_ptr<platform::Application> app;
  std::unique_ptr<frmSample> screen;
  std::unique_ptr<platform::UserHands> hands;
  desktop::FormWindow* window = nullptr;
  std::vector<platform::Error> unhandled;
};

/// The sample screen's layout.
desktop::FormDesign SampleDesign();

}  // namespace desktop_test
