#pragma once

#include <string>
#include <vector>

#include "streets/file/street_files.h"
#include "streets/geocoder/geocoder.h"
#include "streets/ground/file_ground.h"
#include "streets/index/file_index.h"

namespace streets {

/// The files of the map, opened, with all that reads them.
class OpenedMap {
 public:
  explicit OpenedMap(const std::vector<std::string>& files) : files_(files), index_(files_), ground_(files_), geocoder_(index_) {}

  Geocoder& Addresses() { return geocoder_; }
  FileGround& Ground() { return ground_; }

 private:
  StreetFiles files_;
  FileIndex index_;
  FileGround ground_;
  Geocoder geocoder_;
};

}  // namespace streets
