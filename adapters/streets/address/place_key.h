#pragma once

#include <string>
#include <string_view>

namespace streets {

/// The name of a town as towns are found by: capitals without signs and accents, "ST" for "Saint", "FORT" for "Ft", "MOUNT" for
/// "Mt", a direction in front in full.
std::string PlaceKey(std::string_view written);

}  // namespace streets
