#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace hostile {

/// A row as it stands on the server.
struct ServerRow {
  std::string table;
  std::int32_t owner = 0;  ///< 0 where rows belong to no customer
  std::string text;
};

/// Whether the path names a file on the tests' server.
bool IsOnServer(const std::string& customerFile);

/// All rows of the customer file, read past the program. `ownerField`: the field of a table that says to whom a row belongs, nullptr for none.
std::vector<ServerRow> RowsOnServer(const std::string& customerFile, const char* (*ownerField)(const std::string& table));

/// The names of its tables.
std::vector<std::string> TablesOnServer(const std::string& customerFile);

/// Whether nobody stands in a transaction there, or holds a lock that keeps writers out.
bool WritableOnServer(const std::string& customerFile);

}  // namespace hostile
