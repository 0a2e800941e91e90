#pragma once

#include <functional>

#include "platform/values/value.h"

namespace engine {

/// Tells the present moment: for Date(), Time() and Now() in statements, and for the year of texts with month and day alone.
using Clock = std::function<platform::Date()>;

/// The machine's own clock, in whole seconds of local time.
platform::Date LocalNow();

/// The year of a date that is written without one.
int YearOf(const Clock& clock);

}  // namespace engine
