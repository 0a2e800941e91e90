#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/value.h"

namespace engine::sql {

/// The date between the marks of #..#, whatever the machine's locale: month/day/year (day/month where the month is
/// impossible), year-month-day with four digits first (exactly as written), month names, a time of day behind it or
/// alone. Two-digit years up to 29 are 20xx. Nothing when it is no date.
std::optional<platform::Date> ReadDateLiteral(std::string_view text);

/// The date as month/day/year, with the time when it has one; ReadDateLiteral reads it back.
std::string PrintDateLiteral(platform::Date date);

}  // namespace engine::sql
