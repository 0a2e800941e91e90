#include <algorithm>

#include "engine/errors.h"
#include "engine/sql/parser.h"
#include "engine/translate/plan/action_planner.h"
#include "engine/translate/plan/select_planner.h"
#include "engine/translate/plan/select_text.h"
#include "platform/values/text.h"

namespace engine {
namespace {

// A value for a field, as translated.
struct Source {
  Emitted value;
  int size = 0;
};

class InsertPlanner {
 public:
  InsertPlanner(const sql::Insert& insert, Catalogue& catalogue, const Dialect& dialect)
      : insert_(insert),
        catalogue_(catalogue),
        dialect_(dialect),
        forms_(dialect),
        target_(InsertTarget(insert.table, insert.inFile, catalogue)) {}

  ActionPlan Run() {
    plan_.kind = ActionPlan::Kind::Insert;
    plan_.target = &target_;
    if (insert_.fields) NameFields();
    if (const auto* select = std::get_if<sql::Select>(&insert_.rows)) {
      FromSelect(*select);
    } else {
      FromValues(std::get<sql::ValueList>(insert_.rows));
    }
    NoteCounter();
    WriteStatements();
    return std::move(plan_);
  }

 private:
  const platform::TableDefinition& Definition() const { return target_.definition; }

  void AddField(std::string_view name) {
    const int field = FieldPlace(Definition(), name);
    if (field < 0) throw errors::UnknownInsertField(name);
    if (std::ranges::find(plan_.targetFields, field) != plan_.targetFields.end()) throw errors::DuplicateDestination(name);
    plan_.targetFields.push_back(field);
  }

  void NameFields() {
    for (const std::string& name : *insert_.fields) AddField(name);
  }

  // Fills `values_` from a SELECT. Without names its columns go to the fields of their names.
  void FromSelect(const sql::Select& select) {
    rows_ = SelectPlanner(select, catalogue_, dialect_, SelectPlanner::Cells::Raise).Run();
    if (!insert_.fields) {
      for (const PlanColumn& column : rows_->columns) AddField(column.name);
    }
    if (rows_->columns.size() != plan_.targetFields.size()) throw errors::InsertCountMismatch();
    for (const PlanColumn& column : rows_->columns) {
      Emitted value{.sql = column.sql, .type = SqlTypeOf(column.type), .literal = {}};
      value.tightness = column.table >= 0 ? Tightness::Atom : Tightness::Or;
      value.size = column.size;
      value.memo = column.type == platform::FieldType::Memo;
      values_.push_back(std::move(value));
      plan_.sourceTypes.push_back(column.type);
    }
    KnowConstants(select);
  }

  // What a constant column holds is known better than its type says. Stars are no constants and shift the places.
  void KnowConstants(const sql::Select& select) {
    if (select.items.size() != values_.size() || rows_->aggregate) return;
    for (std::size_t i = 0; i < values_.size(); ++i) {
      const auto* item = std::get_if<sql::Computed>(&select.items[i]);
      if (item == nullptr) continue;
      StatementScope noNames({}, dialect_);
      Emitted value = Emitter(noNames, dialect_).Value(item->expression);
      if (value.IsLiteral()) values_[i] = std::move(value);
    }
  }

  // Without names the values fill the fields in their order.
  void FromValues(const sql::ValueList& values) {
    if (!insert_.fields) {
      for (std::size_t i = 0; i < Definition().fields.size(); ++i) plan_.targetFields.push_back(static_cast<int>(i));
    }
    if (values.size() != plan_.targetFields.size()) throw errors::InsertCountMismatch();
    StatementScope noNames({}, dialect_);
    Emitter emitter(noNames, dialect_);
    for (const sql::Expression& expression : values) {
      Emitted value = emitter.Value(expression);
      CheckNesting(value.sql, dialect_);
      plan_.sourceTypes.push_back(FieldTypeOf(value.type));
      values_.push_back(std::move(value));
    }
    noNames.RequireAllKnown();
  }

  void NoteCounter() {
    for (std::size_t i = 0; i < Definition().fields.size(); ++i) {
      if (Definition().fields[i].type != platform::FieldType::Counter) continue;
      plan_.needsCounter = std::ranges::find(plan_.targetFields, static_cast<int>(i)) == plan_.targetFields.end();
    }
  }

  // The order of insertion shows only in keys that the store gives, and in which of two rows with one key comes first.
  bool OrderMatters() const {
    if (plan_.needsCounter || !rows_ || rows_->tables.size() != 1) return true;
    for (std::size_t i = 0; i < plan_.targetFields.size(); ++i) {
      const platform::FieldDefinition& field = Definition().fields[static_cast<std::size_t>(plan_.targetFields[i])];
      if (field.type != platform::FieldType::Counter || rows_->columns[i].type != platform::FieldType::Counter) continue;
      return std::ranges::any_of(Definition().indexes, [&](const platform::IndexDefinition& index) {
        const bool own = index.fields.size() == 1 && platform::EqualsNoCase(index.fields[0], field.name);
        return (index.unique || index.primary) && !own;
      });
    }
    return true;
  }

  std::string RowsText(const std::vector<std::string>& columns) const {
    if (rows_) return SelectText(*rows_, columns, dialect_, OrderMatters());
    std::string text = "SELECT ";
    for (std::size_t i = 0; i < columns.size(); ++i) text += (i == 0 ? "" : ", ") + columns[i];
    return text;
  }

  void WriteStatements() {
    std::vector<std::string> plain;
    std::vector<std::string> converted;
    std::string names;
    // Rows for another store are carried there.
    plan_.direct = target_.elsewhere == nullptr;
    for (std::size_t i = 0; i < values_.size(); ++i) {
      const platform::FieldDefinition& field = Definition().fields[static_cast<std::size_t>(plan_.targetFields[i])];
      plain.push_back(rows_ ? rows_->columns[i].sql : values_[i].sql);
      std::optional<std::string> safe = SafeForField(values_[i], field, forms_);
      plan_.direct = plan_.direct && safe.has_value();
      converted.push_back(safe.value_or(""));
      names += (i == 0 ? "" : ", ") + dialect_.Name(field.name);
    }
    plan_.source = RowsText(plain);
    if (!plan_.direct) return;
    const std::string behind = ' ' + target_.storeName + " (" + names + ") " + RowsText(converted);
    plan_.sql = "INSERT INTO" + behind;
    if (!dialect_.insertLenient.empty()) plan_.lenientSql = dialect_.insertLenient + behind;
  }

  const sql::Insert& insert_;
  Catalogue& catalogue_;
  const Dialect& dialect_;
  Forms forms_;
  const ResolvedTable& target_;
  std::optional<SelectPlan> rows_;
  std::vector<Emitted> values_;
  ActionPlan plan_;
};

}  // namespace

const ResolvedTable& InsertTarget(std::string_view name, const std::optional<std::string>& inFile, Catalogue& catalogue) {
  if (!inFile) return TargetTable(name, inFile, catalogue);
  const ResolvedTable* table = catalogue.FindTarget(name, *inFile);
  if (table == nullptr) throw errors::UnknownTable(name);
  return *table;
}

ActionPlan PlanInsert(const sql::Insert& insert, Catalogue& catalogue, const Dialect& dialect) {
  return InsertPlanner(insert, catalogue, dialect).Run();
}

}  // namespace engine
