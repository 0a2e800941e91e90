#include "streets/import/census/inputs.h"

#include <algorithm>
#include <filesystem>

#include "streets/file/file_error.h"
#include "streets/import/census/archive.h"
#include "streets/import/census/source_text.h"

namespace streets {
namespace {

namespace fs = std::filesystem;

std::string EndingOf(const fs::path& path) { return SmallLetters(path.extension().string()); }

bool IsInput(const fs::path& path) { return EndingOf(path) == ".shp" || EndingOf(path) == ".zip" || IsExtract(path.string()); }

}  // namespace

std::vector<std::string> FindInputs(const std::vector<std::string>& words) {
  std::vector<std::string> inputs;
  for (const std::string& word : words) {
    std::error_code problem;
    if (fs::is_regular_file(word, problem)) {
      if (!IsInput(word)) throw FileError(word + " is no shapefile (.shp), ZIP archive (.zip) or extract (.pbf).");
      inputs.push_back(word);
      continue;
    }
    if (!fs::is_directory(word, problem)) throw FileError(word + " is not there.");
    std::vector<std::string> found;
    for (const auto& entry : fs::directory_iterator(word))
      if (entry.is_regular_file(problem) && IsInput(entry.path())) found.push_back(entry.path().string());
    if (found.empty()) throw FileError(word + " holds no shapefiles (.shp), ZIP archives (.zip) or extracts (.pbf).");
    std::ranges::sort(found);
    inputs.insert(inputs.end(), found.begin(), found.end());
  }
  return inputs;
}

bool IsExtract(const std::string& input) { return EndingOf(input) == ".pbf"; }

void EachShapeFile(const std::string& input, const std::function<void(const std::string&, const std::string&)>& use) {
  if (EndingOf(input) != ".zip") return use(input, input);
  const Archive archive(input);
  for (const std::string& stem : archive.ShapeFiles()) {
    const UnpackedShapeFile unpacked(archive, stem);
    use(unpacked.Path(), input + "/" + SourceText(stem) + ".shp");
  }
}

}  // namespace streets
