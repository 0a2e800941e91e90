#pragma once

#include <memory>
#include <string>

#include "streets/file/database.h"

namespace streets {

/// Opens a streets file to be read, also on a disk that can't be written. Raises FileError, in words for the user, for a file that
/// is missing, empty, of another kind or of a newer format, cut short, damaged or locked.
std::unique_ptr<Database> OpenStreetFile(const std::string& path);

/// Opens a streets file to be filled; one that is not there is made. Raises FileError as above.
std::unique_ptr<Database> OpenOrMakeStreetFile(const std::string& path);

}  // namespace streets
