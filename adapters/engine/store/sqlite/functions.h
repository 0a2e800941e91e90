#pragma once

namespace engine {

class Connection;

/// Gives a connection the text order (collation GENERAL), the Like test and the helpers that translated expressions call.
void RegisterFunctions(Connection& connection);

}  // namespace engine
