#pragma once

#include <memory>
#include <string>

#include "engine/errors.h"
#include "engine/store/postgres/connection.h"
#include "engine/store/postgres/open_file.h"
#include "engine/store/postgres/server_file.h"

namespace engine::postgres {

/// A connection of a tool's own to the server that a path names.
struct ToolConnection {
  explicit ToolConnection(const std::string& path) : target(ParseTarget(path)), connection(target, Patience{.lock = 10'000}) {
    connection.NameSchema(target.schema, path);
  }

  Target target;
  ServerConnection connection;
};

/// A schema that a tool has open.
struct OpenedSchema : ToolConnection {
  explicit OpenedSchema(const std::string& path)
      : ToolConnection(path), file(connection, target.schema, path, OpenSchema(connection, target.schema, path)) {}

  /// Raises 3011 when there is none.
  platform::TableDefinition Table(std::string_view name) {
    const std::string stored = file.StoredName(name);
    if (stored.empty()) throw errors::ObjectNotFound(name);
    return file.ReadTable(stored);
  }
  void RequireWritable() const {
    if (file.ReadOnly()) throw errors::ReadOnly();
  }

  ServerFile file;
};

}  // namespace engine::postgres
