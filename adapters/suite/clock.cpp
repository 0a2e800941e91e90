#include "suite/clock.h"

#include <cmath>
#include <ctime>

namespace suite {

namespace {

struct LocalMoment {
  double day;   ///< serial
  int seconds;  ///< since midnight
};

/// Days from 30 December 1899 to a day of the Gregorian calendar.
double SerialOfDay(int year, int month, int day) {
  // Years begin in March, so that the leap day is the last one.
  const int shifted = year - (month <= 2 ? 1 : 0);
  const int era = (shifted >= 0 ? shifted : shifted - 399) / 400;
  const int yearOfEra = shifted - era * 400;
  const int dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
  const int dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
  constexpr int kEpoch = 693899;  // 30 December 1899 in days from 1 March of year 0
  return era * 146097 + dayOfEra - kEpoch;
}

LocalMoment Read() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  ::localtime_r(&now, &parts);
  const int second = parts.tm_sec > 59 ? 59 : parts.tm_sec;  // a leap second is no moment of its own
  return {SerialOfDay(parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday), parts.tm_hour * 3600 + parts.tm_min * 60 + second};
}

}  // namespace

platform::Date Clock::Today() const { return {day_ ? *day_ : Read().day}; }

platform::Date Clock::Now() const {
  const auto moment = Read();
  const double time = moment.seconds / 86400.0;
  const double day = day_ ? *day_ : moment.day;
  return {day < 0 ? day - time : day + time};
}

void Clock::SetToday(std::optional<platform::Date> day) {
  day_.reset();
  if (day) day_ = std::trunc(day->serial);
}

}  // namespace suite
