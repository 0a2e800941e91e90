#include "engine/store/sqlite/declared_types.h"

#include <array>
#include <charconv>
#include <utility>

#include "platform/values/text.h"

namespace engine {
namespace {

using platform::FieldType;

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
