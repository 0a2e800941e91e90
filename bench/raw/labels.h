#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "raw/store.h"

namespace bench::raw {

/// What a program without the system would do to fill the temporary tables of reports: on a Store's connection, with a temporary file of
/// its own attached as the engine attaches one.
class Labels {
 public:
  Labels(Store& customers, const std::string& temporaryFile);
  ~Labels();
  Labels(const Labels&) = delete;
  Labels& operator=(const Labels&) = delete;

  void ClearLabels();
  /// Composes a label for each customer, from the last account to the first, and writes each with its own commit.
  void Load();
  /// Sum over accounts and texts of the labels that are there.
  std::uint64_t Sum();

  void ClearCustomers();
  /// How all customers are copied by one statement: in the order of the list; in none, column by column, as any copy of a query's
  /// customers must be; in none and table to table, where the store moves whole records, which it does for no query.
  enum class Way { InOrder, ByColumns, WholeTable };
  void Copy(Way way);
  std::int64_t Copied();

 private:
  struct Statements;
  std::unique_ptr<Statements> statements_;
};

/// The same sum over the labels in another temporary file.
std::uint64_t SumOfLabels(const std::string& temporaryFile);

}  // namespace bench::raw
