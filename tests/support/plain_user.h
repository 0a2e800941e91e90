#pragma once

#include <unistd.h>

#include <cstdlib>

/// This process without the superuser's rights, if it has them, while the object lives.
class PlainUser {
 public:
  PlainUser() : root_(::geteuid() == 0) {
    if (root_ && ::seteuid(65534) != 0) std::abort();
  }
  ~PlainUser() {
    if (root_ && ::seteuid(0) != 0) std::abort();
  }
  PlainUser(const PlainUser&) = delete;
  PlainUser& operator=(const PlainUser&) = delete;

 private:
  bool root_;
};
