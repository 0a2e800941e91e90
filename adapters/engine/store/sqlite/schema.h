#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/data/table_definition.h"

/// Table definitions as the store's schema holds them.
namespace engine {

class Connection;

/// The column that is a table's integer row key: its Counter, else the hidden one. Not quoted.
std::string RowKeyOf(const platform::TableDefinition& table);

/// CREATE TABLE for a table of the attached file `file` ("f1"), in the store's text order.
std::string CreateTableText(std::string_view file, const platform::TableDefinition& table);

/// ALTER TABLE that gives a table that is there one more field, neither a Counter nor in its primary index.
std::string AddFieldText(std::string_view file, const platform::TableDefinition& table, const platform::FieldDefinition& field);

/// CREATE INDEX for each index; one on the row key itself is kept in name only, since the table is that index.
std::vector<std::string> CreateIndexTexts(std::string_view file, const platform::TableDefinition& table);
std::vector<std::string> DropIndexTexts(std::string_view file, const platform::TableDefinition& table);

/// Names of the user's tables in a file, in the order of their making.
std::vector<std::string> ReadTableNames(Connection& connection, std::string_view file);

/// Definition of a table that is there, from the file's schema alone. Raises 3049 for a schema that isn't ours.
platform::TableDefinition ReadTable(Connection& connection, std::string_view file, const std::string& name);

}  // namespace engine
