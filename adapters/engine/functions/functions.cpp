#include "engine/functions/functions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "engine/functions/stored_value.h"
#include "platform/values/calendar.h"
#include "platform/values/text.h"

namespace engine {
namespace {

using Result = StoredValue;

Result Truth(bool truth) { return std::int64_t{truth ? -1 : 0}; }

// Most functions stay Null with a Null argument.
template <auto Function>
Result NullStays(Arguments arguments) {
  return AnyNull(arguments) ? Result() : Function(arguments);
}

int CountOf(const StoredValue& value) { return LongOf(value); }

// Texts ---------------------------------------------------------------------------------------------------------------

Result Val(Arguments a) { return platform::Val(TextOf(a[0])); }
Result Len(Arguments a) { return std::int64_t{platform::Len(TextOf(a[0]))}; }
Result LenB(Arguments a) { return std::int64_t{2} * platform::Len(TextOf(a[0])); }
Result Left(Arguments a) { return platform::Left(TextOf(a[0]), CountOf(a[1])); }
Result Right(Arguments a) { return platform::Right(TextOf(a[0]), CountOf(a[1])); }
Result Mid(Arguments a) {
  std::optional<int> characters;
  if (a.size() > 2) characters = CountOf(a[2]);
  return platform::Mid(TextOf(a[0]), CountOf(a[1]), characters);
}
Result Trim(Arguments a) { return platform::Trim(TextOf(a[0])); }
Result LTrim(Arguments a) { return platform::LTrim(TextOf(a[0])); }
Result RTrim(Arguments a) { return platform::RTrim(TextOf(a[0])); }
Result UCase(Arguments a) { return platform::UCase(TextOf(a[0])); }
Result LCase(Arguments a) { return platform::LCase(TextOf(a[0])); }
// A start stands in front of the two texts or is left out.
Result InStr(Arguments a) {
  const bool start = a.size() > 2;
  return std::int64_t{platform::InStr(start ? CountOf(a[0]) : 1, TextOf(a[start ? 1 : 0]), TextOf(a[start ? 2 : 1]))};
}
Result Str(Arguments a) { return platform::Str(RealOf(a[0])); }
Result Space(Arguments a) {
  constexpr int kMost = 65'535;
  const int count = CountOf(a[0]);
  if (count < 0 || count > kMost) throw platform::error::InvalidCall();
  return std::string(static_cast<std::size_t>(count), ' ');
}
Result IsNumeric(Arguments a) { return Truth(platform::IsNumeric(ValueOf(a[0]))); }

// Numbers -------------------------------------------------------------------------------------------------------------

Result CByte(Arguments a) {
  const std::int32_t number = LongOf(a[0]);
  if (number < 0 || number > 255) throw platform::error::Overflow();
  return std::int64_t{number};
}
Result CInt(Arguments a) { return std::int64_t{platform::CInt(ValueOf(a[0]))}; }
Result CLng(Arguments a) { return std::int64_t{LongOf(a[0])}; }
Result CBool(Arguments a) { return Truth(platform::CBool(ValueOf(a[0]))); }
Result Int(Arguments a) { return std::floor(RealOf(a[0])); }
Result Fix(Arguments a) { return std::trunc(RealOf(a[0])); }
Result Abs(Arguments a) {
  // The lowest one has no counterpart, and stays.
  if (const auto* whole = std::get_if<std::int64_t>(&a[0]))
    return *whole < 0 && *whole != std::numeric_limits<std::int64_t>::min() ? -*whole : *whole;
  return std::fabs(RealOf(a[0]));
}
Result Sgn(Arguments a) {
  const double number = RealOf(a[0]);
  return std::int64_t{number < 0 ? -1 : (number > 0 ? 1 : 0)};
}
Result Sqr(Arguments a) {
  const double number = RealOf(a[0]);
  if (number < 0) throw platform::error::InvalidCall();
  return std::sqrt(number);
}

// Dates ---------------------------------------------------------------------------------------------------------------

Result Year(Arguments a) { return std::int64_t{platform::CalendarOf(DateOf(a[0])).year}; }
Result Month(Arguments a) { return std::int64_t{platform::CalendarOf(DateOf(a[0])).month}; }
Result Day(Arguments a) { return std::int64_t{platform::CalendarOf(DateOf(a[0])).day}; }
Result Hour(Arguments a) { return std::int64_t{platform::SecondsOf(DateOf(a[0])) / 3600}; }
Result Minute(Arguments a) { return std::int64_t{platform::SecondsOf(DateOf(a[0])) / 60 % 60}; }
Result Second(Arguments a) { return std::int64_t{platform::SecondsOf(DateOf(a[0])) % 60}; }
// 1 is Sunday; 30 December 1899 was a Saturday.
Result Weekday(Arguments a) {
  const double day = std::trunc(DateOf(a[0]).serial);
  return std::int64_t{static_cast<int>(day - 7 * std::floor((day + 6) / 7)) + 7};
}
Result DateSerial(Arguments a) {
  // Months and days outside their range carry over.
  constexpr std::int64_t kNoYear = -1;
  constexpr std::int64_t kBehindAllYears = 10'000;
  const std::int64_t months = std::int64_t{CountOf(a[1])} - 1;
  const std::int64_t carry = (months >= 0 ? months : months - 11) / 12;
  const std::int64_t year = std::clamp(CountOf(a[0]) + carry, kNoYear, kBehindAllYears);
  const std::optional<platform::Date> first = platform::DateSerial(static_cast<int>(year), static_cast<int>(months - carry * 12 + 1), 1);
  if (!first) throw platform::error::InvalidCall();
  return IsoOfSerial(first->serial + CountOf(a[2]) - 1);
}

constexpr std::array<SqlFunction, 32> kFunctions{{
    {"abs", "n", 1, SqlType::Double, NullStays<Abs>},  //
    {"cbool", "v", 1, SqlType::Boolean, NullStays<CBool>},
    {"cbyte", "v", 1, SqlType::Byte, NullStays<CByte>},
    {"cint", "v", 1, SqlType::Short, NullStays<CInt>},
    {"clng", "v", 1, SqlType::Long, NullStays<CLng>},
    {"dateserial", "nnn", 3, SqlType::Date, NullStays<DateSerial>},
    {"day", "d", 1, SqlType::Short, NullStays<Day>},
    {"fix", "n", 1, SqlType::Double, NullStays<Fix>},
    {"hour", "d", 1, SqlType::Short, NullStays<Hour>},
    {"instr", "vtt", 2, SqlType::Long, NullStays<InStr>},
    {"int", "n", 1, SqlType::Double, NullStays<Int>},
    {"isnumeric", "v", 1, SqlType::Boolean, IsNumeric},
    {"lcase", "t", 1, SqlType::Text, NullStays<LCase>},
    {"left", "tn", 2, SqlType::Text, NullStays<Left>},
    {"len", "t", 1, SqlType::Long, NullStays<Len>},
    {"lenb", "t", 1, SqlType::Long, NullStays<LenB>},
    {"ltrim", "t", 1, SqlType::Text, NullStays<LTrim>},
    {"mid", "tnn", 2, SqlType::Text, NullStays<Mid>},
    {"minute", "d", 1, SqlType::Short, NullStays<Minute>},
    {"month", "d", 1, SqlType::Short, NullStays<Month>},
    {"right", "tn", 2, SqlType::Text, NullStays<Right>},
    {"rtrim", "t", 1, SqlType::Text, NullStays<RTrim>},
    {"second", "d", 1, SqlType::Short, NullStays<Second>},
    {"sgn", "n", 1, SqlType::Short, NullStays<Sgn>},
    {"space", "n", 1, SqlType::Text, NullStays<Space>},
    {"sqr", "n", 1, SqlType::Double, NullStays<Sqr>},
    {"str", "n", 1, SqlType::Text, NullStays<Str>},
    {"trim", "t", 1, SqlType::Text, NullStays<Trim>},
    {"ucase", "t", 1, SqlType::Text, NullStays<UCase>},
    {"val", "t", 1, SqlType::Double, NullStays<Val>},
    {"weekday", "d", 1, SqlType::Short, NullStays<Weekday>},
    {"year", "d", 1, SqlType::Short, NullStays<Year>},
}};

}  // namespace

std::span<const SqlFunction> SqlFunctions() { return kFunctions; }

const SqlFunction* FindSqlFunction(std::string_view name) {
  const std::string lower = platform::ToLowerAscii(name);
  const auto at = std::ranges::find(kFunctions, std::string_view(lower), &SqlFunction::name);
  return at == kFunctions.end() ? nullptr : &*at;
}

}  // namespace engine
