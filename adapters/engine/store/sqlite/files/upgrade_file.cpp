#include <algorithm>
#include <cstdio>
#include <iterator>

#include "engine/data_file.h"
#include "engine/errors.h"
#include "engine/store/additions.h"
#include "engine/store/sqlite/files/copy_file.h"
#include "engine/store/sqlite/files/opened_file.h"
#include "engine/store/sqlite/files/tools.h"
#include "engine/store/sqlite/names.h"
#include "engine/store/sqlite/schema.h"
#include "platform/values/text.h"

namespace engine {
namespace {

using platform::FieldDefinition;
using platform::TableDefinition;

/// What a file lacks: statements in their order, and the sentences that tell of them.
struct Additions {
  std::vector<std::string> statements;
  std::vector<std::string> sentences;
  void Add(std::string text) { statements.push_back(std::move(text)); }
  void Add(std::vector<std::string> texts) { std::move(texts.begin(), texts.end(), std::back_inserter(statements)); }
};

Additions LookForAdditions(Connection& connection, AttachedFile& file, std::span<const TableDefinition> expected) {
  Additions additions;
  const std::string& alias = file.Qualifier();
  const auto names = file.TableNames();
  for (const TableDefinition& table : expected) {
    const auto name = std::find_if(names.begin(), names.end(), [&](const auto& each) { return platform::EqualsNoCase(each, table.name); });
    if (name == names.end()) {
      additions.Add(CreateTableText(alias, table));
      additions.Add(CreateIndexTexts(alias, table));
      additions.sentences.push_back(TableWasMade(table.name));
      continue;
    }
    const TableDefinition there = ReadTable(connection, alias, *name);
    Lacking lacking = WhatIsLacking(there, table);
    for (const FieldDefinition& field : lacking.fields) additions.Add(AddFieldText(alias, there, field));
    additions.Add(CreateIndexTexts(alias, {there.name, table.fields, lacking.indexes}));
    std::move(lacking.sentences.begin(), lacking.sentences.end(), std::back_inserter(additions.sentences));
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

std::vector<std::string> files::UpgradeDataFile(const std::string& path, std::span<const TableDefinition> expected, const std::string& copy,
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
