#pragma once

#include <functional>
#include <utility>

namespace platform {

/// One event of a control. A screen attaches its one handler by assignment; firing without a handler does nothing. What a
/// handler throws goes to whoever fired.
template <class... Args>
class Event {
 public:
  template <class Handler>
  Event& operator=(Handler handler) {
    handler_ = std::move(handler);
    return *this;
  }
  void Fire(Args... args) const {
    if (handler_) handler_(args...);
  }
  bool HasHandler() const noexcept { return static_cast<bool>(handler_); }

 private:
  std::function<void(Args...)> handler_;
};

}  // namespace platform
