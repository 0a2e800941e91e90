#include "engine/rows/row_editor.h"

#include <algorithm>

#include "engine/errors.h"
#include "engine/store/counter_field.h"
#include "engine/values/field_values.h"

namespace engine {
namespace {

using platform::EditMode;
using platform::FieldType;
using platform::Value;

bool HasCounter(const ResolvedTable& table) { return CounterOf(table.definition) != nullptr; }

}  // namespace

void RowEditor::BeginAdd() {
  source_.RequireWritable();
  Drop();
  const SelectPlan& plan = source_.Plan();
  const ResolvedTable& table = *plan.tables[static_cast<std::size_t>(plan.driving)].table;
  if (HasCounter(table)) {
    counter_ = table.file->TakeNumber(table.definition);
    if (*counter_ > INT32_MAX) throw errors::NumericOverflow();
  }
  values_.assign(plan.columns.size(), platform::Null);
  assigned_.assign(plan.columns.size(), false);
  for (std::size_t i = 0; i < plan.columns.size(); ++i) {
    const platform::FieldDefinition* field = source_.DefinitionOf(static_cast<int>(i));
    if (field == nullptr || plan.columns[i].table != plan.driving) continue;
    values_[i] = field->type == FieldType::Counter ? Value(static_cast<std::int32_t>(*counter_)) : field->defaultValue;
  }
  mode_ = EditMode::Add;
}

void RowEditor::BeginEdit(const Place& row) {
  Drop();
  values_ = row.page->CellsOf(row.row, source_.Plan().columns.size());
  assigned_.assign(values_.size(), false);
  read_ = row.page;
  readRow_ = row.row;
  keys_ = row.keys;
  mode_ = EditMode::Edit;
}

void RowEditor::Set(int index, const Value& value) {
  if (mode_ == EditMode::None) throw errors::UpdateWithoutEdit();
  const auto place = static_cast<std::size_t>(index);
  const platform::FieldDefinition* field = source_.DefinitionOf(index);
  if (field == nullptr || field->type == FieldType::Counter) throw errors::FieldLocked();
  const auto table = static_cast<std::size_t>(source_.Plan().columns[place].table);
  if (mode_ == EditMode::Edit && keys_[table] == kNoRowKey) throw errors::FieldLocked();
  values_[place] = ConvertForField(source_.Context().OwnClock(), *field, value);
  assigned_[place] = true;
}

void RowEditor::Drop() {
  mode_ = EditMode::None;
  counter_.reset();
  read_.reset();
}

std::vector<std::int64_t> RowEditor::Insert() {
  const SelectPlan& plan = source_.Plan();
  const ResolvedTable& table = *plan.tables[static_cast<std::size_t>(plan.driving)].table;
  auto keys = KeysOfNewRow(InsertRow(table));
  Drop();
  return keys;
}

RowEditor::Insertion RowEditor::MakeInsertion(const ResolvedTable& table) const {
  const SelectPlan& plan = source_.Plan();
  const Dialect& dialect = source_.OwnDialect();
  std::string names;
  std::string places;
  std::size_t count = 0;
  const auto add = [&](const std::string& name) {
    names += (names.empty() ? "" : ", ") + name;
    places += (places.empty() ? "" : ", ") + dialect.Parameter(++count);
  };
  if (HasCounter(table)) add(table.rowKey);
  Insertion made;
  std::vector<int> taken;
  for (std::size_t i = 0; i < plan.columns.size(); ++i) {
    const PlanColumn& column = plan.columns[i];
    const platform::FieldDefinition* field = source_.DefinitionOf(static_cast<int>(i));
    if (field == nullptr || column.table != plan.driving || field->type == FieldType::Counter) continue;
    if (std::ranges::find(taken, column.field) != taken.end()) continue;  // shown twice
    taken.push_back(column.field);
    made.columns.push_back(i);
    add(dialect.Name(field->name));
  }
  made.sql.text = names.empty() ? "INSERT INTO " + table.storeName + " DEFAULT VALUES"
                                : "INSERT INTO " + table.storeName + " (" + names + ") VALUES (" + places + ")";
  if (!dialect.givingBack.empty()) made.sql.text += dialect.givingBack + table.rowKey;
  return made;
}

// The row key that the new row has got. Tables are filled row by row, so the statement is kept.
std::int64_t RowEditor::InsertRow(const ResolvedTable& table) {
  if (!insertion_) insertion_ = MakeInsertion(table);
  Query query(source_.Store(), insertion_->sql);
  int parameter = 0;
  if (counter_) query.Bind(++parameter, *counter_);
  for (const std::size_t column : insertion_->columns) query.BindInPlace(++parameter, values_[column]);
  query.Run();
  return counter_ ? *counter_ : query.AddedRow();
}

// In a join the new row belongs to the rows of the other tables that it now meets.
std::vector<std::int64_t> RowEditor::KeysOfNewRow(std::int64_t driving) {
  const SelectPlan& plan = source_.Plan();
  const auto own = static_cast<std::size_t>(plan.driving);
  std::vector<std::int64_t> keys(plan.tables.size(), kNoRowKey);
  keys[own] = driving;
  if (keys.size() == 1) return keys;
  const PlanTable& table = plan.tables[own];
  Query query(source_.Store(), std::string_view("SELECT " + source_.KeyList() + " FROM " + plan.from + " WHERE " + table.alias + '.' +
                                                table.table->rowKey + " = " + source_.OwnDialect().Parameter(1) + " LIMIT 1"));
  query.Bind(1, driving);
  if (query.Step())
    for (std::size_t i = 0; i < keys.size(); ++i)
      if (!query.IsNull(static_cast<int>(i))) keys[i] = query.Int(static_cast<int>(i));
  return keys;
}

// A card assigns all of its fields, of which a user mostly changes one or two.
std::vector<bool> RowEditor::FieldsToWrite() const {
  if (read_ == nullptr || !source_.StillSo(*read_)) return assigned_;
  const std::vector<Value> stored = read_->CellsOf(readRow_, assigned_.size());
  std::vector<bool> changed(assigned_.size());
  for (std::size_t i = 0; i < assigned_.size(); ++i) changed[i] = assigned_[i] && values_[i] != stored[i];
  return std::ranges::find(changed, true) == changed.end() ? assigned_ : changed;
}

void RowEditor::Write(const RowBack* back) {
  const SelectPlan& plan = source_.Plan();
  const std::vector<bool> fields = FieldsToWrite();
  std::vector<std::size_t> tables;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const auto table = static_cast<std::size_t>(plan.columns[i].table);
    if (fields[i] && std::ranges::find(tables, table) == tables.end()) tables.push_back(table);
  }
  if (tables.empty()) {
    RowPage now(plan.columns.size(), keys_.size());
    if (!source_.Fetch(keys_.data(), now)) throw errors::RecordDeleted();
  } else if (tables.size() == 1) {
    WriteTable(tables.front(), fields, back);
  } else {
    Transaction together(source_.Store(), Transaction::Kind::Write);
    for (const std::size_t table : tables) WriteTable(table, fields, nullptr);
    together.Commit();
  }
  Drop();
}

void RowEditor::WriteTable(std::size_t table, const std::vector<bool>& fields, const RowBack* back) {
  const SelectPlan& plan = source_.Plan();
  const ResolvedTable& target = *plan.tables[table].table;
  const Dialect& dialect = source_.OwnDialect();
  std::string sets;
  std::vector<const Value*> values;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (!fields[i] || static_cast<std::size_t>(plan.columns[i].table) != table) continue;
    values.push_back(&values_[i]);
    const std::string& name = source_.DefinitionOf(static_cast<int>(i))->name;
    sets += (sets.empty() ? "" : ", ") + dialect.Name(name) + " = " + dialect.Parameter(values.size());
  }
  std::string update = "UPDATE " + target.storeName;
  if (back != nullptr) update += " AS " + plan.tables[table].alias;
  update += " SET " + sets + " WHERE " + target.rowKey + " = " + dialect.Parameter(values.size() + 1);
  if (back != nullptr) update += dialect.givingBack + back->columns;
  Query query(source_.Store(), std::string_view(update));
  query.PlanOnce();
  for (std::size_t i = 0; i < values.size(); ++i) query.Bind(static_cast<int>(i) + 1, *values[i]);
  query.Bind(static_cast<int>(values.size()) + 1, keys_[table]);
  while (query.Step()) back->take(query);
  if (query.Changed() == 0) throw errors::RecordDeleted();
}

void RowEditor::Delete(const Place& row) {
  const SelectPlan& plan = source_.Plan();
  const auto driving = static_cast<std::size_t>(plan.driving);
  const ResolvedTable& table = *plan.tables[driving].table;
  Query query(source_.Store(),
              std::string_view("DELETE FROM " + table.storeName + " WHERE " + table.rowKey + " = " + source_.OwnDialect().Parameter(1)));
  query.PlanOnce();
  query.Bind(1, row.keys[driving]);
  query.Run();
  if (query.Changed() == 0) throw errors::RecordDeleted();
}

}  // namespace engine
