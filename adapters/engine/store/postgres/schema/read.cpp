#include <algorithm>

#include "engine/store/postgres/schema/definitions.h"
#include "engine/store/postgres/schema/field_words.h"
#include "engine/store/postgres/values/stored_text.h"
#include "engine/store/postgres/wording/key_columns.h"
#include "engine/store/postgres/wording/names.h"
#include "engine/store/query.h"
#include "engine/store/store.h"
#include "platform/values/text.h"

namespace engine::postgres {
namespace {

using platform::EqualsNoCase;
using platform::FieldDefinition;
using platform::FieldType;
using platform::IndexDefinition;
using platform::TableDefinition;

// Columns of all tables, in the tables' and their own order. A dropped one has no name of ours.
constexpr std::string_view kColumns =
    "SELECT c.relname, a.attname, t.typname, t.typtype = 'd' AND t.typnamespace = n.oid, a.atttypmod - 4, a.attidentity <> '', a.attnotnull, "
    "pg_get_expr(d.adbin, d.adrelid) "
    "FROM pg_namespace n JOIN pg_class c ON c.relnamespace = n.oid JOIN pg_attribute a ON a.attrelid = c.oid JOIN pg_type t ON t.oid = a.atttypid "
    "LEFT JOIN pg_attrdef d ON d.adrelid = c.oid AND d.adnum = a.attnum "
    "WHERE n.nspname = $1 AND c.relkind IN ('r', 'p') AND left(c.relname, 1) <> '~' AND a.attnum > 0 AND NOT a.attisdropped "
    "ORDER BY c.oid, a.attnum";

// Columns of all indexes, in the order of their making.
constexpr std::string_view kIndexes =
    "SELECT c.relname, x.relname, i.indisunique, a.attname "
    "FROM pg_namespace n JOIN pg_class c ON c.relnamespace = n.oid JOIN pg_index i ON i.indrelid = c.oid JOIN pg_class x ON x.oid = i.indexrelid "
    "CROSS JOIN LATERAL unnest(i.indkey) WITH ORDINALITY AS k(number, place) JOIN pg_attribute a ON a.attrelid = c.oid AND a.attnum = k.number "
    "WHERE n.nspname = $1 AND left(c.relname, 1) <> '~' ORDER BY c.oid, x.oid, k.place";

// The oid alone would not tell of a changed column; each change of a row of the catalogue has the number of its transaction.
constexpr std::string_view kVersion =
    "SELECT bit_xor(hashint8extended(number, change)) FROM ("
    "SELECT c.oid::bigint << 16, c.xmin::text::bigint FROM pg_class c JOIN pg_namespace n ON n.oid = c.relnamespace WHERE n.nspname = $1 "
    "UNION ALL "
    "SELECT a.attrelid::bigint << 16 | a.attnum::bigint, a.xmin::text::bigint FROM pg_attribute a JOIN pg_class c ON c.oid = a.attrelid "
    "JOIN pg_namespace n ON n.oid = c.relnamespace WHERE n.nspname = $1 AND a.attnum > 0) AS parts(number, change)";

// 'text'::character varying, '-1'::integer, (-1), 2.5: constants as the server words them.
std::string ConstantIn(std::string_view words) {
  while (words.starts_with('(')) words.remove_prefix(1);
  const bool escaped = words.starts_with('E');
  if (escaped) words.remove_prefix(1);
  if (!words.starts_with('\'')) return std::string(words.substr(0, words.find_first_of(":)")));
  std::string text;
  for (std::size_t at = 1; at < words.size(); ++at) {
    const bool doubled = at + 1 < words.size() && words[at + 1] == words[at];
    if (words[at] == '\'' && !doubled) break;
    if (doubled && (words[at] == '\'' || (escaped && words[at] == '\\'))) ++at;
    text += words[at];
  }
  return text;
}

struct ReadTable {
  TableDefinition definition;
  std::vector<std::string> refusesNull;
  bool ours = true;
};

void AddField(ReadTable& table, const Query& query) {
  const std::string_view name = query.Text(1);
  if (name.starts_with(kOwnNameMark)) return;
  FieldDefinition field;
  field.name = name;
  const ColumnType column{query.Text(2), query.Int(3) != 0, static_cast<int>(query.Int(4)), query.Int(5) != 0};
  const auto type = ParseType(column, field.size);
  if (!type) {
    table.ours = false;
    return;
  }
  field.type = *type;
  if (!query.IsNull(7)) field.defaultValue = ValueOfText(*type, ConstantIn(query.Text(7)));
  if (query.Int(6) != 0) table.refusesNull.push_back(field.name);
  table.definition.fields.push_back(std::move(field));
}

std::vector<ReadTable> ReadColumns(Channel& channel, std::string_view schema) {
  std::vector<ReadTable> tables;
  Query query(channel, kColumns);
  query.Bind(1, schema);
  while (query.Step()) {
    if (tables.empty() || tables.back().definition.name != query.Text(0)) tables.emplace_back().definition.name = query.Text(0);
    AddField(tables.back(), query);
  }
  return tables;
}

// Behind the fields of an index that isn't unique stands the row key.
void EndIndex(ReadTable& table) {
  if (table.definition.indexes.empty()) return;
  IndexDefinition& index = table.definition.indexes.back();
  if (!index.unique && index.fields.size() > 1) index.fields.pop_back();
  index.primary = index.unique && std::ranges::all_of(index.fields, [&](const std::string& field) {
                    return std::ranges::find(table.refusesNull, field) != table.refusesNull.end();
                  });
}

void ReadIndexes(Channel& channel, std::string_view schema, std::vector<ReadTable>& tables) {
  Query query(channel, kIndexes);
  query.Bind(1, schema);
  std::string last;
  auto table = tables.end();
  while (query.Step()) {
    const std::string_view name = query.Text(1);
    if (table == tables.end() || table->definition.name != query.Text(0) || name != last) {
      if (table != tables.end()) EndIndex(*table);
      table = std::ranges::find_if(tables, [&](const ReadTable& one) { return one.definition.name == query.Text(0); });
      last = name;
      const std::string prefix = std::string(query.Text(0)) + '.';
      if (table == tables.end() || !name.starts_with(prefix)) {
        table = tables.end();  // the row key's own, or another program's
        continue;
      }
      IndexDefinition index;
      index.name = name.substr(prefix.size());
      index.unique = query.Int(2) != 0;
      table->definition.indexes.push_back(std::move(index));
    }
    if (table != tables.end()) table->definition.indexes.back().fields.emplace_back(FieldOfColumn(query.Text(3)));
  }
  if (table != tables.end()) EndIndex(*table);
}

}  // namespace

std::vector<StoredTable> ReadTables(Channel& channel, std::string_view schema) {
  // One state: a table that is changed between the two is read as it was.
  Transaction oneState(channel, Transaction::Kind::Read);
  std::vector<ReadTable> read = ReadColumns(channel, schema);
  ReadIndexes(channel, schema, read);
  std::vector<StoredTable> tables;
  for (ReadTable& table : read) {
    StoredTable stored{table.definition.name, {}};
    if (table.ours) stored.definition = std::move(table.definition);
    tables.push_back(std::move(stored));
  }
  return tables;
}

std::int64_t AskSchemaVersion(Channel& channel, std::string_view schema) {
  Query query(channel, kVersion);
  query.Bind(1, schema);
  return query.Step() ? query.Int(0) : 0;
}

}  // namespace engine::postgres
