#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "streets/file/file_error.h"
#include "streets/file/street_file.h"
#include "streets/file/street_files.h"
#include "streets/import/osm/extract_import.h"
#include "streets/index/file_index.h"
#include "support/temporary_folder.h"
#include "unit/streets/import/made_extract.h"

namespace streets {

/// Imports made extracts, and asks what came of them.
class ExtractTest : public testing::Test {
 protected:
  ExtractCounts Import(MadeExtract& extract, const std::string& name = "town.osm.pbf", Database* baseMap = nullptr) {
    extract.Write(folder_ / name);
    return ImportFile(folder_ / name, baseMap);
  }
  ExtractCounts ImportFile(const std::string& path, Database* baseMap = nullptr) {
    told_.clear();
    const auto file = OpenOrMakeStreetFile(folder_ / "s.zds");
    return ImportExtract(path, file.get(), baseMap, Listener());
  }
  ExtractListener Listener() {
    ExtractListener listener;
    listener.onRefused = [this](const std::string&, const std::string& record, const std::string& why) { told_.push_back(record + ": " + why); };
    return listener;
  }
  std::string Failure(const std::string& path) {
    try {
      ImportFile(path);
    } catch (const FileError& problem) {
      return problem.what();
    }
    return "";
  }

  std::int64_t Ask(const std::string& question) const { return OpenStreetFile(folder_ / "s.zds")->Ask(question); }
  // "12 11428 -73.700000 40.700000" for each house of the streets of that key.
  std::vector<std::string> Houses(const std::string& key) const {
    StreetFiles files({folder_ / "s.zds"});
    FileIndex index(files);
    std::vector<std::string> houses;
    for (const StreetName& name : index.Named(key, {}))
      for (const AddressPoint& point : index.Points(name.id, {}))
        houses.push_back(point.number.prefix + std::to_string(point.number.number) + point.number.suffix + " " + point.zip + " " +
                         std::to_string(point.at.longitude) + " " + std::to_string(point.at.latitude));
    std::ranges::sort(houses);
    return houses;
  }

  TemporaryFolder folder_;
  std::vector<std::string> told_;
};

}  // namespace streets
