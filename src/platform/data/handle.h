#pragma once

#include <memory>

#include "platform/values/error.h"

namespace platform {

/// A variable that names an object of the data engine. The engine's collections own the objects; a handle never keeps
/// one alive beyond its close. Using a handle that was never set raises 91, one whose object was closed raises 3420.
template <class T>
class Handle {
 public:
  Handle() = default;
  Handle(const std::shared_ptr<T>& object) : object_(object), set_(object != nullptr) {}

  std::shared_ptr<T> operator->() const {
    if (!set_) throw error::ObjectNotSet();
    auto object = object_.lock();
    if (!object) throw error::ObjectClosed();
    return object;
  }

  T& operator*() const { return *operator->(); }

  /// True until the handle is given an object, and after Reset; a closed object still counts as set.
  bool IsNothing() const noexcept { return !set_; }
  void Reset() noexcept {
    object_.reset();
    set_ = false;
  }
  /// Whether both name the same object.
  bool operator==(const Handle& other) const noexcept {
    return set_ == other.set_ && !object_.owner_before(other.object_) && !other.object_.owner_before(object_);
  }

 private:
  std::weak_ptr<T> object_;
  bool set_ = false;
};

}  // namespace platform
