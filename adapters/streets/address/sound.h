#pragma once

#include <string>
#include <string_view>

namespace streets {

/// The sound code of a name: its first letter and three digits, "S530" for "SMITH". Only Latin letters and digits count; a name that
/// begins with a digit gives that digit, letters behind it the rest. "" where there are none.
std::string Soundex(const std::string& name);

/// How many letters one must add, drop, replace or swap with their neighbour to make one text the other; more than `most` is told as
/// `most` + 1. Digits must agree: a text whose digits differ is too far away.
int EditDistance(std::string_view left, std::string_view right, int most);

}  // namespace streets
