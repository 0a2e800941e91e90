#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/data/table_definition.h"

namespace suitefiles {

/// What a table holds, in numbers: how many rows, and for each column how many values and a sum over all of them, in which numbers, dates
/// and texts count by their exact value.
struct TableSums {
  struct Column {
    std::string name;
    std::uint64_t values = 0;
    std::uint64_t sum = 0;
    bool operator==(const Column&) const = default;
  };
  std::string table;
  std::uint64_t rows = 0;
  std::vector<Column> columns;
  bool operator==(const TableSums&) const = default;
};

using CopyProgress = std::function<void(const std::string& table, std::int64_t done, std::int64_t all)>;

/// The sums of all tables of a file, read in one state of it.
std::vector<TableSums> SumsOf(const std::string& path, const CopyProgress& progress);

/// Copies a file with its tables, rows and Counters, as they are at one moment, to a path that is still free, in one transaction: when it
/// fails nothing is there. Links stay out. Returns the sums of what was read.
std::vector<TableSums> CopyDataFile(const std::string& from, const std::string& to, const CopyProgress& progress);

/// A sentence for each difference.
std::vector<std::string> Differences(const std::vector<TableSums>& from, const std::vector<TableSums>& to);

}  // namespace suitefiles
