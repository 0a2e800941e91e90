#include "engine/translate/plan/column_scope.h"

#include "engine/errors.h"
#include "platform/values/text.h"

namespace engine {

std::optional<ResolvedField> ColumnScope::Resolve(const sql::FieldName& name) {
  const std::string whole = WholeName(name);
  for (std::size_t i = 0; i < plan_.columns.size(); ++i) {
    const PlanColumn& column = plan_.columns[i];
    bool matches = platform::EqualsNoCase(column.name, whole);
    if (!matches && !name.table.empty() && column.table >= 0) {
      const PlanTable& table = plan_.tables[static_cast<std::size_t>(column.table)];
      const std::string& field = table.table->definition.fields[static_cast<std::size_t>(column.field)].name;
      matches = platform::EqualsNoCase(table.name, name.table) && platform::EqualsNoCase(field, name.name);
    }
    if (!matches) continue;
    const std::string sql = plan_.aggregate ? "c" + std::to_string(i) : column.sql;
    return ResolvedField{.sql = sql, .comparable = ComparableOf(column), .type = column.type, .size = column.size, .table = column.table, .field = column.field};
  }
  throw errors::UnknownNameInCriterion(whole);
}

// The key of a computed text is made where it is needed.
std::string ColumnScope::ComparableOf(const PlanColumn& column) const {
  if (dialect_.textKeys == nullptr || plan_.aggregate || column.table < 0) return {};
  const PlanTable& table = plan_.tables[static_cast<std::size_t>(column.table)];
  return dialect_.Comparable(table.table->definition, table.table->definition.fields[static_cast<std::size_t>(column.field)], table.alias);
}

}  // namespace engine
