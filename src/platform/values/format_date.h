#pragma once

#include <string>
#include <string_view>

#include "platform/values/value.h"

namespace platform {

/// Whether a format of a user's own is one of dates: it holds a d, m or y and no sign of a number or text format.
bool IsDateFormat(std::string_view format);

/// The date as the format says: d and dd, ddd and dddd (day of the week), m and mm, mmm and mmmm (name), yy and yyyy. What stands
/// in double quotes or behind a \ stands as it is, and so does all else.
std::string FormatDateBy(Date date, std::string_view format);

}  // namespace platform
