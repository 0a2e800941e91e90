#include "engine/store/sqlite/declared_types.h"

#include <array>
#include <charconv>
#include <utility>

#include "platform/values/text.h"

namespace engine {
namespace {

using platform::FieldType;

// Only "MEMO TEXT" gives the store's text affinity; a bare "MEMO" would turn digits into numbers.
constexpr std::array<std::pair<FieldType, std::string_view>, 9> kPlainTypes{{{FieldType::Boolean, "BOOLEAN"},
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
  for (const auto& [plain, word] : kPlainTypes)
    if (plain == type) return std::string(word);
  return {};
}

std::optional<FieldType> ParseDeclaredType(std::string_view declared, int& size) {
  size = 0;
  for (const auto& [type, word] : kPlainTypes)
    if (platform::EqualsNoCase(word, declared)) return type;
  constexpr std::string_view kText = "TEXT(";
  if (declared.size() <= kText.size() || !platform::EqualsNoCase(declared.substr(0, kText.size()), kText)) return {};
  const char* const end = declared.data() + declared.size();
  const auto result = std::from_chars(declared.data() + kText.size(), end, size);
  if (result.ec != std::errc() || std::string_view(result.ptr, end) != ")") return {};
  return FieldType::Text;
}

}  // namespace engine
