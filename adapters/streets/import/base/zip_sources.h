#pragma once

#include <map>
#include <string>

#include "streets/index/street_index.h"

namespace streets {

/// What the sources say of a ZIP's position: by the area's own point, and by the list of post offices. Two positions in one source are
/// rare; the first counts.
using ZipPoints = std::map<std::string, Position>;

/// A post office: its position may be rough.
struct PostOffice {
  std::string city;
  std::string stateName;
  std::string state;       ///< two letters; "" for the forces' and islands' offices
  std::string county;
  std::string countyCode;  ///< three digits
  Position at;
};
using PostOffices = std::map<std::string, PostOffice>;

/// Lines "zip,latitude,longitude" under a headline. Raises FileError with file and line.
ZipPoints ReadZipPoints(const std::string& path);
/// Lines of tab-separated fields: country, ZIP, city, state's name, state, county, county's number, two unused, latitude, longitude.
PostOffices ReadPostOffices(const std::string& path);

}  // namespace streets
