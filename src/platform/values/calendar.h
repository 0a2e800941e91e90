#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/values/value.h"

/// Days of the calendar, times of day, and the texts of both. Texts are en-US, whatever the C locale says.
namespace platform {

inline constexpr int kSecondsOfDay = 24 * 60 * 60;

struct CalendarDay {
  int year = 1899;
  int month = 12;
  int day = 30;
};

/// Days from 30 Dec 1899 to that day, years 0 to 9999; nothing for a day that no month has.
std::optional<int> DayNumber(CalendarDay day);
/// The day as a date, from 1 Jan 100 on; nothing for an impossible day.
std::optional<Date> DateSerial(int year, int month, int day);
CalendarDay CalendarOf(Date date);
/// Seconds since midnight of the date's time part, rounded to whole seconds.
int SecondsOf(Date date);
/// A moment of the day with that number: the time counts away from day 0.
Date MomentOf(double dayNumber, int seconds);

/// "M/d/yyyy".
std::string ShortDate(Date date);
/// Short date, with " h:mm:ss AM" behind it when the date has a time; a time of day 0 alone is the time.
std::string GeneralDate(Date date);

/// A text with a date, a time or both, in en-US order: month/day/year; where that is impossible year/month/day, then
/// day/month/year; month names in full or by their first three letters. Years 0 to 29 are 20xx, 30 to 99 are 19xx. Month and
/// day alone are of `thisYear`, and no date when that is 0. Nothing when the text is no date.
std::optional<Date> ParseDate(std::string_view text, int thisYear);

}  // namespace platform
