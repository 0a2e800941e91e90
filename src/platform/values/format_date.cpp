#include "platform/values/format_date.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <iterator>

#include "platform/values/calendar.h"

namespace platform {

namespace {

constexpr std::string_view kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                        "July",    "August",   "September", "October", "November", "December"};
constexpr std::string_view kDays[] = {"Saturday", "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday"};
constexpr std::size_t kShortName = 3;

char Small(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

bool IsDateLetter(char c) { return std::string_view("dmyhnsqw").find(c) != std::string_view::npos; }

/// The halves of a day as a format writes them, and what each stands for.
struct HalfDay {
  std::string_view written, morning, afternoon;
};
constexpr HalfDay kHalfDays[] = {{"AM/PM", "AM", "PM"}, {"am/pm", "am", "pm"}, {"A/P", "A", "P"}, {"a/p", "a", "p"}};

const HalfDay* HalfDayAt(std::string_view format) {
  const auto* found = std::find_if(std::begin(kHalfDays), std::end(kHalfDays), [&](const HalfDay& half) { return format.starts_with(half.written); });
  return found == std::end(kHalfDays) ? nullptr : found;
}

std::string Figures(int number, std::size_t least) {
  std::string figures = std::to_string(number);
  return figures.size() < least ? std::string(least - figures.size(), '0') + figures : figures;
}

std::string NameOrNumber(std::string_view name, int number, std::size_t letters) {
  if (letters < kShortName) return Figures(number, letters);
  return std::string(letters == kShortName ? name.substr(0, kShortName) : name);
}

/// From 0, Saturday: 30 December 1899 was one.
int WeekdayOf(Date date) { return (static_cast<int>(std::floor(date.serial)) % 7 + 7) % 7; }

int DayOfYear(Date date) {
  const CalendarDay day = CalendarOf(date);
  return *DayNumber(day) - *DayNumber({day.year, 1, 1}) + 1;
}

/// Weeks begin on Sundays, the first one on the first of January.
int WeekOf(Date date) {
  const int sunday = (WeekdayOf(date) + 6) % 7;  // from 0
  return (DayOfYear(date) + 5 - sunday) / 7 + 1;
}

/// The parts of a date that so many of the same letter stand for.
std::string DayPart(Date date, std::size_t letters) {
  constexpr std::size_t kLongDate = 6;
  if (letters == kLongDate - 1) return ShortDate(date);
  if (letters >= kLongDate) return FormatDateBy(date, kLongDateFormat);
  return NameOrNumber(kDays[WeekdayOf(date)], CalendarOf(date).day, letters);
}

std::string YearPart(Date date, std::size_t letters) {
  const int year = CalendarOf(date).year;
  if (letters == 1) return std::to_string(DayOfYear(date));
  return letters > 2 ? Figures(year, 4) : Figures(year % 100, 2);
}

int HourOf(Date date, bool halves) {
  const int hour = SecondsOf(date) / 3600;
  return halves ? (hour + 11) % 12 + 1 : hour;
}

/// What the letters of a format that are read so far say about those to come.
struct Reading {
  bool halves = false;       ///< hours count to twelve
  bool behindHours = false;  ///< "m" is minutes
};

std::string Part(Date date, char letter, std::size_t letters, const Reading& reading) {
  switch (letter) {
    case 'd':
      return DayPart(date, letters);
    case 'y':
      return YearPart(date, letters);
    case 'h':
      return Figures(HourOf(date, reading.halves), letters);
    case 'n':
      return Figures(SecondsOf(date) / 60 % 60, letters);
    case 's':
      return Figures(SecondsOf(date) % 60, letters);
    case 'q':
      return std::to_string((CalendarOf(date).month + 2) / 3);
    case 'w':
      return std::to_string(letters == 1 ? (WeekdayOf(date) + 6) % 7 + 1 : WeekOf(date));
    default:
      break;
  }
  if (reading.behindHours && letters <= 2) return Figures(SecondsOf(date) / 60 % 60, letters);
  const int month = CalendarOf(date).month;
  return NameOrNumber(kMonths[month - 1], month, letters);
}

/// Where the literal that begins at `i` ends, and its text; nothing where none begins there.
std::size_t Literal(std::string_view format, std::size_t i, std::string& text) {
  if (format[i] == '\\' && i + 1 < format.size()) {
    text += format[i + 1];
    return i + 2;
  }
  if (format[i] != '"') return i;
  const std::size_t end = std::min(format.find('"', i + 1), format.size());
  text += format.substr(i + 1, end - i - 1);
  return std::min(end + 1, format.size());
}

/// Whether hours count to twelve: a mark of the half day stands somewhere outside of literals.
bool HasHalves(std::string_view format) {
  std::string ignored;
  for (std::size_t i = 0; i < format.size();) {
    const std::size_t behind = Literal(format, i, ignored);
    if (behind == i && HalfDayAt(format.substr(i))) return true;
    i = behind == i ? i + 1 : behind;
  }
  return false;
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
  Reading reading{HasHalves(format), false};
  for (std::size_t i = 0; i < format.size();) {
    if (const std::size_t behind = Literal(format, i, text); behind > i) {
      i = behind;
      continue;
    }
    const char c = Small(format[i]);
    if (const HalfDay* half = HalfDayAt(format.substr(i))) {
      text += SecondsOf(date) / 3600 < 12 ? half->morning : half->afternoon;
      i += half->written.size();
    } else if (IsDateLetter(c)) {
      std::size_t letters = 1;
      while (i + letters < format.size() && Small(format[i + letters]) == c) ++letters;
      text += Part(date, c, letters, reading);
      reading.behindHours = c == 'h';
      i += letters;
    } else {
      text += format[i++];
    }
  }
  return text;
}

}  // namespace platform
