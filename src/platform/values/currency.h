#pragma once

#include <cstdint>

#include "platform/values/error.h"
#include "platform/values/value.h"

namespace platform {

/// Amounts are added exactly; a sum that no amount can hold raises Overflow (6).
inline Currency operator+(Currency left, Currency right) {
  std::int64_t sum = 0;
  if (__builtin_add_overflow(left.tenThousandths, right.tenThousandths, &sum)) throw error::Overflow();
  return {sum};
}

}  // namespace platform
