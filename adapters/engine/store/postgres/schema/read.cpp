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

// The oid alone would not tell of a changed column; each change of a row of the catalogue has the number of its transaction.
constexpr std::string_view kVersion =
    "SELECT bit_xor(hashint8extended(number, change)) FROM ("
    "SELECT c.oid::bigint << 16, c.xmin::text::bigint FROM pg_class c JOIN pg_namespace n ON n.oid = c.relnamespace WHERE n.nspname = $1 "
    "UNION ALL "
    "SELECT a.attrelid::bigint << 16 | a.attnum::bigint, a.xmin::text::bigint FROM pg_attribute a JOIN pg_class c ON c.oid = a.attrelid "
    "JOIN pg_namespace n ON n.oid = c.relnamespace WHERE n.nspname = $1 AND a.attnum > 0) AS parts(number, change)";

// What a row of the reading tells of. All of it is one statement, so that it is one state and one trip.
enum class Part { Column = 1, Index = 2, Version = 3 };
constexpr int kPartAt = 8;
constexpr int kVersionAt = 12;
constexpr int kRowsAt = 13;

// Columns of all tables, in the tables' and their own order. A dropped one has no name of ours.
constexpr std::string_view kColumns =
    "SELECT c.relname::text, a.attname::text, t.typname::text, t.typtype = 'd' AND t.typnamespace = n.oid, a.atttypmod - 4, a.attidentity <> '', "
    "a.attnotnull, pg_get_expr(d.adbin, d.adrelid), 1, c.oid::bigint, a.attnum::bigint, 0::bigint, 0::bigint, "
    "c.reltuples::bigint FROM pg_namespace n JOIN pg_class c ON c.relnamespace = n.oid JOIN pg_attribute a ON a.attrelid = c.oid JOIN pg_type t ON t.oid = a.atttypid "
    "LEFT JOIN pg_attrdef d ON d.adrelid = c.oid AND d.adnum = a.attnum "
    "WHERE n.nspname = $1 AND c.relkind IN ('r', 'p') AND left(c.relname, 1) <> '~' AND a.attnum > 0 AND NOT a.attisdropped";

// Columns of all indexes, in the order of their making.
constexpr std::string_view kIndexes =
    "SELECT c.relname::text, x.relname::text, a.attname::text, i.indisunique, 0, false, false, NULL, 2, c.oid::bigint, x.oid::bigint, k.place, "
    "0::bigint, 0::bigint "
    "FROM pg_namespace n JOIN pg_class c ON c.relnamespace = n.oid JOIN pg_index i ON i.indrelid = c.oid JOIN pg_class x ON x.oid = i.indexrelid "
    "CROSS JOIN LATERAL unnest(i.indkey) WITH ORDINALITY AS k(number, place) JOIN pg_attribute a ON a.attrelid = c.oid AND a.attnum = k.number "
    "WHERE n.nspname = $1 AND left(c.relname, 1) <> '~'";

std::string EverythingText() {
  return std::string(kColumns) + " UNION ALL " + std::string(kIndexes) +
         " UNION ALL SELECT NULL, NULL, NULL, false, 0, false, false, NULL, 3, 0, 0, 0, (" + std::string(kVersion) + "), 0 ORDER BY 9, 10, 11, 12";
}

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
  std::int64_t likelyRows = 0;
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

void AddColumn(std::vector<ReadTable>& tables, const Query& query) {
  if (tables.empty() || tables.back().definition.name != query.Text(0)) tables.emplace_back().definition.name = query.Text(0);
  tables.back().likelyRows = std::max<std::int64_t>(query.Int(kRowsAt), 0);
  AddField(tables.back(), query);
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

/// Puts the indexes to their tables, column by column.
class IndexReader {
 public:
  explicit IndexReader(std::vector<ReadTable>& tables) : tables_(tables), table_(nullptr) {}

  void AddColumn(const Query& query) {
    const std::string_view name = query.Text(1);
    if (table_ == nullptr || table_->definition.name != query.Text(0) || name != last_) Begin(query);
    if (table_ != nullptr) table_->definition.indexes.back().fields.emplace_back(FieldOfColumn(query.Text(2)));
  }
  void End() {
    if (table_ != nullptr) EndIndex(*table_);
    table_ = nullptr;
  }

 private:
  void Begin(const Query& query) {
    End();
    const std::string_view name = query.Text(1);
    last_ = name;
    const auto found = std::ranges::find_if(tables_, [&](const ReadTable& one) { return one.definition.name == query.Text(0); });
    const std::string prefix = std::string(query.Text(0)) + '.';
    // The row key's own has another name, and another program's.
    if (found == tables_.end() || !name.starts_with(prefix)) return;
    IndexDefinition index;
    index.name = name.substr(prefix.size());
    index.unique = query.Int(3) != 0;
    found->definition.indexes.push_back(std::move(index));
    table_ = &*found;
  }

  std::vector<ReadTable>& tables_;
  ReadTable* table_;
  std::string last_;
};

}  // namespace

std::vector<StoredTable> ReadTables(Channel& channel, std::string_view schema) { return ReadDefinitions(channel, schema).tables; }

Definitions ReadDefinitions(Channel& channel, std::string_view schema) {
  Definitions definitions;
  std::vector<ReadTable> read;
  IndexReader indexes(read);
  Query query(channel, std::string_view(EverythingText()));
  query.Bind(1, schema);
  while (query.Step()) {
    switch (static_cast<Part>(query.Int(kPartAt))) {
      case Part::Column:
        AddColumn(read, query);
        break;
      case Part::Index:
        indexes.AddColumn(query);
        break;
      case Part::Version:
        definitions.version = query.Int(kVersionAt);
        break;
    }
  }
  indexes.End();
  for (ReadTable& table : read) {
    StoredTable stored{table.definition.name, {}, table.likelyRows};
    if (table.ours) stored.definition = std::move(table.definition);
    definitions.tables.push_back(std::move(stored));
  }
  return definitions;
}

std::int64_t AskSchemaVersion(Channel& channel, std::string_view schema) {
  Query query(channel, kVersion);
  query.PlanOnce();
  query.Bind(1, schema);
  return query.Step() ? query.Int(0) : 0;
}

}  // namespace engine::postgres
