#pragma once

#include <string>
#include <string_view>

#include "platform/value.h"

namespace platform {

/// `Format(value, format)`: number formats ("0", "#", ",", ".", "%", literals, sections), the named formats "Currency",
/// "Fixed", "Short Date", text formats ("@", "<", ">"). Null and "" give "". Display only; nothing is stored by it.
std::string Format(const Value& value, std::string_view format);

}  // namespace platform
