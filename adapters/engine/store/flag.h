#pragma once

namespace engine {

/// Is true as long as it lives.
struct Flag {
  explicit Flag(bool& set) : flag(set) { flag = true; }
  ~Flag() { flag = false; }
  Flag(const Flag&) = delete;
  Flag& operator=(const Flag&) = delete;
  bool& flag;
};

}  // namespace engine
