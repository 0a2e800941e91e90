#include "engine/functions/store_functions.h"

#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include "engine/functions/functions.h"
#include "engine/functions/stored_value.h"
#include "platform/values/calendar.h"
#include "platform/values/format.h"

namespace engine {
namespace {

using Result = StoredValue;

constexpr std::int64_t kScale = 10'000;

template <auto Function>
Result NullStays(Arguments arguments) {
  return AnyNull(arguments) ? Result() : Function(arguments);
}

// Range tests ---------------------------------------------------------------------------------------------------------

// The store turns a whole number that leaves 64 bits into a real one.
template <std::int64_t Lowest, std::int64_t Highest>
Result Fit(Arguments a) {
  const auto* whole = std::get_if<std::int64_t>(&a[0]);
  if (whole == nullptr || *whole < Lowest || *whole > Highest) throw platform::error::Overflow();
  return *whole;
}

// Arithmetic ----------------------------------------------------------------------------------------------------------

double Finite(double number) {
  if (!std::isfinite(number)) throw platform::error::Overflow();
  return number;
}

Result Divide(Arguments a) {
  const double divisor = RealOf(a[1]);
  if (divisor == 0) throw platform::error::DivisionByZero();
  return Finite(RealOf(a[0]) / divisor);
}

Result IntDiv(Arguments a) {
  const std::int64_t number = LongOf(a[0]);
  const std::int64_t divisor = LongOf(a[1]);
  if (divisor == 0) throw platform::error::DivisionByZero();
  const std::int64_t quotient = number / divisor;
  if (quotient > std::numeric_limits<std::int32_t>::max()) throw platform::error::Overflow();
  return quotient;
}

Result Modulo(Arguments a) {
  const std::int64_t number = LongOf(a[0]);
  const std::int64_t divisor = LongOf(a[1]);
  if (divisor == 0) throw platform::error::DivisionByZero();
  return number % divisor;
}

Result Power(Arguments a) {
  const double base = RealOf(a[0]);
  const double exponent = RealOf(a[1]);
  if (base < 0 && exponent != std::trunc(exponent)) throw platform::error::InvalidCall();
  if (base == 0 && exponent < 0) throw platform::error::InvalidCall();
  return Finite(std::pow(base, exponent));
}

Result MulCur(Arguments a) {
  __extension__ using Wide = __int128;
  const auto* left = std::get_if<std::int64_t>(&a[0]);
  const auto* right = std::get_if<std::int64_t>(&a[1]);
  if (left == nullptr || right == nullptr) throw platform::error::Overflow();
  const Wide product = Wide{*left} * *right;
  Wide quotient = product / kScale;
  const Wide rest = product < 0 ? -(product % kScale) : product % kScale;
  const Wide step = product < 0 ? -1 : 1;
  if (rest * 2 > kScale || (rest * 2 == kScale && quotient % 2 != 0)) quotient += step;
  if (quotient < std::numeric_limits<std::int64_t>::min() || quotient > std::numeric_limits<std::int64_t>::max())
    throw platform::error::Overflow();
  return static_cast<std::int64_t>(quotient);
}

// Conversions ---------------------------------------------------------------------------------------------------------

Result ToCur(Arguments a) { return platform::CCur(ValueOf(a[0])).tenThousandths; }
Result ToReal(Arguments a) { return RealOf(a[0]); }
Result Serial(Arguments a) { return DateOf(a[0]).serial; }
Result ToDate(Arguments a) { return IsoOfSerial(RealOf(a[0])); }

Result Concat(Arguments a) {
  std::string joined;
  bool any = false;
  for (const StoredValue& value : a) {
    any = any || !IsNullArgument(value);
    joined += TextOf(value);
  }
  return any ? Result(std::move(joined)) : Result();
}

Result TextNum(Arguments a) {
  if (const auto* whole = std::get_if<std::int64_t>(&a[0])) return std::to_string(*whole);
  return platform::CStr(ValueOf(a[0]));
}
Result TextCur(Arguments a) {
  const auto* amount = std::get_if<std::int64_t>(&a[0]);
  return platform::CStr(amount == nullptr ? ValueOf(a[0]) : platform::Value(platform::Currency{*amount}));
}
Result TextDate(Arguments a) { return platform::CStr(DateOf(a[0])); }
Result TextBool(Arguments a) { return platform::CStr(RealOf(a[0]) != 0); }

// A text with month and day alone is of the moment's year.
int YearOf(const StoredValue& moment) { return platform::CalendarOf(DateOf(moment)).year; }
Result CDate(Arguments a) { return IsoOfSerial(platform::CDate(ValueOf(a[0]), YearOf(a[1])).serial); }
Result IsDate(Arguments a) { return std::int64_t{platform::IsDate(ValueOf(a[0]), YearOf(a[1])) ? -1 : 0}; }

// Format --------------------------------------------------------------------------------------------------------------

// Null shows as nothing, in every format.
Result FormatAs(Arguments a, const platform::Value& value, int thisYear = 0) {
  return platform::Format(IsNullArgument(a[0]) ? platform::Value(platform::Null) : value, TextOf(a[1]), thisYear);
}
Result FormatValue(Arguments a) { return FormatAs(a, ValueOf(a[0]), YearOf(a[2])); }
Result FormatBool(Arguments a) { return FormatAs(a, !IsNullArgument(a[0]) && RealOf(a[0]) != 0); }
Result FormatCur(Arguments a) {
  const auto* amount = std::get_if<std::int64_t>(&a[0]);
  return FormatAs(a, amount == nullptr ? ValueOf(a[0]) : platform::Value(platform::Currency{*amount}));
}
Result FormatDate(Arguments a) { return FormatAs(a, IsNullArgument(a[0]) ? platform::Date{} : DateOf(a[0])); }

// The moment's parts --------------------------------------------------------------------------------------------------

Result DayOf(Arguments a) { return IsoText({std::floor(DateOf(a[0]).serial)}); }
Result TimeOf(Arguments a) {
  const double serial = DateOf(a[0]).serial;
  return IsoText({serial - std::floor(serial)});
}

constexpr auto kFitByte = Fit<0, 255>;
constexpr auto kFitShort = Fit<std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()>;
constexpr auto kFitLong = Fit<std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()>;
constexpr auto kFitCur = Fit<std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()>;

constexpr std::array<StoreFunction, 26> kHelpers{{
    {"cdate", 2, NullStays<CDate>},
    {"concat", -1, Concat},
    {"dayof", 1, NullStays<DayOf>},
    {"divide", 2, NullStays<Divide>},
    {"fitbyte", 1, NullStays<kFitByte>},
    {"fitcur", 1, NullStays<kFitCur>},
    {"fitlong", 1, NullStays<kFitLong>},
    {"fitshort", 1, NullStays<kFitShort>},
    {"format", 3, FormatValue},
    {"formatbool", 2, FormatBool},
    {"formatcur", 2, FormatCur},
    {"formatdate", 2, FormatDate},
    {"isdate", 2, IsDate},
    {"intdiv", 2, NullStays<IntDiv>},
    {"modulo", 2, NullStays<Modulo>},
    {"mulcur", 2, NullStays<MulCur>},
    {"power", 2, NullStays<Power>},
    {"serial", 1, NullStays<Serial>},
    {"textbool", 1, NullStays<TextBool>},
    {"textcur", 1, NullStays<TextCur>},
    {"textdate", 1, NullStays<TextDate>},
    {"textnum", 1, NullStays<TextNum>},
    {"timeof", 1, NullStays<TimeOf>},
    {"tocur", 1, NullStays<ToCur>},
    {"todate", 1, NullStays<ToDate>},
    {"toreal", 1, NullStays<ToReal>},
}};

std::vector<StoreFunction> AllFunctions() {
  std::vector<StoreFunction> all(kHelpers.begin(), kHelpers.end());
  for (const SqlFunction& function : SqlFunctions()) {
    const int most = static_cast<int>(function.parameters.size());
    all.push_back({function.name, static_cast<int>(function.least) == most ? most : -1, function.call});
  }
  return all;
}

}  // namespace

std::span<const StoreFunction> StoreFunctions() {
  static const std::vector<StoreFunction> all = AllFunctions();
  return all;
}

}  // namespace engine
