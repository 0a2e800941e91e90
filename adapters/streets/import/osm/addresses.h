#pragma once

#include <cstdint>
#include <string>

#include "streets/import/osm/extract_file.h"
#include "streets/import/osm/number_styles.h"
#include "streets/import/osm/zip_finder.h"
#include "streets/import/source_writer.h"

namespace streets {

/// What the tags of a node or way say of its address.
struct AddressTexts {
  std::string number;  ///< as written, several perhaps
  std::string street;
  std::string zip;     ///< five digits, or ""
};
AddressTexts AddressOf(const ExtractTags& tags);

/// Writes addresses as points of their streets.
class AddressWriter {
 public:
  /// `writer` nullptr: counts alone.
  AddressWriter(SourceWriter* writer, const NumberStyles& styles, const ZipFinder& zips) : writer_(writer), styles_(styles), zips_(zips) {}

  /// Says why the address can't be taken; "" when it was.
  std::string Take(const AddressTexts& address, const Position& at);
  /// One house of a street, whose ZIP is the nearest one where none is known.
  void TakeHouse(const std::string& street, const HouseNumber& number, const std::string& zip, const Position& at);

  std::int64_t Points() const noexcept { return points_; }

 private:
  SourceWriter* writer_;
  const NumberStyles& styles_;
  const ZipFinder& zips_;
  std::int64_t points_ = 0;
};

}  // namespace streets
