#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "engine/engine.h"
#include "platform/data/data.h"
#include "unit/engine/sql/corpus_files.h"

/// The corpus' small company, which goes with it.
class CorpusCompany {
 public:
  explicit CorpusCompany(const engine::EngineOptions& options = {}, const corpus::Place& place = corpus::OwnPlace());
  ~CorpusCompany();
  CorpusCompany(const CorpusCompany&) = delete;
  CorpusCompany& operator=(const CorpusCompany&) = delete;

  /// The first file, or the one of that name.
  platform::DatabaseRef Open(const std::string& file = "");
  /// Where each file lies, and a path "none.zdb" where there is none.
  const std::map<std::string, std::string>& Paths() const { return paths_; }

  /// All rows from the first on, each as the corpus shows it.
  static std::vector<std::string> RowsOf(platform::Recordset& rows);
  /// The rows of one statement on the first file.
  std::vector<std::string> Query(const std::string& sql);

 private:
  void Fill();

  const corpus::Place& place_;
  std::filesystem::path folder_;
  std::string first_;
  std::map<std::string, std::string> paths_;
  std::unique_ptr<platform::DataEngine> engine_;
  platform::WorkspaceRef workspace_;
};
