#pragma once

#include <string>
#include <string_view>

#include "platform/values/value.h"

namespace platform {

/// `Format(value, format)`: number formats ("0", "#", ",", ".", "%", literals, sections), text formats ("@", "&", "<", ">", "!"), date formats of dates
/// ("m/d/yyyy", "mmmm yyyy"), named ones ("Currency", "Short Date", "Yes/No" ...). Null and "" give "", or what a text format's second section says. `thisYear` is that of
/// a text with month and day alone under a date format (0: it stays as it is). Display only; nothing is stored by it.
std::string Format(const Value& value, std::string_view format, int thisYear = 0);

}  // namespace platform
