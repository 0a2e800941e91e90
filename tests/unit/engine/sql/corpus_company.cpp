#include "unit/engine/sql/corpus_company.h"

#include <stdlib.h>

#include "engine/data_file.h"
#include "unit/engine/sql/corpus.h"

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

CorpusCompany::CorpusCompany(const engine::EngineOptions& options) {
  std::string name = (std::filesystem::temp_directory_path() / "corpusXXXXXX").string();
  folder_ = ::mkdtemp(name.data());
  Fill();
  engine_ = engine::MakeEngine(options);
  workspace_ = engine_->CreateWorkspace("corpus", "admin", "", 2);
  const platform::DatabaseRef database = Open();
  for (const corpus::Link& link : corpus::ReadFixture().links) {
    platform::TableDef definition = database->CreateTableDef(link.name);
    definition.Connect = ";DATABASE=" + paths_[link.file];
    definition.SourceTableName = link.table;
    database->AppendTableDef(definition);
  }
  database->Close();
}

CorpusCompany::~CorpusCompany() {
  workspace_->Close();
  engine_.reset();
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

void CorpusCompany::Fill() {
  const corpus::Fixture fixture = corpus::ReadFixture();
  first_ = fixture.files.front().name;
  paths_["none.zdb"] = (folder_ / "none.zdb").string();
  for (const corpus::DataFile& file : fixture.files) {
    paths_[file.name] = (folder_ / file.name).string();
    std::filesystem::copy_file(Written() / file.name, folder_ / file.name);
  }
}

platform::DatabaseRef CorpusCompany::Open(const std::string& file) {
  return workspace_->OpenDatabase(paths_[file.empty() ? first_ : file]);
}

std::vector<std::string> CorpusCompany::RowsOf(platform::Recordset& rows) {
  std::vector<std::string> shown;
  const int fields = static_cast<int>(rows.Fields().size());
  if (rows.RecordCount() > 0) rows.MoveFirst();
  for (; !rows.Eof(); rows.MoveNext()) {
    std::vector<platform::Value> cells;
    for (int i = 0; i < fields; ++i) cells.push_back(rows.Field(i));
    shown.push_back(corpus::ShowRow(cells));
  }
  return shown;
}

std::vector<std::string> CorpusCompany::Query(const std::string& sql) {
  const platform::DatabaseRef database = Open();
  const platform::RecordsetRef rows = database->OpenRecordset(sql, platform::RecordsetType::Dynaset);
  std::vector<std::string> shown = RowsOf(*rows);
  database->Close();
  return shown;
}
