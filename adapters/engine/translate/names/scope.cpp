#include "engine/translate/names/scope.h"

#include "engine/errors.h"
#include "platform/values/text.h"

namespace engine {

std::string WholeName(const sql::FieldName& name) { return name.table.empty() ? name.name : name.table + '.' + name.name; }

int FieldPlace(const platform::TableDefinition& definition, std::string_view name) {
  for (std::size_t i = 0; i < definition.fields.size(); ++i) {
    if (platform::EqualsNoCase(definition.fields[i].name, name)) return static_cast<int>(i);
  }
  return -1;
}

std::optional<int> StatementScope::TableNamed(std::string_view name) const {
  for (std::size_t i = 0; i < tables_.size(); ++i) {
    if (platform::EqualsNoCase(tables_[i].name, name)) return static_cast<int>(i);
  }
  return std::nullopt;
}

ResolvedField StatementScope::FieldAt(int table, int field) const {
  const Table& owner = tables_[static_cast<std::size_t>(table)];
  const platform::FieldDefinition& definition = owner.table->definition.fields[static_cast<std::size_t>(field)];
  return {.sql = owner.alias + '.' + dialect_.Name(definition.name),
          .comparable = dialect_.textKeys != nullptr ? dialect_.Comparable(owner.table->definition, definition, owner.alias) : "",
          .type = definition.type,
          .size = definition.size,
          .table = table,
          .field = field};
}

std::optional<ResolvedField> StatementScope::Resolve(const sql::FieldName& name) {
  std::optional<ResolvedField> found;
  for (std::size_t i = 0; i < tables_.size(); ++i) {
    if (!name.table.empty() && !platform::EqualsNoCase(tables_[i].name, name.table)) continue;
    const int field = FieldPlace(tables_[i].table->definition, name.name);
    if (field < 0) continue;
    if (found) throw errors::AmbiguousField(WholeName(name));
    found = FieldAt(static_cast<int>(i), field);
  }
  if (!found) unknown_.insert(platform::ToLowerAscii(WholeName(name)));
  return found;
}

void StatementScope::RequireAllKnown() const {
  if (!unknown_.empty()) throw errors::TooFewParameters(static_cast<int>(unknown_.size()));
}

void StatementScope::SetAliases(const std::vector<std::string>& aliases) {
  for (std::size_t i = 0; i < tables_.size(); ++i) tables_[i].alias = aliases[i];
}

}  // namespace engine
