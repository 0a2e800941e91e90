#pragma once

#include <string>
#include <string_view>

namespace streets {

/// "AVE" for "AV", "AVEN", "AVENUE"; "" for what is no type of street.
std::string StreetType(std::string_view word);

/// "AVENUE" for "AVE"; a word that is no type stays as it is.
std::string StreetTypeInFull(std::string_view word);

/// As StreetType, for a word of four letters or more in which one letter is wrong: "AVE" for "AVNUE".
std::string MisspeltStreetType(std::string_view word);

/// Types that stand before a number or letter: "AVENUE C", "ROAD 12", "CALLE 5".
bool StandsInFront(std::string_view type);

}  // namespace streets
