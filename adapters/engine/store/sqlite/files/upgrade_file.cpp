#include <algorithm>
#include <cstdio>

#include "engine/data_file.h"
#include "engine/errors.h"
#include "engine/store/find_by_name.h"
#include "engine/store/sqlite/files/copy_file.h"
#include "engine/store/sqlite/files/opened_file.h"
#include "engine/store/sqlite/names.h"
#include "engine/store/sqlite/schema.h"
#include "platform/values/text.h"

namespace engine {
namespace {

using platform::FieldDefinition;
using platform::IndexDefinition;
using platform::TableDefinition;


/// What a file lacks: statements in their order, and the sentences that tell of them.
struct Additions {
  std::vector<std::string> statements;
  std::vector<std::string> sentences;
  void Add(std::string sentence, std::vector<std::string> texts) {
    sentences.push_back(std::move(sentence));
    std::move(texts.begin(), texts.end(), std::back_inserter(statements));
  }
};

platform::Error MustBeMadeAnew(const std::string& table, const std::string& field) {
  return {3057, "Field '" + field + "' is part of the key of table '" + table + "' and can't be added to it; the table must be made anew."};
}

void LookForFields(const std::string& alias, const TableDefinition& there, const TableDefinition& expected, Additions& additions) {
  for (const FieldDefinition& field : expected.fields) {
    if (FindByName(there.fields, field.name) != nullptr) continue;
    if (BelongsToKey(expected, field)) throw MustBeMadeAnew(there.name, field.name);
    additions.Add("Table " + there.name + " has got the field " + field.name + ".", {AddFieldText(alias, there, field)});
  }
}

void LookForIndexes(const std::string& alias, const TableDefinition& there, const TableDefinition& expected, Additions& additions) {
  for (const IndexDefinition& index : expected.indexes) {
    if (FindByName(there.indexes, index.name) != nullptr) continue;
    const TableDefinition alone{there.name, expected.fields, {index}};
    additions.Add("Table " + there.name + " has got the index " + index.name + ".", CreateIndexTexts(alias, alone));
  }
}

Additions LookForAdditions(Connection& connection, AttachedFile& file, std::span<const TableDefinition> expected) {
  Additions additions;
  const std::string& alias = file.Qualifier();
  const auto names = file.TableNames();
  for (const TableDefinition& table : expected) {
    const auto name = std::find_if(names.begin(), names.end(), [&](const auto& each) { return platform::EqualsNoCase(each, table.name); });
    if (name == names.end()) {
      std::vector<std::string> texts = CreateIndexTexts(alias, table);
      texts.insert(texts.begin(), CreateTableText(alias, table));
      additions.Add("Table " + table.name + " was made.", std::move(texts));
      continue;
    }
    const TableDefinition there = ReadTable(connection, alias, *name);
    LookForFields(alias, there, table, additions);
    LookForIndexes(alias, there, table, additions);
  }
  return additions;
}

/// Takes the file for this connection alone until it closes. Raises 3045 when somebody keeps it open.
void Seclude(Connection& connection, const AttachedFile& file, const std::string& path) {
  connection.Execute("PRAGMA " + QuoteName(file.Qualifier()) + ".locking_mode=EXCLUSIVE");
  try {
    // The lock is taken by the first unit that writes, and kept.
    Transaction first(connection, Transaction::Kind::Write);
    connection.Execute("UPDATE " + QuoteName(file.Qualifier()) + '.' + QuoteName(kInfoTable) + " SET value=value WHERE key='format'");
    first.Commit();
  } catch (const platform::Error& error) {
    if (error.Number() == errors::number::UpdateLocked) throw errors::FileInUse(path);
    throw;
  }
}

/// The copy has its name when it is whole; what a killed run left of one is written anew.
void KeepAsItWas(Connection& connection, const AttachedFile& file, const std::string& copy, const std::function<void(int, int)>& progress) {
  const std::string unfinished = copy + ".unfinished";
  for (const char* suffix : {"", "-journal", "-wal", "-shm"}) std::remove((unfinished + suffix).c_str());
  CopyAttachedFile(connection, file.Qualifier(), unfinished, progress);
  if (!MoveIntoPlace(unfinished, copy)) throw FileExistsAlready(copy);
}

}  // namespace

std::vector<std::string> UpgradeDataFile(const std::string& path, std::span<const TableDefinition> expected, const std::string& copy,
                                         const std::function<void(int, int)>& progress) {
  OpenedFile opened(path);
  Connection& connection = opened.connection;
  const auto& file = opened.file;
  if (LookForAdditions(connection, *file, expected).statements.empty()) return {};
  if (file->ReadOnly()) throw errors::ReadOnly();
  RequireNewPath(copy);
  Seclude(connection, *file, path);
  // Another upgrade may have come first.
  const Additions additions = LookForAdditions(connection, *file, expected);
  if (additions.statements.empty()) return {};
  KeepAsItWas(connection, *file, copy, progress);

  Transaction upgrade(connection, Transaction::Kind::Write);
  for (const std::string& statement : additions.statements) connection.Execute(statement);
  upgrade.Commit();
  return additions.sentences;
}

}  // namespace engine
