#include "engine/store/postgres/values/stored_text.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "engine/values/iso_date.h"
#include "engine/values/stored_form.h"
#include "platform/values/text.h"

namespace engine::postgres {
namespace {

double RealOf(std::string_view text) {
  double number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);  // "Infinity" and "NaN" too
  return result.ec == std::errc() ? number : 0;
}

}  // namespace

std::int64_t WholeOf(std::string_view text) {
  if (text == "t") return -1;
  std::int64_t number = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  if (result.ec == std::errc() && result.ptr == end) return number;
  const double real = RealOf(text);
  constexpr double kBehind = 9223372036854775808.0;
  if (real >= kBehind) return std::numeric_limits<std::int64_t>::max();
  if (!(real > -kBehind)) return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(real);
}

platform::Value ValueOfText(platform::FieldType type, std::string_view text) {
  using platform::FieldType;
  switch (type) {
    case FieldType::Double:
      return RealOf(text);
    case FieldType::Date: {
      const auto date = DateOfIso(text);
      return date ? platform::Value(*date) : platform::Value(platform::Null);
    }
    case FieldType::Text:
    case FieldType::Memo:
      return platform::Value(text);
    default:
      return ValueOfWhole(type, WholeOf(text));
  }
}

bool IsStorable(std::string_view text) { return text.find('\0') == std::string_view::npos && platform::IsValidUtf8(text); }

}  // namespace engine::postgres
