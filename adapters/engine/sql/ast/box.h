#pragma once

#include <memory>
#include <utility>

namespace engine::sql {

/// A value kept behind a pointer, so that a tree's node can hold nodes of its own kind: copies and compares by content,
/// never empty but after a move.
template <class T>
class Box {
 public:
  Box(T value) : value_(std::make_unique<T>(std::move(value))) {}  // NOLINT: meant to convert
  Box(const Box& other) : value_(std::make_unique<T>(*other.value_)) {}
  Box(Box&&) noexcept = default;
  Box& operator=(const Box& other) {
    value_ = std::make_unique<T>(*other.value_);
    return *this;
  }
  Box& operator=(Box&&) noexcept = default;
  ~Box() = default;

  const T& operator*() const { return *value_; }
  const T* operator->() const { return value_.get(); }
  bool operator==(const Box& other) const { return *value_ == *other.value_; }

 private:
  std::unique_ptr<T> value_;
};

}  // namespace engine::sql
