#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "streets/file/database.h"
#include "streets/index/street_index.h"

namespace streets {

/// The ZIP whose point is nearest, by the base map: a good guess where an extract doesn't tell one.
class ZipFinder {
 public:
  /// Without a base map nothing is found.
  explicit ZipFinder(Database* baseMap);

  /// Five digits; "" where none is within 60 km.
  std::string Nearest(const Position& at) const;

 private:
  struct Zip {
    Position at;
    std::int32_t number;
  };
  struct Found {
    Position from;
    double narrow;
    double distance;
    std::int32_t zip;
  };
  void Search(std::int64_t cell, Found& found) const;

  std::unordered_map<std::int64_t, std::vector<Zip>> cells_;  ///< of half a degree
};

/// The five digits of a tag's ZIP: of "11428-1203" and "NY 11428" those of 11428; "" for what is none.
std::string ZipOfTag(const std::string& written);

}  // namespace streets
