#pragma once

#include <functional>
#include <string>

#include "engine/store/postgres/link/link.h"

namespace engine::postgres {

/// A new connection, ready for trips, which the server knows by `name`; `serveOthers` is called meanwhile, again and again. Raises what the failure comes to.
pg_conn* Connect(const Target& target, const Patience& patience, const std::string& name, const std::function<void()>& serveOthers, const std::string& asked);

/// Waits a short while until the connection's socket can be read, or written too.
void WaitForSocket(pg_conn* connection, bool toRead, bool toWrite);

/// Waits a short while for nothing.
void Pause();

}  // namespace engine::postgres
