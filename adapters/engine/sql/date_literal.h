#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/values/value.h"

namespace engine::sql {

/// The date between the marks of #..#, read as any text is (platform::ParseDate), but always with its year: a statement means
/// the same next year. Nothing when it is no date.
std::optional<platform::Date> ReadDateLiteral(std::string_view text);

/// The date as month/day/year, with the time when it has one; ReadDateLiteral reads it back.
std::string PrintDateLiteral(platform::Date date);

}  // namespace engine::sql
