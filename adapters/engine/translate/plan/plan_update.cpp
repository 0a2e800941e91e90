#include <algorithm>

#include "engine/errors.h"
#include "engine/sql/print.h"
#include "engine/translate/names/walk.h"
#include "engine/translate/plan/action_planner.h"
#include "engine/translate/plan/bound_source.h"
#include "platform/values/text.h"

namespace engine {
namespace {

class UpdatePlanner {
 public:
  UpdatePlanner(const sql::Update& update, Catalogue& catalogue, const Dialect& dialect)
      : update_(update),
        dialect_(dialect),
        source_({update.source}),
        sources_(source_, catalogue, std::nullopt, dialect),
        emitter_(sources_.Names(), dialect) {}

  ActionPlan Run() {
    plan_.kind = ActionPlan::Kind::Update;
    sources_.CheckConditions();
    for (const sql::Assignment& assignment : update_.assignments) Assign(assignment);
    if (update_.where) {
      if (HasAggregate(*update_.where)) throw errors::AggregateInWhere(sql::Print(*update_.where));
      where_ = " WHERE " + emitter_.Conjunct(*update_.where);
    }
    const std::string from = sources_.Emit(emitter_);
    sources_.Names().RequireAllKnown();
    WriteStatements(from);
    return std::move(plan_);
  }

 private:
  void Assign(const sql::Assignment& assignment) {
    const std::optional<ResolvedField> field = sources_.Names().Resolve(assignment.field);
    const Emitted value = emitter_.Value(assignment.value);
    CheckNesting(value.sql, dialect_);
    if (!field) return;  // counted as unknown
    const ResolvedTable& owner = *sources_.Names().Tables()[static_cast<std::size_t>(field->table)].table;
    if (table_ >= 0 && table_ != field->table) throw errors::NotUpdatableQuery();
    table_ = field->table;
    const platform::FieldDefinition& definition = owner.definition.fields[static_cast<std::size_t>(field->field)];
    if (definition.type == platform::FieldType::Counter) throw errors::FieldNotUpdatable(definition.name);
    if (std::ranges::find(plan_.targetFields, field->field) != plan_.targetFields.end()) {
      throw errors::DuplicateDestination(definition.name);
    }
    plan_.target = &owner;
    plan_.targetFields.push_back(field->field);
    plan_.sourceTypes.push_back(FieldTypeOf(value.type));
    values_ += ", " + value.sql;
    const std::optional<std::string> safe = SafeForField(value, definition, emitter_.GetForms());
    plan_.direct = plan_.direct && safe.has_value();
    if (safe) settings_ += (settings_.empty() ? "" : ", ") + dialect_.Name(definition.name) + " = " + *safe;
  }

  bool ChangesUniqueKey() const {
    const platform::TableDefinition& definition = plan_.target->definition;
    return std::ranges::any_of(definition.indexes, [&](const platform::IndexDefinition& index) {
      if (!index.unique && !index.primary) return false;
      return std::ranges::any_of(plan_.targetFields, [&](int field) {
        const std::string& name = definition.fields[static_cast<std::size_t>(field)].name;
        return std::ranges::any_of(index.fields, [&](const std::string& own) { return platform::EqualsNoCase(own, name); });
      });
    });
  }

  void WriteStatements(const std::string& from) {
    const StatementScope::Table& owner = sources_.Names().Tables()[static_cast<std::size_t>(table_)];
    const std::string key = owner.alias + '.' + owner.table->rowKey;
    plan_.source = "SELECT " + key + values_ + " FROM " + from + where_;
    // A join can leave the target without a row.
    if ((sources_.Nullable() & TableBit(table_)) != 0) plan_.source += (where_.empty() ? " WHERE " : " AND ") + key + " IS NOT NULL";
    if (!dialect_.rowsInOrder) plan_.source += " ORDER BY " + key;
    CheckNesting(plan_.source, dialect_);
    // A row of the target can come more than once in a join.
    plan_.direct = plan_.direct && sources_.TableCount() == 1;
    // Which of its rows meets another's key depends on which comes first.
    plan_.direct = plan_.direct && (dialect_.rowsInOrder || !ChangesUniqueKey());
    if (!plan_.direct) return;
    const std::string behind = ' ' + from + " SET " + settings_ + where_;
    plan_.sql = "UPDATE" + behind;
    if (!dialect_.updateLenient.empty()) plan_.lenientSql = dialect_.updateLenient + behind;
  }

  const sql::Update& update_;
  const Dialect& dialect_;
  std::vector<sql::Source> source_;
  BoundSources sources_;
  Emitter emitter_;
  int table_ = -1;
  std::string values_;
  std::string settings_;
  std::string where_;
  ActionPlan plan_;
};

}  // namespace

ActionPlan PlanUpdate(const sql::Update& update, Catalogue& catalogue, const Dialect& dialect) {
  return UpdatePlanner(update, catalogue, dialect).Run();
}

}  // namespace engine
