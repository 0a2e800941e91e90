#include "engine/store/postgres/wording/key_columns.h"

#include <algorithm>

#include "platform/values/text.h"

namespace engine::postgres {
namespace {

constexpr std::string_view kFullLead = "~k.";
constexpr std::string_view kSparseLead = "~s.";

bool IsIndexed(const platform::TableDefinition& table, const std::string& field) {
  return std::ranges::any_of(table.indexes, [&](const platform::IndexDefinition& index) {
    return std::ranges::any_of(index.fields, [&](const std::string& name) { return platform::EqualsNoCase(name, field); });
  });
}

}  // namespace

KeyColumn KeyColumnOf(const platform::TableDefinition& table, const platform::FieldDefinition& field) {
  using platform::FieldType;
  const bool isText = field.type == FieldType::Text || field.type == FieldType::Memo;
  if (!isText) return KeyColumn::None;
  if (IsIndexed(table, field.name)) return KeyColumn::Full;
  return field.type == FieldType::Text ? KeyColumn::Sparse : KeyColumn::None;
}

std::string NameOf(KeyColumn column, std::string_view field) {
  return std::string(column == KeyColumn::Full ? kFullLead : kSparseLead).append(field);
}

std::string_view FieldOfColumn(std::string_view column) { return column.starts_with(kFullLead) ? column.substr(kFullLead.size()) : column; }

}  // namespace engine::postgres
