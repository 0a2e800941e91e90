#include "engine/data_file.h"
#include "unit/engine/support/office_files.h"

namespace office_files {

void Create(const std::string& path, const std::vector<platform::TableDefinition>& tables) { engine::CreateDataFile(path, tables); }

void AddRows(const std::string& path, const std::string& table, const std::vector<std::string>& fields,
             const std::vector<std::vector<platform::Value>>& rows) {
  auto writer = engine::OpenBulkWriter(path, table, fields);
  for (const auto& row : rows) writer->Add(row);
  writer->Finish();
}

void DropTable(const std::string& path, const std::string& table) { engine::DropTable(path, table); }

std::shared_ptr<void> Hold(const std::string&) { return nullptr; }

std::unique_ptr<platform::DataEngine> NewEngine(const engine::EngineOptions& options) { return engine::MakeEngine(options); }

}  // namespace office_files
