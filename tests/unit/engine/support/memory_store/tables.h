#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "engine/functions/store_functions.h"
#include "engine/store/store.h"
#include "platform/values/text.h"

/// A store that keeps its files in memory: what a second store has to do, in few lines and without any speed. Its statements differ
/// from those of the first one wherever they may, so that nothing of that one's can hide above the store.
namespace memory_store {

using engine::StoredValue;

inline constexpr std::string_view kHiddenKey = "rowkey_";

/// A table with its rows by their row keys. A Counter's cell is the row key.
struct Table {
  platform::TableDefinition definition;
  std::map<std::int64_t, std::vector<StoredValue>> rows;
  std::int64_t lastNumber = 0;

  int Counter() const {
    for (std::size_t i = 0; i < definition.fields.size(); ++i)
      if (definition.fields[i].type == platform::FieldType::Counter) return static_cast<int>(i);
    return -1;
  }
  /// Place of a column: -1 for the hidden row key, -2 for none.
  int Column(std::string_view name) const {
    for (std::size_t i = 0; i < definition.fields.size(); ++i)
      if (platform::EqualsNoCase(definition.fields[i].name, name)) return static_cast<int>(i);
    return Counter() < 0 && name == kHiddenKey ? -1 : -2;
  }
};

struct File {
  std::string path;
  std::string qualifier;
  std::vector<std::unique_ptr<Table>> tables;
  std::vector<engine::StoredLink> links;
  std::map<const void*, std::uint64_t> writes;  ///< by the store that wrote

  Table* Find(std::string_view name) const {
    for (const auto& table : tables)
      if (platform::EqualsNoCase(table->definition.name, name)) return table.get();
    return nullptr;
  }
};

/// The files that all stores of a test share.
class Disk {
 public:
  File& Create(const std::string& path, const std::vector<platform::TableDefinition>& tables);
  /// nullptr for none.
  std::shared_ptr<File> Find(const std::string& path) const;
  std::shared_ptr<File> WithQualifier(const std::string& qualifier) const;

 private:
  std::vector<std::shared_ptr<File>> files_;
};

/// Its way of writing statements.
const engine::Dialect& OwnDialect();

}  // namespace memory_store
