#include "engine/store/sqlite/stored_values.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <utility>

#include "engine/store/sqlite/names.h"
#include "platform/text.h"

namespace engine {
namespace {

using platform::Date;
using platform::FieldType;
using platform::Value;
using platform::ValueKind;

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

std::string DoubleLiteral(double number) {
  if (std::isinf(number)) return number < 0 ? "-9e999" : "9e999";
  if (std::isnan(number)) return "NULL";
  std::array<char, 64> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
  std::string text(buffer.data(), end);
  if (text.find_first_of(".e") == std::string::npos) text += ".0";
  return text;
}

// Only "MEMO TEXT" gives the store's text affinity; a bare "MEMO" would turn digits into numbers.
constexpr std::array<std::pair<FieldType, std::string_view>, 9> plainTypes{{{FieldType::Boolean, "BOOLEAN"},
                                                                            {FieldType::Byte, "BYTE"},
                                                                            {FieldType::Short, "SHORT"},
                                                                            {FieldType::Long, "LONG"},
                                                                            {FieldType::Counter, "INTEGER"},
                                                                            {FieldType::Currency, "CURRENCY"},
                                                                            {FieldType::Double, "DOUBLE"},
                                                                            {FieldType::Date, "DATE"},
                                                                            {FieldType::Memo, "MEMO TEXT"}}};

}  // namespace

std::string StoredDate(Date date) {
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

std::optional<Date> ParseStoredDate(std::string_view text) {
  if (text.size() != 10 && text.size() != 19) return {};
  if (text[4] != '-' || text[7] != '-') return {};
  const Day day{Digits(text, 0, 4), Digits(text, 5, 2), Digits(text, 8, 2)};
  if (day.year < 0 || day.month < 1 || day.month > 12 || day.day < 1 || day.day > 31) return {};
  const int days = UnixDays(day) - epochInUnixDays;
  if (text.size() == 10) return Date{static_cast<double>(days)};

  const int hours = Digits(text, 11, 2);
  const int minutes = Digits(text, 14, 2);
  const int seconds = Digits(text, 17, 2);
  if (text[10] != ' ' || text[13] != ':' || text[16] != ':' || hours < 0 || hours > 23 || minutes < 0 || minutes > 59 || seconds < 0 ||
      seconds > 59)
    return {};
  const double time = (hours * 3600 + minutes * 60 + seconds) / static_cast<double>(secondsPerDay);
  return Date{days < 0 ? days - time : days + time};
}

std::string StoredLiteral(const Value& value) {
  switch (value.Kind()) {
    case ValueKind::Empty:
    case ValueKind::Null:
      return "NULL";
    case ValueKind::Boolean:
      return value.As<bool>() ? "-1" : "0";
    case ValueKind::Byte:
      return std::to_string(value.As<std::uint8_t>());
    case ValueKind::Short:
      return std::to_string(value.As<std::int16_t>());
    case ValueKind::Long:
      return std::to_string(value.As<std::int32_t>());
    case ValueKind::Currency:
      return std::to_string(value.As<platform::Currency>().tenThousandths);
    case ValueKind::Double:
      return DoubleLiteral(value.As<double>());
    case ValueKind::Date:
      return QuoteText(StoredDate(value.As<Date>()));
    case ValueKind::Text:
      return QuoteText(value.As<std::string>());
  }
  return "NULL";
}

std::string DeclaredType(FieldType type, int size) {
  if (type == FieldType::Text) return "TEXT(" + std::to_string(size) + ")";
  for (const auto& [plain, word] : plainTypes)
    if (plain == type) return std::string(word);
  return {};
}

std::optional<FieldType> ParseDeclaredType(std::string_view declared, int& size) {
  size = 0;
  for (const auto& [type, word] : plainTypes)
    if (platform::EqualsNoCase(word, declared)) return type;
  constexpr std::string_view text = "TEXT(";
  if (declared.size() <= text.size() || !platform::EqualsNoCase(declared.substr(0, text.size()), text)) return {};
  const auto result = std::from_chars(declared.data() + text.size(), declared.data() + declared.size(), size);
  if (result.ec != std::errc() || *result.ptr != ')') return {};
  return FieldType::Text;
}

}  // namespace engine
