#include "engine/translate/plan/select_planner.h"

#include <algorithm>

#include "engine/errors.h"
#include "engine/sql/print.h"
#include "engine/translate/names/walk.h"
#include "engine/translate/plan/bounds.h"
#include "engine/translate/plan/semi_join.h"
#include "platform/values/text.h"

namespace engine {
namespace {

constexpr int kWidestText = 255;

bool IsUnique(const platform::TableDefinition& definition, int field) {
  const platform::FieldDefinition& wanted = definition.fields[static_cast<std::size_t>(field)];
  if (wanted.type == platform::FieldType::Counter) return true;
  return std::ranges::any_of(definition.indexes, [&](const platform::IndexDefinition& index) {
    return (index.unique || index.primary) && index.fields.size() == 1 && platform::EqualsNoCase(index.fields[0], wanted.name);
  });
}

}  // namespace

SelectPlanner::SelectPlanner(const sql::Select& select, Catalogue& catalogue, const Dialect& dialect, Cells cells)
    : select_(select),
      dialect_(dialect),
      cellDialect_(cells == Cells::Empty ? dialect.ForCells() : dialect),
      sources_(select.sources, catalogue, select.inFile, dialect),
      emitter_(sources_.Names(), dialect),
      outputEmitter_(sources_.Names(), cellDialect_) {
  outputEmitter_.AllowAggregates();
}

SelectPlan SelectPlanner::Run() {
  outputs_ = OutputsOf(select_.items, Names());
  sources_.CheckConditions();
  CheckAggregates();
  const TableSet kept = KeptTables();
  FillTables(kept);
  FillFrom(kept);
  FillColumns();
  FillOrder();
  Names().RequireAllKnown();
  plan_.driving = DrivingTable(kept);
  FillFetch(kept);
  plan_.updatable = !plan_.distinct && !plan_.aggregate;
  CheckDepth();
  return std::move(plan_);
}

void SelectPlanner::CheckAggregates() const {
  if (select_.where && HasAggregate(*select_.where)) throw errors::AggregateInWhere(sql::Print(*select_.where));
  for (const sql::OrderKey& key : select_.order) {
    if (HasAggregate(key.expression)) throw errors::AggregateInOrderBy(sql::Print(key.expression));
  }
}

// The tables whose rows make up a row of the result.
TableSet SelectPlanner::KeptTables() {
  TableSet used = 0;
  for (const Output& output : outputs_) {
    aggregate_ = aggregate_ || (output.expression != nullptr && HasAggregate(*output.expression));
    used |= output.expression != nullptr ? TablesOf(*output.expression, Names()) : TableBit(output.table);
  }
  const bool drops = select_.duplicates == sql::Duplicates::DistinctRow && !aggregate_ && used != 0;
  return drops ? used : sources_.AllTables();
}

void SelectPlanner::FillTables(TableSet kept) {
  plan_.aggregate = aggregate_;
  plan_.distinct = select_.duplicates == sql::Duplicates::Distinct && !aggregate_;
  const auto& tables = Names().Tables();
  for (int i = 0; i < sources_.TableCount(); ++i) {
    const StatementScope::Table& entry = tables[static_cast<std::size_t>(i)];
    if ((kept & TableBit(i)) == 0) {
      planTables_.push_back(-1);
      plan_.askedFiles.push_back(entry.table->file);
      continue;
    }
    planTables_.push_back(static_cast<int>(plan_.tables.size()));
    plan_.tables.push_back({.table = entry.table,
                            .alias = 't' + std::to_string(plan_.tables.size()),
                            .name = entry.name,
                            .nullable = (sources_.Nullable() & TableBit(i)) != 0});
  }
}

void SelectPlanner::FillFrom(TableSet kept) {
  if (kept != sources_.AllTables()) {
    SemiJoin semi = BuildSemiJoin(sources_, select_.where, kept, emitter_);
    plan_.oneTable = plan_.tables.size() == 1 && !semi.joins;
    plan_.asksOtherTables = true;
    plan_.from = std::move(semi.from);
    plan_.where = std::move(semi.where);
    plan_.asksByRow = plan_.oneTable && !semi.rowWhere.empty();
    plan_.rowWhere = plan_.asksByRow ? std::move(semi.rowWhere) : plan_.where;
    if (plan_.asksByRow) plan_.drivers = std::move(semi.drivers);
  } else {
    plan_.oneTable = sources_.TableCount() == 1;
    plan_.from = sources_.Emit(emitter_);
    if (select_.where) plan_.where = emitter_.Conjunct(*select_.where);
    plan_.rowWhere = plan_.where;
  }
  if (plan_.oneTable && select_.where) FillBounds(kept);
}

// What an index of the one table can be entered by.
void SelectPlanner::FillBounds(TableSet kept) {
  std::vector<const sql::Expression*> parts;
  SplitConjuncts(*select_.where, parts);
  const PlanTable& table = plan_.tables.front();
  for (const sql::Expression* part : parts) {
    const std::optional<FieldBound> bound = FieldBoundOf(*part, Names());
    if (!bound || (kept & TableBit(bound->table)) == 0) continue;
    plan_.bounds.push_back(
        {.field = bound->field, .equals = bound->equals, .sql = emitter_.Conjunct(*part), .start = bound->start, .number = bound->number});
    const platform::TableDefinition& definition = table.table->definition;
    const auto index = std::ranges::find_if(definition.indexes, [&](const platform::IndexDefinition& each) {
      return FieldPlace(definition, each.fields.front()) == bound->field;
    });
    if (index == definition.indexes.end()) continue;
    // The row key itself needs no index, and its own is for show.
    const bool isKey = definition.fields[static_cast<std::size_t>(bound->field)].type == platform::FieldType::Counter;
    plan_.drivers.push_back({.keys = "SELECT " + table.alias + '.' + table.table->rowKey + " AS k FROM " + table.table->storeName + " AS " +
                                     table.alias + (isKey ? "" : dialect_.Along(definition.name, index->name)) + " WHERE " +
                                     plan_.bounds.back().sql,
                             .asks = plan_.bounds.back().sql,
                             .rest = plan_.rowWhere,
                             .field = bound->field});
  }
}

void SelectPlanner::FillColumns() {
  for (const Output& output : outputs_) plan_.columns.push_back(ColumnOf(output));
  if (aggregate_ && !outputEmitter_.PlainField().empty()) throw errors::NotInAggregate(outputEmitter_.PlainField());
}

PlanColumn SelectPlanner::ColumnOf(const Output& output) {
  PlanColumn column{.name = output.name, .sql = {}};
  if (output.table >= 0 && !aggregate_) {
    const ResolvedField field = Names().FieldAt(output.table, output.field);
    column.type = field.type;
    column.size = field.size;
    column.sql = field.sql;
    column.table = PlanTableOf(output.table);
    column.field = output.field;
    column.comparable = field.comparable;
    return column;
  }
  if (output.expression == nullptr) throw errors::NotInAggregate(output.name);
  const Emitted value = outputEmitter_.GetForms().Cell(outputEmitter_.Value(*output.expression));
  column.type = value.memo ? platform::FieldType::Memo : FieldTypeOf(value.type);
  if (column.type == platform::FieldType::Text) column.size = value.size > 0 ? std::min(value.size, kWidestText) : kWidestText;
  // Equal texts are one row only where the text order says so.
  const bool byKey = dialect_.textKeys != nullptr;
  column.sql = plan_.distinct && value.type == SqlType::Text && !byKey ? outputEmitter_.GetForms().Collated(value) : value.sql;
  if (value.type == SqlType::Text && byKey) column.comparable = outputEmitter_.GetForms().Collated(value);
  return column;
}

// Orders ----------------------------------------------------------------------------------------------------------------

void SelectPlanner::FillOrder() {
  for (const sql::OrderKey& key : select_.order) {
    PlanOrder order = OrderOf(key);
    order.descending = key.descending;
    // One row needs no order, but its keys' names must exist. A constant orders nothing, and the store would count to it.
    if (!aggregate_ && !order.sql.empty()) plan_.order.push_back(std::move(order));
  }
}

// The column that a whole number in ORDER BY counts to.
const Output* SelectPlanner::OutputAt(const sql::Expression& ordinal) const {
  const auto* literal = std::get_if<sql::Literal>(&ordinal.node);
  if (literal == nullptr || literal->value.Kind() != platform::ValueKind::Long) return nullptr;
  const std::int32_t place = literal->value.As<std::int32_t>();
  return place >= 1 && static_cast<std::size_t>(place) <= outputs_.size() ? &outputs_[static_cast<std::size_t>(place - 1)] : nullptr;
}

PlanOrder SelectPlanner::OrderOf(const sql::OrderKey& key) {
  PlanOrder order{.sql = {}};
  std::optional<ResolvedField> field;
  const sql::Expression* expression = &key.expression;
  if (const Output* output = OutputAt(key.expression)) {
    if (output->table >= 0) field = Names().FieldAt(output->table, output->field);
    expression = output->expression;
  } else {
    RequireSelected(key.expression);
    if (const auto* name = std::get_if<sql::FieldName>(&key.expression.node)) {
      field = Names().Resolve(*name);
      if (!field) return order;
    }
  }
  if (field) {
    if (field->type == platform::FieldType::Memo) throw errors::SortOnMemo(sql::Print(key.expression));
    order.sql = field->sql;
    order.comparable = field->comparable;
    order.type = field->type;
    order.table = PlanTableOf(field->table);
    order.field = field->field;
    return order;
  }
  const Emitted value = outputEmitter_.GetForms().Cell(outputEmitter_.Value(*expression));
  if (value.IsLiteral()) return order;
  order.sql = value.sql;
  if (value.type == SqlType::Text) (dialect_.textKeys != nullptr ? order.comparable : order.sql) = outputEmitter_.GetForms().Collated(value);
  order.type = FieldTypeOf(value.type);
  return order;
}

// DISTINCT and DISTINCTROW sort by what they show.
void SelectPlanner::RequireSelected(const sql::Expression& key) {
  if (select_.duplicates == sql::Duplicates::All) return;
  const auto isOutput = [&](const Output& output) { return output.expression != nullptr && *output.expression == key; };
  if (std::ranges::any_of(outputs_, isOutput)) return;
  ForEachField(key, [&](const sql::FieldName& name) {
    const std::optional<ResolvedField> field = Names().Resolve(name);
    if (!field) return;
    const auto shows = [&](const Output& output) { return output.table == field->table && output.field == field->field; };
    if (!std::ranges::any_of(outputs_, shows)) throw errors::OrderConflictsWithDistinct(sql::Print(key));
  });
}

// Driving table ---------------------------------------------------------------------------------------------------------

// Tables that a unique field of their own joins to another.
TableSet SelectPlanner::OneSides() {
  std::vector<const sql::Expression*> parts;
  for (const sql::Expression* condition : sources_.Conditions()) SplitConjuncts(*condition, parts);
  if (select_.where) SplitConjuncts(*select_.where, parts);
  TableSet ones = 0;
  for (const sql::Expression* part : parts) {
    const std::optional<FieldEquality> equality = FieldEqualityOf(*part, Names());
    if (!equality || equality->left.table == equality->right.table) continue;
    for (const ResolvedField& side : {equality->left, equality->right}) {
      const auto& definition = Names().Tables()[static_cast<std::size_t>(side.table)].table->definition;
      if (IsUnique(definition, side.field)) ones |= TableBit(side.table);
    }
  }
  return ones;
}

int SelectPlanner::DrivingTable(TableSet kept) {
  const TableSet candidates = kept & ~sources_.Nullable();
  const TableSet many = candidates & ~OneSides();
  const TableSet among = many != 0 ? many : candidates;
  for (int i = 0; i < sources_.TableCount(); ++i) {
    if ((among & TableBit(i)) != 0) return PlanTableOf(i);
  }
  return 0;
}

// Reading one row anew ------------------------------------------------------------------------------------------------

// The conditions that tie the tables of a row to one another.
std::vector<const sql::Expression*> SelectPlanner::Ties(TableSet kept) {
  std::vector<const sql::Expression*> ties;
  for (const sql::Expression* condition : sources_.Conditions()) SplitConjuncts(*condition, ties);
  std::vector<const sql::Expression*> tests;
  if (select_.where) SplitConjuncts(*select_.where, tests);
  for (const sql::Expression* test : tests) {
    const std::optional<FieldEquality> equality = FieldEqualityOf(*test, Names());
    if (equality && equality->left.table != equality->right.table) ties.push_back(test);
  }
  std::erase_if(ties, [&](const sql::Expression* tie) { return (TablesOf(*tie, Names()) & ~kept) != 0; });
  return ties;
}

// From the driving table's row to the others': a table that a unique field of its own ties to one before it follows, whatever
// row that gives now; any other is known by its own key.
void SelectPlanner::FillFetch(TableSet kept) {
  const std::vector<const sql::Expression*> ties = Ties(kept);
  TableSet placed = 0;
  const auto place = [&](int table, bool follows) {
    const TableSet own = TableBit(table);
    placed |= own;
    const int planned = PlanTableOf(table);
    PlanTable& entry = plan_.tables[static_cast<std::size_t>(planned)];
    entry.follows = follows;
    plan_.fetchOrder.push_back(planned);
    for (const sql::Expression* tie : ties) {
      const TableSet named = TablesOf(*tie, Names());
      if ((named & own) == 0 || (named & ~placed) != 0) continue;
      entry.tie += (entry.tie.empty() ? "" : " AND ") + emitter_.Conjunct(*tie);
    }
  };
  const auto follower = [&]() -> int {
    for (const sql::Expression* tie : ties) {
      const std::optional<FieldEquality> equality = FieldEqualityOf(*tie, Names());
      if (!equality) continue;
      for (const auto& [one, other] : {std::pair{equality->left, equality->right}, std::pair{equality->right, equality->left}}) {
        const auto& definition = Names().Tables()[static_cast<std::size_t>(one.table)].table->definition;
        const bool open = (placed & TableBit(one.table)) == 0 && (placed & TableBit(other.table)) != 0;
        if (open && IsUnique(definition, one.field)) return one.table;
      }
    }
    return -1;
  };
  for (int i = 0; i < sources_.TableCount(); ++i)
    if ((kept & TableBit(i)) != 0 && PlanTableOf(i) == plan_.driving) place(i, false);
  for (;;) {
    int next = follower();
    const bool follows = next >= 0;
    for (int i = 0; next < 0 && i < sources_.TableCount(); ++i)
      if ((kept & ~placed & TableBit(i)) != 0) next = i;
    if (next < 0) return;
    place(next, follows);
  }
}

void SelectPlanner::CheckDepth() const {
  CheckNesting(plan_.from, dialect_);
  CheckNesting(plan_.where, dialect_);
  CheckNesting(plan_.rowWhere, dialect_);
  for (const PlanColumn& column : plan_.columns) CheckNesting(column.sql, cellDialect_);
  for (const PlanOrder& order : plan_.order) CheckNesting(order.sql, cellDialect_);
}

}  // namespace engine
