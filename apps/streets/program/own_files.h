#pragma once

#include <string>

namespace streetsprogram {

/// The base map beside the program, as installed and as built; it need not be there.
std::string OwnBaseMap();

}  // namespace streetsprogram
