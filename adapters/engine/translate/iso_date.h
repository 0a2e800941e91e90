#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/value.h"

namespace engine {

/// A date as statements hold it: "1999-01-31", or "1999-01-31 13:20:34" where it has a time. Such texts stand in the order
/// of their dates.
std::string IsoText(platform::Date date);
std::optional<platform::Date> DateOfIso(std::string_view text);

}  // namespace engine
