#pragma once

#include <optional>

#include "platform/values/value.h"

namespace suite {

/// The machine's clock in local time, or one whose day was set.
class Clock {
 public:
  platform::Date Today() const;
  platform::Date Now() const;
  void SetToday(std::optional<platform::Date> day);

 private:
  std::optional<double> day_;
};

}  // namespace suite
