#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

/// What a company's customer file holds, as texts that can be compared.
namespace system_test {

/// Fields by their names; "Null" for Null.
using Row = std::map<std::string, std::string>;

struct Books {
  /// The rows of every table by their keys: the primary key's fields, joined by "|"; for tables without one all fields.
  std::map<std::string, std::map<std::string, Row>> tables;
  /// The last number that each table with a Counter has given.
  std::map<std::string, std::int64_t> numbers;

  bool operator==(const Books&) const = default;
};

/// Reads every table. Raises platform::Error.
Books ReadBooks(const std::string& file);

/// Where two states differ, in sentences; the first few of them.
std::vector<std::string> Differences(const Books& expected, const Books& actual);

/// One statement of another program.
void RunStatement(const std::string& file, const std::string& statement);

}  // namespace system_test
