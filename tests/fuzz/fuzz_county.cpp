#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "streets/file/database.h"
#include "streets/file/file_error.h"
#include "streets/file/schema.h"
#include "streets/import/census/county_import.h"
#include "support/temporary_folder.h"

// Any bytes as a county's lines, their index and their table, parted by "\n~\n": the reader's own error alone comes out, and what was
// taken hangs together.

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

std::string_view TakePart(std::string_view& rest) {
  const std::size_t parting = rest.find("\n~\n");
  const std::string_view part = rest.substr(0, parting);
  rest = parting == std::string_view::npos ? std::string_view() : rest.substr(parting + 3);
  return part;
}

struct Place {
  Place() : file(":memory:", streets::Database::Use::Make, 0) { streets::CreateSchema(file); }
  TemporaryFolder folder;
  streets::Database file;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Place place;
  std::string_view rest(reinterpret_cast<const char*>(data), size);
  for (const char* ending : {"shp", "shx", "dbf"}) place.folder.Write(std::string("county.") + ending, std::string(TakePart(rest)));
  try {
    const auto counts = streets::ImportCounty(place.folder / "county.shp", "county.shp", &place.file, {});
    Require(counts.refused <= counts.records && counts.edges <= counts.records && counts.ranges <= 2 * counts.records);
  } catch (const streets::FileError& error) {
    Require(std::string_view(error.what()).starts_with("county.shp"));
  }
  Require(place.file.Ask("SELECT count(*) FROM Edges WHERE id NOT IN (SELECT edge FROM SourceEdges)") == 0);
  Require(place.file.Ask("SELECT count(*) FROM Ranges WHERE edge NOT IN (SELECT id FROM Edges)") == 0);
  return 0;
}
