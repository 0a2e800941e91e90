#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "streets/file/database.h"

namespace streets {

/// What became of a county's records.
struct CountyCounts {
  std::int64_t records = 0;
  std::int64_t refused = 0;  ///< records not taken
  std::int64_t edges = 0;    ///< pieces of street; one with several names has a record for each
  std::int64_t ranges = 0;   ///< sides with numbers, once for each name
};

/// Who is told of an import while it goes on.
struct ImportListener {
  /// A record, or one side of it, that was not taken, and why. Records count from 1.
  std::function<void(const std::string& file, std::int64_t record, const std::string& why)> onRefused;
  /// After every few records.
  std::function<void(const std::string& file, std::int64_t done, std::int64_t all)> onProgress;
};

/// Imports address ranges of a county as the Census ships them (ADDRFEAT): `path` is the .shp with its .shx and .dbf beside it, `shown` its
/// name in messages. The county, told by the file's name ("tl_2021_30059_addrfeat"), replaces what the file held of it; a file of
/// another name replaces what came from a file of that name. All or nothing. `into` nullptr: reads and reports alone. Raises FileError.
CountyCounts ImportCounty(const std::string& path, const std::string& shown, Database* into, const ImportListener& listener);

}  // namespace streets
