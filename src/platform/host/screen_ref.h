#pragma once

#include <memory>

#include "platform/host/application.h"

namespace platform {

/// The global reference of a screen, of which there is one instance. Using it makes the screen, with the application that is
/// there then, and loads it; peek() looks without loading.
template <class Screen>
class ScreenRef {
 public:
  explicit constexpr ScreenRef(Application& (*application)()) noexcept : application_(application) {}
  /// The screen, made and loaded if need be. One that goes while it loads is given all the same: it lives until no handler is on
  /// the stack.
  Screen* operator->() {
    make();
    Screen* screen = screen_.get();
    screen->App().Load(*screen);
    return screen;
  }
  Screen& operator*() { return *operator->(); }
  /// The screen if there is one, loaded or not.
  Screen* peek() const noexcept { return screen_.get(); }
  /// Shows it modally.
  void Show() {
    make();
    screen_->App().Show(*screen_);
  }
  /// Gives the instance up; it lives until none of its handlers is on the stack. The next use makes a fresh one.
  void release() {
    if (!screen_) return;
    Application& app = screen_->App();
    app.Bury(std::move(screen_));
  }

 private:
  void make() {
    if (!screen_) screen_ = std::make_unique<Screen>(application_());
  }
  Application& (*application_)();
  std::unique_ptr<Screen> screen_;
};

}  // namespace platform
