#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "streets/file/database.h"
#include "streets/file/file_error.h"
#include "streets/file/schema.h"
#include "streets/import/osm/extract_import.h"
#include "support/made_blocks.h"
#include "support/temporary_folder.h"

// Any bytes as an extract behind "file:", else as what its one block holds: the reader's own error alone comes out, and what was taken
// hangs together.

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

std::string FileOf(std::string_view data) {
  constexpr std::string_view kWhole = "file:";
  if (data.starts_with(kWhole)) return std::string(data.substr(kWhole.size()));
  return made_blocks::Head() + made_blocks::Block("OSMData", data);
}

struct Place {
  Place() : file(":memory:", streets::Database::Use::Make, 0) { streets::CreateSchema(file); }
  TemporaryFolder folder;
  streets::Database file;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Place place;
  const std::string path = place.folder.Write("town.osm.pbf", FileOf({reinterpret_cast<const char*>(data), size}));
  try {
    const auto counts = streets::ImportExtract(path, &place.file, nullptr, {}, 3);
    Require(counts.edges <= 64 * counts.records);
  } catch (const streets::FileError& error) {
    Require(std::string_view(error.what()).starts_with(path));
  }
  Require(place.file.Ask("SELECT count(*) FROM Edges WHERE id NOT IN (SELECT edge FROM SourceEdges)") == 0);
  Require(place.file.Ask("SELECT count(*) FROM Points WHERE street NOT IN (SELECT id FROM Streets)") == 0);
  return 0;
}
