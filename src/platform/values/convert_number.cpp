#include <charconv>
#include <cmath>
#include <limits>

#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "platform/values/number_text.h"
#include "platform/values/text.h"

namespace platform {
namespace {

constexpr std::int64_t kCurrencyScale = 10'000;

NumberText NumberOf(const std::string& text) {
  auto number = ReadNumber(text);
  if (!number) throw error::TypeMismatch();
  return *std::move(number);
}

/// Bits of a "&H" text that fill the target turn negative, as they do in the language's own literals.
template <class Whole>
Whole WholeFromBits(std::uint64_t bits) {
  using Unsigned = std::make_unsigned_t<Whole>;
  if (bits > std::numeric_limits<Unsigned>::max()) throw error::Overflow();
  return static_cast<Whole>(static_cast<Unsigned>(bits));
}

template <class Whole>
Whole InRange(std::int64_t number) {
  if (number < std::numeric_limits<Whole>::min() || number > std::numeric_limits<Whole>::max()) throw error::Overflow();
  return static_cast<Whole>(number);
}

template <class Whole>
Whole WholeFromDouble(double number) {
  const double rounded = RoundHalfEven(number);
  if (!(rounded >= std::numeric_limits<Whole>::min() && rounded <= std::numeric_limits<Whole>::max())) throw error::Overflow();
  return static_cast<Whole>(rounded);
}

std::int64_t WholeFromCurrency(Currency amount) {
  const std::int64_t whole = amount.tenThousandths / kCurrencyScale;
  const std::int64_t rest = std::abs(amount.tenThousandths % kCurrencyScale);
  const bool away = rest > kCurrencyScale / 2 || (rest == kCurrencyScale / 2 && whole % 2 != 0);
  return away ? whole + (amount.tenThousandths < 0 ? -1 : 1) : whole;
}

template <class Whole>
Whole WholeFromText(const std::string& text) {
  const NumberText number = NumberOf(text);
  if (number.bits) return WholeFromBits<Whole>(*number.bits);
  const auto whole = ToScaled(number, 0);
  if (!whole) throw error::Overflow();
  return InRange<Whole>(*whole);
}

template <class Whole>
Whole ToWhole(const Value& value) {
  switch (value.Kind()) {
    case ValueKind::Empty:
      return 0;
    case ValueKind::Null:
      throw error::InvalidUseOfNull();
    case ValueKind::Boolean:
      return value.As<bool>() ? -1 : 0;
    case ValueKind::Byte:
      return value.As<std::uint8_t>();
    case ValueKind::Short:
      return value.As<std::int16_t>();
    case ValueKind::Long:
      return InRange<Whole>(value.As<std::int32_t>());
    case ValueKind::Currency:
      return InRange<Whole>(WholeFromCurrency(value.As<Currency>()));
    case ValueKind::Double:
      return WholeFromDouble<Whole>(value.As<double>());
    case ValueKind::Date:
      return WholeFromDouble<Whole>(value.As<Date>().serial);
    case ValueKind::Text:
      break;
  }
  return WholeFromText<Whole>(value.As<std::string>());
}

/// A Double is meant as the decimal that its first 15 digits spell: 1.00005, whose binary value lies a little beside it,
/// is a half at the fourth decimal. Numbers too large for that keep all their bits.
std::optional<std::int64_t> ScaledByItsDigits(double number) {
  constexpr double kFewDecimalsLeft = 1e10;
  if (!(std::fabs(number) < kFewDecimalsLeft)) return {};
  char digits[32];
  const auto written = std::to_chars(digits, digits + sizeof digits, number, std::chars_format::scientific, 14);
  const auto spelled = ReadNumber(std::string_view(digits, static_cast<std::size_t>(written.ptr - digits)));
  return spelled ? ToScaled(*spelled, 4) : std::nullopt;
}

Currency CurrencyFromDouble(double number) {
  if (const auto spelled = ScaledByItsDigits(number)) return {*spelled};
  const double scaled = RoundHalfEven(number * kCurrencyScale);
  constexpr double kBound = 9223372036854775808.0;  // 2^63
  if (!(scaled >= -kBound && scaled < kBound)) throw error::Overflow();
  return {static_cast<std::int64_t>(scaled)};
}

}  // namespace

double RoundHalfEven(double number) {
  const double below = std::floor(number);
  const double rest = number - below;
  if (rest < 0.5) return below;
  if (rest > 0.5) return below + 1;
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

std::int16_t CInt(const Value& value) { return ToWhole<std::int16_t>(value); }
std::int32_t CLng(const Value& value) { return ToWhole<std::int32_t>(value); }

double CDbl(const Value& value) {
  switch (value.Kind()) {
    case ValueKind::Empty:
      return 0;
    case ValueKind::Null:
      throw error::InvalidUseOfNull();
    case ValueKind::Boolean:
      return value.As<bool>() ? -1 : 0;
    case ValueKind::Byte:
      return value.As<std::uint8_t>();
    case ValueKind::Short:
      return value.As<std::int16_t>();
    case ValueKind::Long:
      return value.As<std::int32_t>();
    case ValueKind::Currency:
      return static_cast<double>(value.As<Currency>().tenThousandths) / kCurrencyScale;
    case ValueKind::Double:
      return value.As<double>();
    case ValueKind::Date:
      return value.As<Date>().serial;
    case ValueKind::Text:
      break;
  }
  const auto number = ToDouble(NumberOf(value.As<std::string>()));
  if (!number) throw error::Overflow();
  return *number;
}

Currency CCur(const Value& value) {
  switch (value.Kind()) {
    case ValueKind::Currency:
      return value.As<Currency>();
    case ValueKind::Text: {
      const auto amount = ToScaled(NumberOf(value.As<std::string>()), 4);
      if (!amount) throw error::Overflow();
      return {*amount};
    }
    default:
      return CurrencyFromDouble(CDbl(value));
  }
}

bool CBool(const Value& value) {
  if (value.Kind() == ValueKind::Boolean) return value.As<bool>();
  if (value.IsText()) {
    if (EqualsNoCase(value.As<std::string>(), "True")) return true;
    if (EqualsNoCase(value.As<std::string>(), "False")) return false;
  }
  if (value.Kind() == ValueKind::Currency) return value.As<Currency>().tenThousandths != 0;
  return CDbl(value) != 0;
}

std::optional<double> ParseNumber(std::string_view text) {
  const auto number = ReadNumber(text);
  return number ? ToDouble(*number) : std::nullopt;
}

bool IsNumeric(const Value& value) {
  switch (value.Kind()) {
    case ValueKind::Null:
    case ValueKind::Date:
      return false;
    case ValueKind::Text:
      return ParseNumber(value.As<std::string>()).has_value();
    default:
      return true;
  }
}

}  // namespace platform
