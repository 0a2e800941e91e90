#pragma once

#include "engine/values/clock.h"

namespace engine {

class Connection;

/// Makes the store's part of Date(), Time() and Now() known: one function that asks the clock for the present moment. It lives as
/// long as the connection.
void RegisterClock(Connection& connection, const Clock& clock);

}  // namespace engine
