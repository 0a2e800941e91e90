#pragma once

#include <string>
#include <string_view>

#include "platform/values/value.h"

namespace platform {

/// "Long Date": "Sunday, January 31, 1999".
inline constexpr std::string_view kLongDateFormat = "dddd, mmmm d, yyyy";

/// Whether a format of a user's own is one of dates: it holds a letter that stands for a part of one and no sign of a number or text
/// format.
bool IsDateFormat(std::string_view format);

/// The date as the format says: d and dd, ddd and dddd (day of the week), ddddd and dddddd (short and long date), m and mm, mmm and mmmm
/// (name), yy and yyyy, q (quarter), w (day of the week, 1 for Sunday), ww (week), y (day of the year); h and hh, n and nn (so are m and mm
/// behind hours), s and ss, AM/PM, am/pm, A/P, a/p. What stands in double quotes or behind a \ stands as it is, and so does all else.
std::string FormatDateBy(Date date, std::string_view format);

}  // namespace platform
