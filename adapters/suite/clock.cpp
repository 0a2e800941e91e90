#include "suite/clock.h"

#include <cmath>
#include <ctime>

#include "platform/values/calendar.h"

namespace suite {

namespace {

struct LocalMoment {
  double day;   ///< serial
  int seconds;  ///< since midnight
};

LocalMoment Read() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  ::localtime_r(&now, &parts);
  const int second = parts.tm_sec > 59 ? 59 : parts.tm_sec;  // a leap second is no moment of its own
  const auto day = platform::DateSerial(parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday);
  return {day.value_or(platform::Date{}).serial, parts.tm_hour * 3600 + parts.tm_min * 60 + second};
}

}  // namespace

platform::Date Clock::Today() const { return {day_ ? *day_ : Read().day}; }

platform::Date Clock::Now() const {
  const auto moment = Read();
  return platform::MomentOf(day_ ? *day_ : moment.day, moment.seconds);
}

void Clock::SetToday(std::optional<platform::Date> day) {
  day_.reset();
  if (day) day_ = std::trunc(day->serial);
}

}  // namespace suite
