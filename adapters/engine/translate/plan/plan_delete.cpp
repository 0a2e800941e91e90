#include "engine/errors.h"
#include "engine/sql/print.h"
#include "engine/translate/emit/emitter.h"
#include "engine/translate/names/walk.h"
#include "engine/translate/plan/action_planner.h"
#include "platform/values/text.h"

namespace engine {

const ResolvedTable& TargetTable(std::string_view name, const std::optional<std::string>& inFile, Catalogue& catalogue) {
  const ResolvedTable* table = inFile ? catalogue.FindTable(name, *inFile) : catalogue.FindTable(name);
  if (table == nullptr) throw errors::UnknownTable(name);
  return *table;
}

ActionPlan PlanDelete(const sql::Delete& remove, Catalogue& catalogue, const Dialect& dialect) {
  const ResolvedTable& target = TargetTable(remove.table, remove.inFile, catalogue);
  if (!remove.qualifier.empty() && !platform::EqualsNoCase(remove.qualifier, remove.table)) throw errors::UnknownTable(remove.qualifier);
  ActionPlan plan;
  plan.kind = ActionPlan::Kind::Delete;
  plan.target = &target;
  plan.sql = "DELETE FROM " + target.storeName + " AS t0";
  if (remove.where) {
    if (HasAggregate(*remove.where)) throw errors::AggregateInWhere(sql::Print(*remove.where));
    StatementScope scope({{.table = &target, .name = remove.table, .alias = "t0"}}, dialect);
    Emitter emitter(scope, dialect);
    plan.sql += " WHERE " + emitter.Condition(*remove.where);
    scope.RequireAllKnown();
    CheckNesting(plan.sql, dialect);
  }
  plan.lenientSql = plan.sql;
  return plan;
}

}  // namespace engine
