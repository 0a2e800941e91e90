#include <charconv>
#include <cmath>
#include <cstdlib>

#include "platform/values/calendar.h"
#include "platform/values/convert.h"
#include "platform/values/error.h"

namespace platform {
namespace {

std::string TextOfCurrency(Currency amount) {
  constexpr std::uint64_t kScale = 10'000;
  const bool negative = amount.tenThousandths < 0;
  const auto bits = static_cast<std::uint64_t>(amount.tenThousandths);
  const std::uint64_t magnitude = negative ? ~bits + 1 : bits;
  std::string text = (negative ? "-" : "") + std::to_string(magnitude / kScale);
  std::string fraction = std::to_string(kScale + magnitude % kScale).substr(1);
  fraction.erase(fraction.find_last_not_of('0') + 1);
  return fraction.empty() ? text : text + '.' + fraction;
}

/// Up to 15 significant digits; an exponent of two digits at least when the number is below 0.0001 or has more digits
/// before the point than that.
std::string TextOfDouble(double number) {
  if (!std::isfinite(number)) throw error::Overflow();
  if (number == 0) return "0";
  constexpr int kDigits = 15;
  char buffer[32];
  const auto written = std::to_chars(buffer, buffer + sizeof buffer, std::fabs(number), std::chars_format::scientific, kDigits - 1);
  const std::string_view spelled(buffer, static_cast<std::size_t>(written.ptr - buffer));
  const std::size_t mark = spelled.find('e');
  std::string digits = std::string(1, spelled[0]) + std::string(spelled.substr(2, mark - 2));
  int exponent = 0;
  const std::size_t exponentStart = mark + (spelled[mark + 1] == '+' ? 2 : 1);
  std::from_chars(spelled.data() + exponentStart, spelled.data() + spelled.size(), exponent);
  digits.erase(digits.find_last_not_of('0') + 1);

  const std::string sign = number < 0 ? "-" : "";
  const auto places = static_cast<std::size_t>(std::abs(exponent));
  if (exponent < -4 || exponent >= kDigits) {
    std::string text = sign + digits[0];
    if (digits.size() > 1) text += '.' + digits.substr(1);
    const std::string power = std::to_string(places);
    return text + (exponent < 0 ? "E-" : "E+") + (power.size() < 2 ? "0" : "") + power;
  }
  if (exponent < 0) return sign + "0." + std::string(places - 1, '0') + digits;
  if (digits.size() <= places + 1) return sign + digits + std::string(places + 1 - digits.size(), '0');
  return sign + digits.substr(0, places + 1) + '.' + digits.substr(places + 1);
}

}  // namespace

std::string CStr(const Value& value) {
  switch (value.Kind()) {
    case ValueKind::Empty:
      return "";
    case ValueKind::Null:
      throw error::InvalidUseOfNull();
    case ValueKind::Boolean:
      return value.As<bool>() ? "True" : "False";
    case ValueKind::Byte:
      return std::to_string(value.As<std::uint8_t>());
    case ValueKind::Short:
      return std::to_string(value.As<std::int16_t>());
    case ValueKind::Long:
      return std::to_string(value.As<std::int32_t>());
    case ValueKind::Currency:
      return TextOfCurrency(value.As<Currency>());
    case ValueKind::Double:
      return TextOfDouble(value.As<double>());
    case ValueKind::Date:
      return GeneralDate(value.As<Date>());
    case ValueKind::Text:
      break;
  }
  return value.As<std::string>();
}

std::string Str(const Value& value) {
  if (value.Kind() == ValueKind::Boolean || value.Kind() == ValueKind::Date) return CStr(value);
  if (value.IsText()) return Str(CDbl(value));
  const std::string text = value.IsEmpty() ? "0" : CStr(value);
  return text[0] == '-' ? text : ' ' + text;
}

Value Concat(const Value& left, const Value& right) {
  if (left.IsNull() && right.IsNull()) return Null;
  return (left.IsNull() ? "" : CStr(left)) + (right.IsNull() ? "" : CStr(right));
}

}  // namespace platform
