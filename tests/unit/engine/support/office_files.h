#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/engine.h"
#include "platform/data/table_definition.h"

/// Where the tests' tables lie: in files of the store that ships (office_sqlite.cpp), or in a store in memory that shares nothing with
/// it but the interface (office_memory.cpp). A test program links one of them.
namespace office_files {

void Create(const std::string& path, const std::vector<platform::TableDefinition>& tables);
/// Rows that another program adds.
void AddRows(const std::string& path, const std::string& table, const std::vector<std::string>& fields,
             const std::vector<std::vector<platform::Value>>& rows);
/// A table that another program takes away.
void DropTable(const std::string& path, const std::string& table);
/// Keeps all tables of a file from writers as long as it lives; nothing where a writing transaction does so.
std::shared_ptr<void> Hold(const std::string& path);
std::unique_ptr<platform::DataEngine> NewEngine(const engine::EngineOptions& options);

}  // namespace office_files
