#pragma once

#include <string>
#include <string_view>

namespace streets {

/// "N" for "N", "NO" and "NORTH", "SW" for "SOUTHWEST"; "" for what is no direction.
std::string Direction(std::string_view word);

/// "NW" for "N" and "W", which people also write apart; "" for what makes none.
std::string Direction(std::string_view first, std::string_view second);

/// "NORTH" for "N"; a word that is no direction stays as it is.
std::string DirectionInFull(std::string_view word);

}  // namespace streets
