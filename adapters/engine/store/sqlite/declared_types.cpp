#include "engine/store/sqlite/declared_types.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <utility>

#include "engine/store/sqlite/names.h"
#include "engine/values/iso_date.h"
#include "platform/values/text.h"

namespace engine {
namespace {

using platform::FieldType;
using platform::Value;
using platform::ValueKind;

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
      return QuoteText(IsoText(value.As<platform::Date>()));
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
