#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/values/value.h"

/// The conversions of the language that the screens' logic is written in, under their own names, with their failures:
/// 13 (Type mismatch) for a text that is no number, 94 for Null, 6 (Overflow) out of range. Nothing here follows the C
/// locale: amounts and dates are en-US.
namespace platform {

std::int16_t CInt(const Value& value);  ///< rounds half to even
std::int32_t CLng(const Value& value);  ///< rounds half to even
double CDbl(const Value& value);
Currency CCur(const Value& value);  ///< rounds half to even at the 4th decimal
bool CBool(const Value& value);     ///< texts "True", "False" and numbers
/// Texts as IsDate accepts them, numbers are serials. `thisYear` is the year of a text that names month and day alone, the
/// program's own; 0: there is none, and such a text is no date.
Date CDate(const Value& value, int thisYear = 0);
std::string CStr(const Value& value);  ///< no leading blank; Boolean "True"/"False"; dates as short date and time; up to 15 digits
std::string Str(const Value& value);   ///< as CStr for numbers, with one leading blank for numbers not below 0

/// The number at the start of a text, 0 if there is none; blanks are skipped anywhere; "&H"/"&O" prefixes.
double Val(const Value& value);
/// The start of a text that Val reads, without blanks: "12.5" of " 12.5 x"; "" if there is none.
std::string ValText(std::string_view text);
bool IsNumeric(const Value& value);
bool IsDate(const Value& value, int thisYear = 0);

/// `a & b`: both as text, Null as "" unless both are Null. For plain texts use std::string's +.
Value Concat(const Value& left, const Value& right);

std::string Trim(std::string_view text);  ///< takes off blanks (code 32) only
std::string LTrim(std::string_view text);
std::string RTrim(std::string_view text);
std::string UCase(std::string_view text);
std::string LCase(std::string_view text);
std::string Left(std::string_view text, int characters);  ///< negative count: error 5
std::string Right(std::string_view text, int characters);
std::string Mid(std::string_view text, int start, std::optional<int> characters = {});  ///< 1-based; below 1: error 5
int InStr(int start, std::string_view text, std::string_view wanted);                   ///< 1-based place, 0 if absent; case counts
int Len(std::string_view text);                                                         ///< characters

/// A fixed-length text's content after an assignment: cut or padded with blanks to `characters`.
std::string FixedText(std::string_view text, int characters);

/// Rounds to a whole number, halves to the even neighbour.
double RoundHalfEven(double number);

/// The number that the whole text is, as IsNumeric and CDbl see it; nothing when it is none or too large for a Double.
std::optional<double> ParseNumber(std::string_view text);

}  // namespace platform
