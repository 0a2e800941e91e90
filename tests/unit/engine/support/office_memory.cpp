#include "engine/objects/engine.h"
#include "unit/engine/support/memory_store/memory_store.h"
#include "unit/engine/support/office_files.h"

namespace office_files {
namespace {

// Each test has paths of its own.
const std::shared_ptr<memory_store::Disk>& AllFiles() {
  static const auto disk = std::make_shared<memory_store::Disk>();
  return disk;
}

}  // namespace

void Create(const std::string& path, const std::vector<platform::TableDefinition>& tables) { AllFiles()->Create(path, tables); }

void AddRows(const std::string& path, const std::string& table, const std::vector<std::string>& fields,
             const std::vector<std::vector<platform::Value>>& rows) {
  const auto another = NewEngine({});
  const auto records = another->OpenControlDatabase(path)->OpenRecordset(table, platform::RecordsetType::Table);
  for (const auto& row : rows) {
    records->AddNew();
    for (std::size_t i = 0; i < fields.size(); ++i) records->SetField(fields[i], row[i]);
    records->Update();
  }
}

std::shared_ptr<void> Hold(const std::string&) { return nullptr; }

std::unique_ptr<platform::DataEngine> NewEngine(const engine::EngineOptions& options) {
  return engine::MakeEngineOver(engine::OneStore(std::make_unique<memory_store::MemoryStore>(AllFiles())), options);
}

}  // namespace office_files
