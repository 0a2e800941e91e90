#include "engine/sql/date_literal.h"

#include "platform/values/calendar.h"

namespace engine::sql {
namespace {

void AppendTwo(std::string& text, int number) {
  if (number < 10) text += '0';
  text += std::to_string(number);
}

}  // namespace

std::optional<platform::Date> ReadDateLiteral(std::string_view text) { return platform::ParseDate(text, 0); }

std::string PrintDateLiteral(platform::Date date) {
  const platform::CalendarDay day = platform::CalendarOf(date);
  std::string text = std::to_string(day.month) + '/' + std::to_string(day.day) + '/' + std::to_string(day.year);
  const int seconds = platform::SecondsOf(date);
  if (seconds == 0) return text;
  text += ' ';
  text += std::to_string(seconds / 3600) + ':';
  AppendTwo(text, seconds / 60 % 60);
  text += ':';
  AppendTwo(text, seconds % 60);
  return text;
}

}  // namespace engine::sql
