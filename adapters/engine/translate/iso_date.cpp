#include "engine/translate/iso_date.h"

#include <charconv>

#include "platform/convert.h"

namespace engine {
namespace {

void Append(std::string& text, int number, std::size_t digits) {
  const std::string plain = std::to_string(number);
  if (plain.size() < digits) text.append(digits - plain.size(), '0');
  text += plain;
}

// The number at `at`, -1 when one of the characters is no digit.
int Number(std::string_view text, std::size_t at, std::size_t digits) {
  int number = 0;
  for (const char c : text.substr(at, digits)) {
    if (c < '0' || c > '9') return -1;
    number = number * 10 + (c - '0');
  }
  return number;
}

}  // namespace

std::string IsoText(platform::Date date) {
  const platform::CalendarDay day = platform::CalendarOf(date);
  std::string text;
  Append(text, day.year, 4);
  text += '-';
  Append(text, day.month, 2);
  text += '-';
  Append(text, day.day, 2);
  const int seconds = platform::SecondsOf(date);
  if (seconds == 0) return text;
  text += ' ';
  Append(text, seconds / 3600, 2);
  text += ':';
  Append(text, seconds / 60 % 60, 2);
  text += ':';
  Append(text, seconds % 60, 2);
  return text;
}

std::optional<platform::Date> DateOfIso(std::string_view text) {
  constexpr std::size_t dayOnly = 10;
  constexpr std::size_t withTime = 19;
  if (text.size() != dayOnly && text.size() != withTime) return std::nullopt;
  if (text[4] != '-' || text[7] != '-') return std::nullopt;
  std::optional<platform::Date> date = platform::DateSerial(Number(text, 0, 4), Number(text, 5, 2), Number(text, 8, 2));
  if (!date || text.size() == dayOnly) return date;
  const int hour = Number(text, 11, 2);
  const int minute = Number(text, 14, 2);
  const int second = Number(text, 17, 2);
  if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59) return std::nullopt;
  const double time = (hour * 3600 + minute * 60 + second) / 86400.0;
  date->serial += date->serial < 0 ? -time : time;
  return date;
}

}  // namespace engine
