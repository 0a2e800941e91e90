#include "streets/import/census/inputs.h"

#include <algorithm>
#include <filesystem>

#include "streets/file/file_error.h"
#include "streets/import/census/archive.h"

namespace streets {
namespace {

namespace fs = std::filesystem;

bool IsInput(const fs::path& path) {
  const std::string ending = SmallLetters(path.extension().string());
  return ending == ".shp" || ending == ".zip";
}

}  // namespace

std::vector<std::string> FindInputs(const std::vector<std::string>& words) {
  std::vector<std::string> inputs;
  for (const std::string& word : words) {
    std::error_code problem;
    if (fs::is_regular_file(word, problem)) {
      if (!IsInput(word)) throw FileError(word + " is neither a shapefile (.shp) nor a ZIP archive (.zip).");
      inputs.push_back(word);
      continue;
    }
    if (!fs::is_directory(word, problem)) throw FileError(word + " is not there.");
    std::vector<std::string> found;
    for (const auto& entry : fs::directory_iterator(word))
      if (entry.is_regular_file(problem) && IsInput(entry.path())) found.push_back(entry.path().string());
    if (found.empty()) throw FileError(word + " holds neither shapefiles (.shp) nor ZIP archives (.zip).");
    std::ranges::sort(found);
    inputs.insert(inputs.end(), found.begin(), found.end());
  }
  return inputs;
}

void EachShapeFile(const std::string& input, const std::function<void(const std::string&, const std::string&)>& use) {
  if (SmallLetters(fs::path(input).extension().string()) != ".zip") return use(input, input);
  const Archive archive(input);
  for (const std::string& stem : archive.ShapeFiles()) {
    const UnpackedShapeFile unpacked(archive, stem);
    use(unpacked.Path(), input + "/" + stem + ".shp");
  }
}

}  // namespace streets
