#include "engine/store/sqlite/schema.h"

#include <algorithm>

#include "engine/errors.h"
#include "engine/store/counter_field.h"
#include "engine/store/sqlite/connection.h"
#include "engine/store/sqlite/declared_types.h"
#include "engine/store/sqlite/names.h"
#include "platform/values/text.h"

namespace engine {
namespace {

using platform::EqualsNoCase;
using platform::FieldDefinition;
using platform::FieldType;
using platform::IndexDefinition;
using platform::TableDefinition;

bool InPrimary(const TableDefinition& table, const std::string& field) {
  return std::ranges::any_of(table.indexes, [&](const IndexDefinition& index) {
    return index.primary && std::ranges::any_of(index.fields, [&](const std::string& name) { return EqualsNoCase(name, field); });
  });
}

bool OnRowKeyAlone(const TableDefinition& table, const IndexDefinition& index) {
  const FieldDefinition* counter = CounterOf(table);
  return counter != nullptr && index.fields.size() == 1 && EqualsNoCase(index.fields[0], counter->name);
}

std::string FieldText(const TableDefinition& table, const FieldDefinition& field) {
  if (field.type == FieldType::Counter) return QuoteName(field.name) + " INTEGER PRIMARY KEY AUTOINCREMENT";
  std::string text = QuoteName(field.name) + ' ' + DeclaredType(field.type, field.size);
  if (field.type == FieldType::Text || field.type == FieldType::Memo) text += " COLLATE GENERAL";
  // A column that refuses Null is how the schema tells the primary index from other unique ones.
  if (InPrimary(table, field.name)) text += " NOT NULL";
  if (!field.defaultValue.IsNull() && !field.defaultValue.IsEmpty()) text += " DEFAULT " + SqliteDialect().Constant(field.defaultValue);
  return text;
}

// A default as the schema words it, brought into the field's type by the store itself.
platform::Value ReadDefault(Connection& connection, const std::string& text, FieldType type) {
  if (text.empty()) return platform::Null;
  Query query(connection, "SELECT " + text);
  return query.Step() ? query.Read(0, type) : platform::Value(platform::Null);
}

void ReadFields(Connection& connection, std::string_view file, TableDefinition& table, std::vector<bool>& refusesNull) {
  struct Column {
    std::string name, type, defaultText;
    bool notNull;
  };
  std::vector<Column> columns;
  {
    Query query(connection, "SELECT name, type, \"notnull\", dflt_value FROM pragma_table_info(?1, ?2) ORDER BY cid");
    query.Bind(1, std::string_view(table.name));
    query.Bind(2, file);
    while (query.Step())
      columns.push_back({std::string(query.Text(0)), std::string(query.Text(1)), std::string(query.Text(3)), query.Int(2) != 0});
  }
  for (const Column& column : columns) {
    if (column.name == kHiddenKey) continue;
    FieldDefinition field;
    field.name = column.name;
    const auto type = ParseDeclaredType(column.type, field.size);
    if (!type) throw errors::NotADatabase(table.name);
    field.type = *type;
    field.defaultValue = ReadDefault(connection, column.defaultText, field.type);
    table.fields.push_back(std::move(field));
    refusesNull.push_back(column.notNull || *type == FieldType::Counter);
  }
}

std::vector<std::string> ReadIndexFields(Connection& connection, std::string_view file, const TableDefinition& table,
                                         const std::string& index) {
  std::vector<std::string> fields;
  Query query(connection, "SELECT name FROM pragma_index_info(?1, ?2) ORDER BY seqno");
  query.Bind(1, std::string_view(index));
  query.Bind(2, file);
  // The row key's own column has no name there.
  while (query.Step()) fields.push_back(query.IsNull(0) ? RowKeyOf(table) : std::string(query.Text(0)));
  return fields;
}

void ReadIndexes(Connection& connection, std::string_view file, TableDefinition& table, const std::vector<bool>& refusesNull) {
  const std::string prefix = table.name + ".";
  std::vector<std::pair<std::string, bool>> found;
  {
    Query query(connection, "SELECT name, \"unique\" FROM pragma_index_list(?1, ?2) ORDER BY seq DESC");
    query.Bind(1, std::string_view(table.name));
    query.Bind(2, file);
    while (query.Step()) found.emplace_back(query.Text(0), query.Int(1) != 0);
  }
  for (const auto& [name, unique] : found) {
    if (!name.starts_with(prefix)) continue;
    IndexDefinition index;
    index.name = name.substr(prefix.size());
    index.unique = unique;
    index.fields = ReadIndexFields(connection, file, table, name);
    index.primary = unique && std::ranges::all_of(index.fields, [&](const std::string& field) {
                      for (std::size_t i = 0; i < table.fields.size(); ++i)
                        if (EqualsNoCase(table.fields[i].name, field)) return static_cast<bool>(refusesNull[i]);
                      return false;
                    });
    table.indexes.push_back(std::move(index));
  }
}

}  // namespace

std::string RowKeyOf(const TableDefinition& table) {
  const FieldDefinition* counter = CounterOf(table);
  return counter != nullptr ? counter->name : std::string(kHiddenKey);
}

std::string CreateTableText(std::string_view file, const TableDefinition& table) {
  std::string text = "CREATE TABLE " + QuoteName(file) + '.' + QuoteName(table.name) + " (";
  if (CounterOf(table) == nullptr) text += QuoteName(kHiddenKey) + " INTEGER PRIMARY KEY AUTOINCREMENT, ";
  for (std::size_t i = 0; i < table.fields.size(); ++i) text += (i == 0 ? "" : ", ") + FieldText(table, table.fields[i]);
  return text + ")";
}

std::string AddFieldText(std::string_view file, const TableDefinition& table, const FieldDefinition& field) {
  return "ALTER TABLE " + QuoteName(file) + '.' + QuoteName(table.name) + " ADD COLUMN " + FieldText(table, field);
}

std::vector<std::string> CreateIndexTexts(std::string_view file, const TableDefinition& table) {
  std::vector<std::string> texts;
  for (const IndexDefinition& index : table.indexes) {
    std::string text = index.unique || index.primary ? "CREATE UNIQUE INDEX " : "CREATE INDEX ";
    text += QuoteName(file) + '.' + QuoteName(IndexName(table.name, index.name)) + " ON " + QuoteName(table.name) + " (";
    for (std::size_t i = 0; i < index.fields.size(); ++i) text += (i == 0 ? "" : ", ") + QuoteName(index.fields[i]);
    text += OnRowKeyAlone(table, index) ? ") WHERE 0" : ")";
    texts.push_back(std::move(text));
  }
  return texts;
}

std::vector<std::string> DropIndexTexts(std::string_view file, const TableDefinition& table) {
  std::vector<std::string> texts;
  for (const IndexDefinition& index : table.indexes)
    texts.push_back("DROP INDEX " + QuoteName(file) + '.' + QuoteName(IndexName(table.name, index.name)));
  return texts;
}

std::vector<std::string> ReadTableNames(Connection& connection, std::string_view file) {
  std::vector<std::string> names;
  Query query(connection,
              "SELECT name FROM " + QuoteName(file) +
                  ".sqlite_schema WHERE type = 'table' AND substr(name, 1, 1) <> '~' AND substr(name, 1, 7) <> 'sqlite_' ORDER BY rowid");
  while (query.Step()) names.emplace_back(query.Text(0));
  return names;
}

TableDefinition ReadTable(Connection& connection, std::string_view file, const std::string& name) {
  TableDefinition table;
  table.name = name;
  std::vector<bool> refusesNull;
  ReadFields(connection, file, table, refusesNull);
  ReadIndexes(connection, file, table, refusesNull);
  return table;
}

}  // namespace engine
