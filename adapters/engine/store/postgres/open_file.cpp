#include "engine/store/postgres/open_file.h"

#include <charconv>

#include "engine/errors.h"
#include "engine/store/postgres/schema/definitions.h"
#include "engine/store/postgres/wording/names.h"
#include "engine/store/query.h"
#include "engine/text/text_order.h"

namespace engine::postgres {
namespace {

constexpr int kFormat = 1;

platform::Error NewerFormat(const std::string& asked) {
  return {errors::UnrecognizedFormat(asked).Number(),
          errors::UnrecognizedFormat(asked).Description() + "  A newer version of this program made the file; this version can't use it."};
}

// What the catalogue says about the schema, for this role.
struct Found {
  bool usable = false;
  bool ours = false;
  bool readable = false;
  bool writable = false;
  bool marked = false;
};

std::optional<Found> Find(ServerConnection& connection, const std::string& schema) {
  Query query(connection, std::string_view(
                              "SELECT has_schema_privilege(n.oid, 'USAGE'), i.oid IS NOT NULL AND l.oid IS NOT NULL, has_table_privilege(i.oid, 'SELECT'), "
                              "has_table_privilege(l.oid, 'INSERT') AND current_setting('transaction_read_only') = 'off', "
                              "has_table_privilege(s.oid, 'SELECT') AND has_table_privilege(s.oid, 'INSERT') AND "
                              "has_table_privilege(s.oid, 'UPDATE') AND has_table_privilege(s.oid, 'DELETE') "
                              "FROM pg_namespace n LEFT JOIN pg_class i ON i.relnamespace = n.oid AND i.relname = $2 "
                              "LEFT JOIN pg_class l ON l.relnamespace = n.oid AND l.relname = $3 "
                              "LEFT JOIN pg_class s ON s.relnamespace = n.oid AND s.relname = $4 WHERE n.nspname = $1"));
  query.Bind(1, std::string_view(schema));
  query.Bind(2, kInfoTable);
  query.Bind(3, kLinksTable);
  query.Bind(4, kSavesTable);
  if (!query.Step()) return {};
  return Found{query.Int(0) != 0, query.Int(1) != 0, query.Int(2) != 0, query.Int(3) != 0, query.Int(4) != 0};
}

// Formats and text orders have whole numbers; what can't be read as one is damaged.
int NumberIn(std::string_view text, const std::string& asked) {
  int number = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  if (text.empty() || result.ec != std::errc() || result.ptr != end) throw errors::NotADatabase(asked);
  return number;
}

void RequireFormat(ServerConnection& connection, const std::string& schema, const std::string& asked) {
  int known = 0;
  Query query(connection, "SELECT key, value FROM " + QuoteName(schema) + '.' + QuoteName(kInfoTable) + " WHERE key IN ('format', 'text order')");
  while (query.Step()) {
    const bool format = query.Text(0) == "format";
    if (NumberIn(query.Text(1), asked) > (format ? kFormat : kTextOrderVersion)) throw NewerFormat(asked);
    ++known;
  }
  if (known != 2) throw errors::NotADatabase(asked);
}

}  // namespace

bool OpenSchema(ServerConnection& connection, const std::string& schema, const std::string& asked) {
  const std::optional<Found> found = Find(connection, schema);
  if (!found) throw errors::FileNotFound(asked);
  if (!found->usable) throw errors::OpenedExclusively(asked);
  if (!found->ours) throw errors::UnrecognizedFormat(asked);
  if (!found->readable) throw errors::OpenedExclusively(asked);
  RequireFormat(connection, schema, asked);
  if (found->writable && found->marked) connection.MarkSaves(schema);
  return !found->writable;
}

void CreateServerFile(ServerConnection& connection, const std::string& schema, std::span<const platform::TableDefinition> tables) {
  std::vector<std::string> texts = CreateSchemaTexts(schema);
  for (const platform::TableDefinition& table : tables) {
    texts.push_back(CreateTableText(schema, table));
    for (std::string& index : CreateIndexTexts(schema, table)) texts.push_back(std::move(index));
  }
  connection.ExecuteAll(texts, schema);
}

}  // namespace engine::postgres
