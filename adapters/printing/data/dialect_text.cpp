#include "printing/data/dialect_text.h"

#include <array>
#include <charconv>
#include <cstdio>

#include "platform/values/calendar.h"

namespace printing::dialect {

using platform::ValueKind;

std::string Name(std::string_view name) { return '[' + std::string(name) + ']'; }

std::string Text(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("''") : std::string(1, c);
  return quoted + '\'';
}

std::string Field(std::string_view table, std::string_view field) { return Name(table) + '.' + Name(field); }

std::string Constant(const platform::Value& value) {
  if (value.IsText()) return Text(value.As<std::string>());
  if (value.Kind() == ValueKind::Boolean) return value.As<bool>() ? "True" : "False";
  std::array<char, 64> room{};
  if (value.Kind() == ValueKind::Date) {
    const platform::CalendarDay day = platform::CalendarOf(value.As<platform::Date>());
    std::snprintf(room.data(), room.size(), "#%04d-%02d-%02d#", day.year, day.month, day.day);
    return room.data();
  }
  const auto end = std::to_chars(room.data(), room.data() + room.size(), value.As<double>());
  return {room.data(), end.ptr};
}

}  // namespace printing::dialect
