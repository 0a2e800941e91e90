#include "platform/values/calendar.h"

#include <chrono>
#include <cmath>

namespace platform {
namespace {

constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;
constexpr auto kEpoch = std::chrono::sys_days{std::chrono::year{1899} / 12 / 30};

struct DayAndTime {
  long day;
  int seconds;
};

/// Both parts, the time rounded to whole seconds; what rounds up to midnight belongs to the next day.
DayAndTime PartsOf(Date date) {
  const double day = std::trunc(date.serial);
  const auto seconds = static_cast<int>(std::lround(std::fabs(date.serial - day) * kSecondsOfDay));
  if (seconds == kSecondsOfDay) return {static_cast<long>(day) + 1, 0};
  return {static_cast<long>(day), seconds};
}

std::string TwoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

std::string TimeText(int seconds) {
  const int hour = seconds / 3600;
  const int shown = hour % 12 == 0 ? 12 : hour % 12;
  return std::to_string(shown) + ':' + TwoDigits(seconds / 60 % 60) + ':' + TwoDigits(seconds % 60) + (hour < 12 ? " AM" : " PM");
}

}  // namespace

std::optional<int> DayNumber(CalendarDay day) {
  if (day.year < 0 || day.year > kLastYear || day.month < 1 || day.month > 12 || day.day < 1 || day.day > 31) return {};
  const auto calendar =
      std::chrono::year{day.year} / std::chrono::month{static_cast<unsigned>(day.month)} / std::chrono::day{static_cast<unsigned>(day.day)};
  if (!calendar.ok()) return {};
  return static_cast<int>((std::chrono::sys_days{calendar} - kEpoch).count());
}

std::optional<Date> DateSerial(int year, int month, int day) {
  const std::optional<int> number = year < kFirstYear ? std::nullopt : DayNumber({year, month, day});
  if (!number) return {};
  return Date{static_cast<double>(*number)};
}

CalendarDay CalendarOf(Date date) {
  const std::chrono::year_month_day calendar{kEpoch + std::chrono::days{PartsOf(date).day}};
  return {int{calendar.year()}, static_cast<int>(unsigned{calendar.month()}), static_cast<int>(unsigned{calendar.day()})};
}

int SecondsOf(Date date) { return PartsOf(date).seconds; }

Date MomentOf(double dayNumber, int seconds) {
  const double time = seconds / static_cast<double>(kSecondsOfDay);
  return {dayNumber < 0 ? dayNumber - time : dayNumber + time};
}

std::string ShortDate(Date date) {
  const CalendarDay day = CalendarOf(date);
  return std::to_string(day.month) + '/' + std::to_string(day.day) + '/' + std::to_string(day.year);
}

std::string GeneralDate(Date date) {
  const auto [day, seconds] = PartsOf(date);
  if (day == 0) return TimeText(seconds);
  return seconds == 0 ? ShortDate(date) : ShortDate(date) + ' ' + TimeText(seconds);
}

}  // namespace platform
