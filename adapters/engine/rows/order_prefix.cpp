#include "engine/rows/order_prefix.h"

#include <algorithm>
#include <bit>
#include <string_view>

#include "engine/text/text_order.h"

namespace engine {
namespace {

constexpr std::uint64_t kSignBit = 1ULL << 63;

// Above 0 for all numbers, so that Null stays alone at the bottom. The two lowest whole numbers share a place; no field's
// range reaches them.
std::uint64_t OfWhole(std::int64_t number) {
  const std::uint64_t place = static_cast<std::uint64_t>(number) ^ kSignBit;
  return place == 0 ? 1 : place;
}

std::uint64_t OfReal(double number) {
  if (number == 0) number = 0;  // minus zero is zero
  const auto bits = std::bit_cast<std::uint64_t>(number);
  return (bits & kSignBit) != 0 ? ~bits : bits | kSignBit;
}

std::uint64_t PrefixOfText(std::string_view text) {
  const std::uint64_t prefix = SortPrefix(text);
  return prefix == 0 ? 1 : prefix;
}

}  // namespace

std::uint64_t OrderPrefix(platform::FieldType type, const platform::Value& value) {
  using platform::FieldType;
  if (value.IsNull()) return 0;
  switch (type) {
    case FieldType::Boolean:
      return value.As<bool>() ? 1 : 2;
    case FieldType::Byte:
      return OfWhole(value.As<std::uint8_t>());
    case FieldType::Short:
      return OfWhole(value.As<std::int16_t>());
    case FieldType::Long:
    case FieldType::Counter:
      return OfWhole(value.As<std::int32_t>());
    case FieldType::Currency:
      return OfWhole(value.As<platform::Currency>().tenThousandths);
    case FieldType::Double:
      return OfReal(value.As<double>());
    case FieldType::Date:
      return OfReal(value.As<platform::Date>().serial);
    case FieldType::Text:
    case FieldType::Memo: {
      return PrefixOfText(value.As<std::string>());
    }
  }
  return 0;
}

OrderStart OrderStartOf(const Query& row, int column, platform::FieldType type) {
  if (PrefixDecides(type)) return {OrderPrefix(type, row.Read(column, type)), true};
  const auto given = row.TextOrNull(column);
  if (!given) return {};
  // Eight plain letters or signs fill the prefix; what is longer, or has accents, has more to say.
  const std::string_view text = WithoutTrailingBlanks(*given);
  const bool whole = text.size() <= 8 && std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  return {PrefixOfText(text), whole};
}

}  // namespace engine
