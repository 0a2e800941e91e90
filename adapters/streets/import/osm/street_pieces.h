#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "streets/import/osm/extract_file.h"
#include "streets/import/osm/node_places.h"
#include "streets/import/osm/zip_finder.h"
#include "streets/import/source_writer.h"

namespace streets {

/// Writes ways as pieces of street with their names.
class StreetWriter {
 public:
  /// `writer` nullptr: counts alone.
  StreetWriter(SourceWriter* writer, const ZipFinder& zips) : writer_(writer), zips_(zips) {}

  /// Says why the way can't be taken, or not whole; "" when it was.
  std::string Take(const ExtractWay& way, const NodePlaces& places);

  std::int64_t Pieces() const noexcept { return pieces_; }

 private:
  void Write(std::int64_t piece, platform::MapLine kind, const ExtractTags& tags, const Line& line);
  std::vector<std::string> ZipsOf(const ExtractTags& tags, const Line& line) const;

  SourceWriter* writer_;
  const ZipFinder& zips_;
  std::int64_t pieces_ = 0;
};

}  // namespace streets
