#include "engine/values/iso_date.h"

#include <array>
#include <cmath>

namespace engine {
namespace {

using platform::Date;

constexpr int secondsPerDay = 86'400;
constexpr int epochInUnixDays = -25'569;  // 30 December 1899

struct Day {
  int year;
  int month;
  int day;
};

// Days since 1 January 1970 of a day of the proleptic Gregorian calendar, and back. Years are counted from March, so that
// the leap day comes last.
int UnixDays(Day date) {
  const int year = date.month <= 2 ? date.year - 1 : date.year;
  const int era = (year >= 0 ? year : year - 399) / 400;
  const int yearOfEra = year - era * 400;
  const int dayOfYear = (153 * (date.month > 2 ? date.month - 3 : date.month + 9) + 2) / 5 + date.day - 1;
  const int dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
  return era * 146'097 + dayOfEra - 719'468;
}

Day FromUnixDays(int days) {
  days += 719'468;
  const int era = (days >= 0 ? days : days - 146'096) / 146'097;
  const int dayOfEra = days - era * 146'097;
  const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36'524 - dayOfEra / 146'096) / 365;
  const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const int shifted = (5 * dayOfYear + 2) / 153;
  const int month = shifted < 10 ? shifted + 3 : shifted - 9;
  return {yearOfEra + era * 400 + (month <= 2 ? 1 : 0), month, dayOfYear - (153 * shifted + 2) / 5 + 1};
}

void AppendDigits(std::string& text, int number, int digits) {
  std::array<char, 12> buffer{};
  for (int i = digits; i > 0; --i, number /= 10) buffer[static_cast<std::size_t>(i - 1)] = static_cast<char>('0' + number % 10);
  text.append(buffer.data(), static_cast<std::size_t>(digits));
}

// The number in text[from, from + digits), -1 when a character is no digit.
int Digits(std::string_view text, std::size_t from, std::size_t digits) {
  int number = 0;
  for (std::size_t i = from; i < from + digits; ++i) {
    if (text[i] < '0' || text[i] > '9') return -1;
    number = number * 10 + (text[i] - '0');
  }
  return number;
}

// The days since the epoch of "yyyy-mm-dd"; nothing for a day that no month has.
std::optional<int> DaysOf(std::string_view text) {
  if (text[4] != '-' || text[7] != '-') return {};
  const Day day{Digits(text, 0, 4), Digits(text, 5, 2), Digits(text, 8, 2)};
  if (day.year < 0 || day.month < 1 || day.month > 12 || day.day < 1 || day.day > 31) return {};
  const int days = UnixDays(day);
  constexpr int daysOfEveryMonth = 28;
  if (day.day > daysOfEveryMonth && FromUnixDays(days).day != day.day) return {};
  return days - epochInUnixDays;
}

}  // namespace

std::string IsoText(Date date) {
  double day = std::trunc(date.serial);
  int seconds = static_cast<int>(std::lround(std::fabs(date.serial - day) * secondsPerDay));
  if (seconds >= secondsPerDay) {
    seconds -= secondsPerDay;
    day += 1;
  }
  const Day calendar = FromUnixDays(static_cast<int>(day) + epochInUnixDays);
  std::string text;
  text.reserve(19);
  AppendDigits(text, calendar.year, 4);
  text += '-';
  AppendDigits(text, calendar.month, 2);
  text += '-';
  AppendDigits(text, calendar.day, 2);
  if (seconds == 0) return text;
  text += ' ';
  AppendDigits(text, seconds / 3600, 2);
  text += ':';
  AppendDigits(text, seconds / 60 % 60, 2);
  text += ':';
  AppendDigits(text, seconds % 60, 2);
  return text;
}

std::optional<Date> DateOfIso(std::string_view text) {
  constexpr std::size_t dayOnly = 10;
  constexpr std::size_t withTime = 19;
  if (text.size() != dayOnly && text.size() != withTime) return {};
  const std::optional<int> days = DaysOf(text);
  if (!days || text.size() == dayOnly) return days ? std::optional(Date{static_cast<double>(*days)}) : std::nullopt;

  const int hours = Digits(text, 11, 2);
  const int minutes = Digits(text, 14, 2);
  const int seconds = Digits(text, 17, 2);
  if (text[10] != ' ' || text[13] != ':' || text[16] != ':' || hours < 0 || hours > 23 || minutes < 0 || minutes > 59 || seconds < 0 ||
      seconds > 59)
    return {};
  const double time = (hours * 3600 + minutes * 60 + seconds) / static_cast<double>(secondsPerDay);
  return Date{*days < 0 ? *days - time : *days + time};
}

}  // namespace engine
