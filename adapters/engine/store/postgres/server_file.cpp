#include "engine/store/postgres/server_file.h"

#include <algorithm>

#include "engine/errors.h"
#include "engine/store/link_rows.h"
#include "engine/store/postgres/wording/names.h"
#include "engine/store/query.h"
#include "platform/values/text.h"

namespace engine::postgres {

ServerFile::ServerFile(ServerConnection& connection, std::string schema, std::string path, bool readOnly)
    : connection_(connection), schema_(std::move(schema)), path_(std::move(path)), readOnly_(readOnly) {}

std::string ServerFile::Own(std::string_view name) const { return QuoteName(schema_) + '.' + QuoteName(name); }

// ---- tables

// While nobody has written anything but rows, no definition has changed either.
std::int64_t ServerFile::SchemaVersion() {
  OthersVersion();
  // Before the question: who changes something meanwhile makes its answer old, not the next one.
  const std::int64_t others = connection_.StrangersVersion();
  const std::uint64_t own = connection_.OwnDefinitions();
  if (!known_)
    Read();
  else if (others != knownOthers_ || own != knownOwn_)
    version_ = AskSchemaVersion(connection_, schema_);
  knownOthers_ = others;
  knownOwn_ = own;
  return version_;
}

void ServerFile::Read() {
  Definitions read = ReadDefinitions(connection_, schema_);
  tables_ = std::move(read.tables);
  version_ = tablesVersion_ = read.version;
  known_ = true;
}

const std::vector<StoredTable>& ServerFile::Tables() {
  if (SchemaVersion() != tablesVersion_) Read();
  return tables_;
}

std::vector<std::string> ServerFile::TableNames() {
  std::vector<std::string> names;
  for (const StoredTable& table : Tables()) names.push_back(table.name);
  return names;
}

std::string ServerFile::StoredName(std::string_view table) {
  for (const StoredTable& stored : Tables())
    if (platform::EqualsNoCase(stored.name, table)) return stored.name;
  return {};
}

platform::TableDefinition ServerFile::ReadTable(const std::string& storedName) {
  const std::vector<StoredTable>& tables = Tables();
  const auto found = std::ranges::find(tables, storedName, &StoredTable::name);
  if (found == tables.end() || !found->definition) throw errors::NotADatabase(storedName);
  return *found->definition;
}

std::int64_t ServerFile::LikelyRows(std::string_view storedName) const {
  const auto found = std::ranges::find(tables_, storedName, &StoredTable::name);
  return found == tables_.end() ? 0 : found->likelyRows;
}

// ---- numbers

// A sequence goes on whatever becomes of the transaction. It knows nothing of numbers that were given by hand: where it is behind
// them, one after the other of those who meet it brings it up to them.
std::int64_t ServerFile::TakeNumber(const platform::TableDefinition& table) {
  const std::string sequence = QuoteText(SequenceOf(schema_, table.name));
  // Who may not write now is told so here, not when the row is stored.
  const std::string writable = "(SELECT 1 FROM " + Own(table.name) + " WHERE false FOR KEY SHARE)";
  const std::string highest = HighestNumber(table);
  const std::string next = "SELECT nextval(" + sequence + ") AS number";
  {
    Query query(connection_, std::string_view("SELECT number, " + highest + ", " + writable + " FROM (" + next + ") AS taken"));
    query.Step();
    const std::int64_t number = query.Int(0);
    if (number > query.Int(1)) return number;
  }
  Transaction alone(connection_, Transaction::Kind::Write);
  NumbersGiven(table);
  std::int64_t number = 0;
  {
    Query query(connection_, next);
    query.Step();
    number = query.Int(0);
  }
  alone.Commit();
  return number;
}

std::string ServerFile::HighestNumber(const platform::TableDefinition& table) const {
  return "(SELECT coalesce(max(" + QuoteName(RowKeyOf(table)) + "), 0) FROM " + Own(table.name) + ")";
}

void ServerFile::NumbersGiven(const platform::TableDefinition& table) {
  const std::string sequence = QuoteText(SequenceOf(schema_, table.name));
  Transaction together(connection_, Transaction::Kind::Write);
  Query(connection_, std::string_view("SELECT pg_advisory_xact_lock(hashtextextended(" + sequence + ", 0))")).Run();
  // Where it is behind. One that has given no number yet stands on its first one.
  Query(connection_, std::string_view("SELECT setval(" + sequence + ", highest) FROM " + SequenceOf(schema_, table.name) + ", " +
                                      HighestNumber(table) + " AS given(highest) WHERE highest > CASE WHEN is_called THEN last_value ELSE 0 END"))
      .Run();
  together.Commit();
}

// ---- links

std::vector<StoredLink> ServerFile::Links() {
  const std::int64_t others = OthersVersion();
  const std::uint64_t own = OwnVersion();
  if (!links_ || others != linksOthers_ || own != linksOwn_)
    links_ = ReadLinks(connection_, "SELECT name, path, source FROM " + Own(kLinksTable) + " ORDER BY number");
  linksOthers_ = others;
  linksOwn_ = own;
  return *links_;
}

void ServerFile::AddLink(const StoredLink& link) {
  if (readOnly_) throw errors::ReadOnly();
  WriteLink(connection_, "INSERT INTO " + Own(kLinksTable) + " (name, path, source) VALUES ($1, $2, $3)", link);
}

}  // namespace engine::postgres
