#include "engine/store/sqlite/attached_file.h"

#include "engine/errors.h"
#include "engine/store/link_rows.h"
#include "engine/store/sqlite/names.h"
#include "engine/store/sqlite/schema.h"

namespace engine {

AttachedFile::AttachedFile(Connection& connection, int number, std::string path, std::string asked, bool readOnly, bool workFile,
                           std::shared_ptr<std::uint64_t> uses)
    : connection_(connection),
      number_(number),
      alias_("f" + std::to_string(number)),
      path_(std::move(path)),
      asked_(std::move(asked)),
      readOnly_(readOnly),
      workFile_(workFile),
      uses_(std::move(uses)),
      lastUse_(++*uses_),
      dataVersion_("PRAGMA " + Own("data_version")) {}

AttachedFile::~AttachedFile() {
  if (onGone_) onGone_(*this);
}

std::string AttachedFile::Own(std::string_view name) const { return QuoteName(alias_) + '.' + std::string(name); }

std::int64_t AttachedFile::OthersVersion() {
  Query query(connection_, dataVersion_);
  query.Step();
  lastUse_ = ++*uses_;
  // A file that is attached again counts from the start.
  return query.Int(0) + (returns_ << 32);
}

std::int64_t AttachedFile::SchemaVersion() { return AskNumber(connection_, "PRAGMA " + Own("schema_version")).value_or(0); }

// ---- tables

std::vector<std::string> AttachedFile::TableNames() { return ReadTableNames(connection_, alias_); }

std::string AttachedFile::StoredName(std::string_view table) {
  if (table.empty() || table.front() == kOwnNameMark) return {};
  Query query(connection_, "SELECT name FROM " + Own("sqlite_schema") +
                               " WHERE type = 'table' AND name = ?1 COLLATE NOCASE AND substr(name, 1, 7) <> 'sqlite_'");
  query.Bind(1, table);
  return query.Step() ? std::string(query.Text(0)) : std::string();
}

platform::TableDefinition AttachedFile::ReadTable(const std::string& storedName) {
  // The version first: who changes the table while it is read makes this reading old, not the next one.
  const std::int64_t version = SchemaVersion();
  const auto found = known_.find(storedName);
  if (found != known_.end() && found->second.schemaVersion == version && found->second.returns == returns_) return found->second.definition;
  const KnownTable& known = known_[storedName] = {version, returns_, engine::ReadTable(connection_, alias_, storedName)};
  return known.definition;
}

std::string AttachedFile::RowKeyOf(const platform::TableDefinition& table) const { return engine::RowKeyOf(table); }

std::int64_t AttachedFile::TakeNumber(const platform::TableDefinition& table) {
  const std::string counters = Own("sqlite_sequence");
  const std::string highest = "(SELECT ifnull(max(" + QuoteName(RowKeyOf(table)) + "), 0) FROM " + Own(QuoteName(table.name)) + ")";
  const std::string name = QuoteText(table.name);
  std::optional<std::int64_t> number;
  {
    Query query(connection_, std::string_view("UPDATE " + counters + " SET seq = max(seq, " + highest + ") + 1 WHERE name = " + name +
                                              " RETURNING seq"));
    while (query.Step()) number = query.Int(0);
  }
  if (!number) {
    Query query(connection_,
                std::string_view("INSERT INTO " + counters + " (name, seq) VALUES (" + name + ", " + highest + " + 1) RETURNING seq"));
    while (query.Step()) number = query.Int(0);
  }
  return *number;
}

// ---- links

std::vector<StoredLink> AttachedFile::Links() {
  return ReadLinks(connection_, "SELECT name, path, source FROM " + Own(QuoteName(kLinksTable)) + " ORDER BY rowid");
}

void AttachedFile::AddLink(const StoredLink& link) {
  if (readOnly_) throw errors::ReadOnly();
  WriteLink(connection_, "INSERT INTO " + Own(QuoteName(kLinksTable)) + " (name, path, source) VALUES (?1, ?2, ?3)", link);
}

}  // namespace engine
