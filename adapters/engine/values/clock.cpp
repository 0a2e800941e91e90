#include "engine/values/clock.h"

#include <ctime>

#include "platform/values/calendar.h"

namespace engine {

platform::Date LocalNow() {
  const std::time_t seconds = std::time(nullptr);
  const std::tm local = *std::localtime(&seconds);
  const platform::Date day = platform::DateSerial(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday).value_or(platform::Date{});
  return platform::MomentOf(day.serial, local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec);
}

int YearOf(const Clock& clock) { return platform::CalendarOf(clock()).year; }

}  // namespace engine
