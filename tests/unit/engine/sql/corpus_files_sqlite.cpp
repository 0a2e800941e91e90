#include <stdlib.h>

#include "engine/data_file.h"
#include "unit/engine/sql/corpus.h"
#include "unit/engine/sql/corpus_files.h"

namespace {

// A folder of its own that goes at the end.
class Folder {
 public:
  Folder() {
    std::string name = (std::filesystem::temp_directory_path() / "corpusXXXXXX").string();
    path_ = ::mkdtemp(name.data());
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

void Write(const corpus::DataFile& file, const std::string& path) {
  std::vector<platform::TableDefinition> definitions;
  for (const corpus::Table& table : file.tables) definitions.push_back(table.definition);
  engine::CreateDataFile(path, definitions, true);
  for (const corpus::Table& table : file.tables) {
    std::vector<std::string> fields;
    for (const platform::FieldDefinition& field : table.definition.fields) fields.push_back(field.name);
    const auto writer = engine::OpenBulkWriter(path, table.definition.name, fields);
    for (const auto& row : table.rows) writer->Add(row);
    writer->Finish();
  }
}

// The files are written once; every company is a copy.
const std::filesystem::path& Written() {
  static const Folder folder;
  static const bool written = [] {
    for (const corpus::DataFile& file : corpus::ReadFixture().files) Write(file, (folder.Path() / file.name).string());
    return true;
  }();
  static_cast<void>(written);
  return folder.Path();
}

}  // namespace

namespace corpus {

const Place& Files() {
  static const Place place{
      .fill =
          [](const std::filesystem::path& folder) {
            for (const DataFile& file : ReadFixture().files) std::filesystem::copy_file(Written() / file.name, folder / file.name);
          },
      .newEngine = [](const std::filesystem::path&, const engine::EngineOptions& options) { return engine::MakeEngine(options); },
      .remove = [](const std::filesystem::path&) {}};
  return place;
}

}  // namespace corpus
