#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/data/table_definition.h"

namespace engine {

class Store;
class StoreFile;

/// A table as a statement may use it: its definition and where it lies for the store. Links are already followed.
struct ResolvedTable {
  platform::TableDefinition definition;
  std::string storeName;              ///< quoted and qualified for the store: "f2"."Customers"
  std::string rowKey;                 ///< column of the integer row key: the Counter's name, or the hidden key's (quoted)
  bool linked = false;                ///< reached through a link of the database that was asked
  std::shared_ptr<StoreFile> file{};  ///< that it lies in, kept open
  std::int64_t schemaVersion = 0;     ///< of the file, when the definition was read
  Store* elsewhere = nullptr;         ///< that it lies in, where this isn't the asked database's own
};

/// What name resolution asks of a database file. Raises 3024, 3044, 3343 ... for a file or a link's file that can't be
/// opened.
class Catalogue {
 public:
  virtual ~Catalogue() = default;
  /// The table or link of that name in the database itself, or in the file of an IN clause; nullptr if there is none.
  virtual const ResolvedTable* FindTable(std::string_view name) = 0;
  virtual const ResolvedTable* FindTable(std::string_view name, std::string_view inFile) = 0;
  /// The table of another file that an INSERT writes: that file may lie in another store.
  virtual const ResolvedTable* FindTarget(std::string_view name, std::string_view inFile) { return FindTable(name, inFile); }
};

}  // namespace engine
