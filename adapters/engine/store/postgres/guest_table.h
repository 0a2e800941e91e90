#pragma once

#include <memory>
#include <string>

#include "engine/store/postgres/connection.h"
#include "engine/store/store.h"

namespace engine::postgres {

/// A temporary table of the session that holds rows of another store. `schema`: whose words and functions it uses; `number`: no other
/// guest of the connection has had it. Inside a unit.
std::unique_ptr<GuestTable> ReceiveGuest(ServerConnection& connection, const std::string& schema, const platform::TableDefinition& table,
                                         int number);

}  // namespace engine::postgres
