#include "platform/values/format_date.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "platform/values/calendar.h"

namespace platform {

namespace {

constexpr std::string_view kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                        "July",    "August",   "September", "October", "November", "December"};
constexpr std::string_view kDays[] = {"Saturday", "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday"};
constexpr std::size_t kShortName = 3;

char Small(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

bool IsDateLetter(char c) { return c == 'd' || c == 'm' || c == 'y'; }

std::string Figures(int number, std::size_t least) {
  std::string figures = std::to_string(number);
  return figures.size() < least ? std::string(least - figures.size(), '0') + figures : figures;
}

std::string NameOrNumber(std::string_view name, int number, std::size_t letters) {
  if (letters < kShortName) return Figures(number, letters);
  return std::string(letters == kShortName ? name.substr(0, kShortName) : name);
}

/// The part of a date that so many of the same letter stand for.
std::string Part(Date date, char letter, std::size_t letters) {
  const CalendarDay day = CalendarOf(date);
  if (letter == 'm') return NameOrNumber(kMonths[day.month - 1], day.month, letters);
  if (letter == 'y') return letters > 2 ? Figures(day.year, 4) : Figures(day.year % 100, 2);
  // 30 December 1899 was a Saturday.
  const int weekday = (static_cast<int>(std::floor(date.serial)) % 7 + 7) % 7;
  return NameOrNumber(kDays[weekday], day.day, letters);
}

}  // namespace

bool IsDateFormat(std::string_view format) {
  bool letter = false;
  for (std::size_t i = 0; i < format.size(); ++i) {
    const char c = Small(format[i]);
    if (c == '\\') {
      ++i;
    } else if (c == '"') {
      i = std::min(format.find('"', i + 1), format.size());
    } else if (std::string_view("0#@&<>!%;").find(c) != std::string_view::npos) {
      return false;
    } else {
      letter = letter || IsDateLetter(c);
    }
  }
  return letter;
}

std::string FormatDateBy(Date date, std::string_view format) {
  std::string text;
  for (std::size_t i = 0; i < format.size();) {
    const char c = Small(format[i]);
    if (c == '\\' && i + 1 < format.size()) {
      text += format[i + 1];
      i += 2;
    } else if (c == '"') {
      const std::size_t end = std::min(format.find('"', i + 1), format.size());
      text += format.substr(i + 1, end - i - 1);
      i = end + 1;
    } else if (IsDateLetter(c)) {
      std::size_t letters = 1;
      while (i + letters < format.size() && Small(format[i + letters]) == c) ++letters;
      text += Part(date, c, letters);
      i += letters;
    } else {
      text += format[i++];
    }
  }
  return text;
}

}  // namespace platform
