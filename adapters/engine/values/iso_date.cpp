#include "engine/values/iso_date.h"

#include <array>

#include "platform/values/calendar.h"

namespace engine {
namespace {

using platform::Date;

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

// The number of the day "yyyy-mm-dd"; nothing for a day that no month has.
std::optional<int> DayOf(std::string_view text) {
  if (text[4] != '-' || text[7] != '-') return {};
  return platform::DayNumber({Digits(text, 0, 4), Digits(text, 5, 2), Digits(text, 8, 2)});
}

}  // namespace

std::string IsoText(Date date) {
  const platform::CalendarDay day = platform::CalendarOf(date);
  const int seconds = platform::SecondsOf(date);
  std::string text;
  text.reserve(19);
  AppendDigits(text, day.year, 4);
  text += '-';
  AppendDigits(text, day.month, 2);
  text += '-';
  AppendDigits(text, day.day, 2);
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
  constexpr std::size_t kDayOnly = 10;
  constexpr std::size_t kWithTime = 19;
  if (text.size() != kDayOnly && text.size() != kWithTime) return {};
  const std::optional<int> day = DayOf(text);
  if (!day || text.size() == kDayOnly) return day ? std::optional(Date{static_cast<double>(*day)}) : std::nullopt;

  const int hours = Digits(text, 11, 2);
  const int minutes = Digits(text, 14, 2);
  const int seconds = Digits(text, 17, 2);
  if (text[10] != ' ' || text[13] != ':' || text[16] != ':' || hours < 0 || hours > 23 || minutes < 0 || minutes > 59 || seconds < 0 ||
      seconds > 59)
    return {};
  return platform::MomentOf(*day, hours * 3600 + minutes * 60 + seconds);
}

}  // namespace engine
