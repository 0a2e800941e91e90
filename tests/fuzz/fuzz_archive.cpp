#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "streets/file/file_error.h"
#include "streets/import/census/county_import.h"
#include "streets/import/census/inputs.h"
#include "support/temporary_folder.h"

// Any bytes as an archive of counties: the reader's own error alone comes out, with the archive's name.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const TemporaryFolder folder;
  const std::string path = folder.Write("county.zip", std::string(reinterpret_cast<const char*>(data), size));
  try {
    streets::EachShapeFile(path, [](const std::string& shapes, const std::string& shown) {
      streets::ImportCounty(shapes, shown, nullptr, {});
    });
  } catch (const streets::FileError& error) {
    if (std::string_view(error.what()).find(path) == std::string_view::npos) std::abort();
  }
  return 0;
}
