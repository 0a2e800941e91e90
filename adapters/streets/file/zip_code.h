#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace streets {

/// A ZIP as files keep it; 0 for what is not five digits.
inline std::int32_t ZipNumber(std::string_view zip) {
  if (zip.size() != 5) return 0;
  std::int32_t number = 0;
  for (const char digit : zip) {
    if (digit < '0' || digit > '9') return 0;
    number = number * 10 + (digit - '0');
  }
  return number;
}

/// Five digits; "" for 0.
inline std::string ZipText(std::int64_t number) {
  if (number <= 0 || number > 99'999) return "";
  std::string text = std::to_string(number);
  return std::string(5 - text.size(), '0') + text;
}

}  // namespace streets
