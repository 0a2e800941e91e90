#include "unit/engine/sql/corpus_company.h"

#include <stdlib.h>

#include "unit/engine/sql/corpus.h"

CorpusCompany::CorpusCompany(const engine::EngineOptions& options, const corpus::Place& place) : place_(place) {
  std::string name = (std::filesystem::temp_directory_path() / "corpusXXXXXX").string();
  folder_ = ::mkdtemp(name.data());
  Fill();
  engine_ = place_.newEngine(folder_, options);
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
  place_.remove(folder_);
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

void CorpusCompany::Fill() {
  const corpus::Fixture fixture = corpus::ReadFixture();
  first_ = fixture.files.front().name;
  paths_["none.zdb"] = (folder_ / "none.zdb").string();
  for (const corpus::DataFile& file : fixture.files) paths_[file.name] = (folder_ / file.name).string();
  place_.fill(folder_);
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
