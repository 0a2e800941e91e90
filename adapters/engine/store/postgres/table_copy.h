#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "engine/store/postgres/connection.h"
#include "platform/data/table_definition.h"
#include "platform/values/value.h"

namespace engine::postgres {

/// Rows for one table, inside a unit of the connection.
class TableCopy {
 public:
  /// Raises 3265 for a field that isn't there.
  TableCopy(ServerConnection& connection, const std::string& schema, const platform::TableDefinition& table, std::span<const std::string> fields);

  /// The values in the order of the fields.
  void Add(std::span<const platform::Value> row);
  /// All rows are there: the Counter goes on above their numbers.
  void Finish();

 private:
  ServerConnection& connection_;
  std::string schema_;
  platform::TableDefinition table_;
  std::vector<platform::FieldDefinition> fields_;
  std::unique_ptr<CopyRows> rows_;
  std::string lines_;
};

/// The sequence of a table's Counter is brought up to `last`, never down.
void RaiseSequence(ServerConnection& connection, const std::string& schema, const std::string& table, std::int64_t last);

}  // namespace engine::postgres
