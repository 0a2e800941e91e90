#pragma once

#include <functional>

#include "platform/values/value.h"

namespace engine {

class Connection;

/// Makes the store's part of Date(), Time() and Now() known: one function that asks `now` for the present moment. It lives as
/// long as the connection.
void RegisterClock(Connection& connection, const std::function<platform::Date()>& now);

/// The machine's own clock, in whole seconds of local time.
platform::Date LocalNow();

}  // namespace engine
