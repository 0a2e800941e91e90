#include <algorithm>
#include <functional>
#include <iterator>

#include "engine/store/additions.h"
#include "engine/store/find_by_name.h"
#include "engine/store/postgres/files/opened_schema.h"
#include "engine/store/postgres/files/tools.h"
#include "engine/store/postgres/schema/definitions.h"
#include "engine/store/postgres/wording/names.h"
#include "engine/store/query.h"

namespace engine::postgres {
namespace {

using platform::TableDefinition;

struct Additions {
  std::vector<std::string> statements;
  std::vector<std::string> sentences;
  void Add(std::vector<std::string> texts) { std::move(texts.begin(), texts.end(), std::back_inserter(statements)); }
};

Additions LookForAdditions(OpenedSchema& opened, std::span<const TableDefinition> expected) {
  const std::string& schema = opened.target.schema;
  Additions additions;
  for (const TableDefinition& table : expected) {
    const std::string stored = opened.file.StoredName(table.name);
    if (stored.empty()) {
      additions.statements.push_back(CreateTableText(schema, table));
      additions.Add(CreateIndexTexts(schema, table));
      additions.sentences.push_back(TableWasMade(table.name));
      continue;
    }
    const TableDefinition there = opened.file.ReadTable(stored);
    Lacking lacking = WhatIsLacking(there, table);
    TableDefinition wanted = there;
    std::move(lacking.fields.begin(), lacking.fields.end(), std::back_inserter(wanted.fields));
    std::move(lacking.indexes.begin(), lacking.indexes.end(), std::back_inserter(wanted.indexes));
    additions.Add(AlterTableTexts(schema, there, wanted));
    std::move(lacking.sentences.begin(), lacking.sentences.end(), std::back_inserter(additions.sentences));
  }
  return additions;
}

std::string ColumnsOf(const TableDefinition& table) {
  const std::string key = RowKeyOf(table);
  std::string columns = FindByName(table.fields, key) == nullptr ? QuoteName(key) : std::string();
  for (const auto& field : table.fields) columns += (columns.empty() ? "" : ", ") + QuoteName(field.name);
  return columns;
}

// The file as it is, as another schema: rows with their keys, numbers that were given, links.
void KeepAsItWas(OpenedSchema& opened, const std::string& copy, const std::function<void(int, int)>& progress) {
  const std::string& from = opened.target.schema;
  const std::vector<std::string> names = opened.file.TableNames();
  opened.connection.ExecuteAll(CreateSchemaTexts(copy), copy);
  int done = 0;
  for (const std::string& name : names) {
    if (progress) progress(done++, static_cast<int>(names.size()));
    const TableDefinition table = opened.file.ReadTable(name);
    const std::string columns = ColumnsOf(table);
    std::vector<std::string> texts{
        CreateTableText(copy, table),
        "INSERT INTO " + QuoteName(copy) + '.' + QuoteName(name) + " (" + columns + ") SELECT " + columns + " FROM " + QuoteName(from) +
            '.' + QuoteName(name),
        "SELECT setval(" + QuoteText(SequenceOf(copy, name)) + ", last_value, is_called) FROM " + SequenceOf(from, name)};
    for (std::string& text : CreateIndexTexts(copy, table)) texts.push_back(std::move(text));
    opened.connection.ExecuteAll(texts, copy);
  }
  const std::string links = "INSERT INTO " + QuoteName(copy) + '.' + QuoteName(kLinksTable) +
                            " (name, path, source) SELECT name, path, source FROM " + QuoteName(from) + '.' + QuoteName(kLinksTable) +
                            " ORDER BY number";
  opened.connection.ExecuteAll({&links, 1}, copy);
  if (progress) progress(done, done);
}

// From here on nobody reads or writes any of its tables. Lists that are open ask again later.
void Seclude(OpenedSchema& opened, const std::string& path) {
  std::string lock;
  for (const std::string& name : opened.file.TableNames())
    lock += (lock.empty() ? "LOCK TABLE " : ", ") + QuoteName(opened.target.schema) + '.' + QuoteName(name);
  if (lock.empty()) return;
  lock += " IN ACCESS EXCLUSIVE MODE";
  try {
    opened.connection.ExecuteAll({&lock, 1}, opened.target.schema);
  } catch (const platform::Error& error) {
    if (error.Number() == errors::number::UpdateLocked) throw errors::FileInUse(path);
    throw;
  }
}

}  // namespace

std::vector<std::string> UpgradeDataFile(const std::string& path, std::span<const TableDefinition> expected, const std::string& copy,
                                         const std::function<void(int, int)>& progress) {
  OpenedSchema opened(path);
  if (LookForAdditions(opened, expected).statements.empty()) return {};
  opened.RequireWritable();
  const Target kept = ParseTarget(copy);
  if (!kept.SameDatabase(opened.target)) throw errors::OtherStore(copy);

  Transaction upgrade(opened.connection, Transaction::Kind::Write);
  Seclude(opened, path);
  // Another upgrade may have come first.
  const Additions additions = LookForAdditions(opened, expected);
  if (additions.statements.empty()) return {};
  KeepAsItWas(opened, kept.schema, progress);
  opened.connection.ExecuteAll(additions.statements, opened.target.schema);
  upgrade.Commit();
  return additions.sentences;
}

}  // namespace engine::postgres
