#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/values/value.h"

namespace engine {

/// A date as statements and files hold it: "1999-01-31", or "1999-01-31 13:20:34" where it has a time, in whole seconds. Years
/// have four digits, so that the texts stand in the order of their dates.
std::string IsoText(platform::Date date);

/// The date of such a text; nothing when it isn't one.
std::optional<platform::Date> DateOfIso(std::string_view text);

}  // namespace engine
