#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/store/channel.h"
#include "platform/data/table_definition.h"

/// Table definitions as a schema of the server holds them.
namespace engine::postgres {

/// The column that is a table's integer row key: its Counter, else the hidden one. Not quoted.
std::string RowKeyOf(const platform::TableDefinition& table);

/// The sequence that numbers the rows of a table, in quotes.
std::string SequenceOf(std::string_view schema, std::string_view table);

/// What makes an empty schema of ours: the text order's functions, the words for field types, the store's own tables.
std::vector<std::string> CreateSchemaTexts(std::string_view schema);
/// What makes a table; its indexes are made by themselves, after its rows where there are many.
std::string CreateTableText(std::string_view schema, const platform::TableDefinition& table);
std::vector<std::string> CreateIndexTexts(std::string_view schema, const platform::TableDefinition& table);

/// What gives a table the fields and indexes of `wanted` that it lacks. Fields of a Counter can't be given.
std::vector<std::string> AlterTableTexts(std::string_view schema, const platform::TableDefinition& there,
                                         const platform::TableDefinition& wanted);

/// What makes a table of the connection's own, of that definition's name, which goes with the transaction; its words and functions are the
/// schema's. `rowKey`: which of its fields is the row key.
inline constexpr std::string_view kOwnTables = "pg_temp";
std::string CreateGuestText(std::string_view schema, const platform::TableDefinition& table, std::string_view rowKey);

/// All tables of the user in a schema, in the order of their making; nothing for the definition of one that isn't ours.
struct StoredTable {
  std::string name;
  std::optional<platform::TableDefinition> definition;
  std::int64_t likelyRows = 0;  ///< as the server's own statistics had it, 0 before these are taken
};
std::vector<StoredTable> ReadTables(Channel& channel, std::string_view schema);
/// The same with the number that AskSchemaVersion gives, in one reading.
struct Definitions {
  std::vector<StoredTable> tables;
  std::int64_t version = 0;
};
Definitions ReadDefinitions(Channel& channel, std::string_view schema);

/// A number that changes with every change of the schema's tables, indexes and columns, by anyone.
std::int64_t AskSchemaVersion(Channel& channel, std::string_view schema);

}  // namespace engine::postgres
