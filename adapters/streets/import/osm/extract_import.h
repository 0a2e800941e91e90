#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "streets/file/database.h"

namespace streets {

/// What became of an extract's records: named streets, and what bears a house number.
struct ExtractCounts {
  std::int64_t records = 0;
  std::int64_t refused = 0;  ///< records not taken, or not whole
  std::int64_t edges = 0;    ///< pieces of street
  std::int64_t points = 0;   ///< houses
};

/// Who is told of an import while it goes on.
struct ExtractListener {
  /// A record that was not taken, or not whole, and why: "way 4088233".
  std::function<void(const std::string& file, const std::string& record, const std::string& why)> onRefused;
  /// After every few records; in bytes, each as often as it is read.
  std::function<void(const std::string& file, std::int64_t done, std::int64_t all)> onProgress;
};

/// Imports streets and addresses of an OpenStreetMap extract (PBF). What the file held from an extract of the same name, without path and
/// ending, is replaced. All or nothing. Where neither a street nor an address tells its ZIP, it is the nearest one of `baseMap`, which may
/// be nullptr. `into` nullptr: reads and reports alone. The memory that is needed doesn't grow with the extract. Raises FileError.
/// `nodesAtATime`: of so many nodes the places are kept; more are read in several rounds.
ExtractCounts ImportExtract(const std::string& path, Database* into, Database* baseMap, const ExtractListener& listener,
                            std::size_t nodesAtATime = 2'000'000);

}  // namespace streets
