#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// A number as a text spells it, kept exact: sign, decimal digits and the power of ten that they count; or the bits of a
/// "&H" or "&O" number.
struct NumberText {
  bool negative = false;
  std::string digits;  ///< without leading zeros; "" for zero
  int exponent = 0;    ///< the value is digits * 10^exponent
  std::optional<std::uint64_t> bits;
};

/// The whole text as a number: outer blanks, one sign in front or behind, parentheses for negative, "$", thousands marks
/// before the decimal point, one decimal point, an exponent (e or d); or "&H" and "&O" with digits of their base.
std::optional<NumberText> ReadNumber(std::string_view text);

/// Nothing when it is too large; what is too small for a Double is 0.
std::optional<double> ToDouble(const NumberText& number);
/// The number times 10^scale as a whole number, halves rounded to the even neighbour; nothing when it doesn't fit.
std::optional<std::int64_t> ToScaled(const NumberText& number, int scale);

}  // namespace platform
