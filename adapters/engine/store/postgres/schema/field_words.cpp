#include "engine/store/postgres/schema/field_words.h"

#include <array>

#include "engine/store/postgres/wording/names.h"

namespace engine::postgres {
namespace {

using platform::FieldType;

struct Word {
  FieldType type;
  std::string_view name;
  std::string_view base;
};
// Booleans are -1 and 0, amounts ten-thousandths, dates ISO texts: the same values in the same order as in files.
constexpr std::array<Word, 8> kWords{{{FieldType::Boolean, "Boolean", "smallint"},
                                      {FieldType::Byte, "Byte", "smallint"},
                                      {FieldType::Short, "Short", "smallint"},
                                      {FieldType::Long, "Long", "integer"},
                                      {FieldType::Currency, "Currency", "bigint"},
                                      {FieldType::Double, "Double", "double precision"},
                                      {FieldType::Date, "Date", "text COLLATE \"C\""},
                                      {FieldType::Memo, "Memo", "text COLLATE \"C\""}}};

}  // namespace

std::vector<std::string> CreateWordTexts(std::string_view schema) {
  std::vector<std::string> texts;
  for (const Word& word : kWords) texts.push_back("CREATE DOMAIN " + QuoteName(schema) + '.' + QuoteName(word.name) + " AS " + std::string(word.base));
  return texts;
}

std::string DeclaredType(std::string_view schema, const platform::FieldDefinition& field) {
  if (field.type == FieldType::Text) return "varchar(" + std::to_string(field.size) + ") COLLATE \"C\"";
  for (const Word& word : kWords)
    if (word.type == field.type) return QuoteName(schema) + '.' + QuoteName(word.name);
  return {};
}

std::string TypeText(const platform::FieldDefinition& field) {
  if (field.type == FieldType::Text) return "Text(" + std::to_string(field.size) + ')';
  for (const Word& word : kWords)
    if (word.type == field.type) return std::string(word.name);
  return "Counter";
}

std::optional<FieldType> ParseType(const ColumnType& type, int& size) {
  size = 0;
  if (type.ownWord) {
    for (const Word& word : kWords)
      if (word.name == type.name) return word.type;
    return {};
  }
  if (type.name == "int4" && type.numbered) return FieldType::Counter;
  if (type.name != "varchar" || type.width <= 0) return {};
  size = type.width;
  return FieldType::Text;
}

}  // namespace engine::postgres
