#pragma once

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "engine/data_file.h"
#include "platform/values/value.h"

namespace suitefiles {

/// Fills a table in one transaction. Without Finish nothing stays.
class TableWriter {
 public:
  TableWriter(const std::string& path, const std::string& table, const std::vector<std::string>& fields)
      : writer_(engine::OpenBulkWriter(path, table, fields)) {}

  /// One row, a value for each field.
  template <class... Values>
  void Row(Values&&... values) {
    const std::array<platform::Value, sizeof...(Values)> row{platform::Value(std::forward<Values>(values))...};
    writer_->Add(row);
  }
  /// The same for a row put together beforehand.
  void Add(const std::vector<platform::Value>& row) { writer_->Add(row); }

  void Finish() { writer_->Finish(); }

 private:
  std::unique_ptr<engine::BulkWriter> writer_;
};

/// An amount of whole cents.
inline platform::Currency Cents(std::int64_t cents) { return {cents * 100}; }

}  // namespace suitefiles
