#pragma once

#include <span>
#include <string>

#include "engine/store/postgres/connection.h"
#include "platform/data/table_definition.h"

namespace engine::postgres {

/// Makes sure that the schema is a file of ours that can be used; whether it can only be read. Raises 3024 when there is none, 3051
/// without the right to use it, 3343 for another's or a newer format, 3049 for a damaged one.
bool OpenSchema(ServerConnection& connection, const std::string& schema, const std::string& asked);

/// Makes a schema with these empty tables, all at once; one that is there is refused (3204). The connection knows its name.
void CreateServerFile(ServerConnection& connection, const std::string& schema, std::span<const platform::TableDefinition> tables);

}  // namespace engine::postgres
