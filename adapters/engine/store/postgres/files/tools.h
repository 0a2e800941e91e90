#pragma once

#include "engine/data_file.h"

/// The work of data_file.h on schemas of a server.
namespace engine::postgres {

bool DataFileExists(const std::string& path);
void CreateDataFile(const std::string& path, std::span<const platform::TableDefinition> tables);
void RemoveDataFile(const std::string& path);
std::unique_ptr<BulkWriter> OpenBulkWriter(const std::string& path, std::string_view table, std::span<const std::string> fields);
std::unique_ptr<NewDataFile> MakeDataFile(const std::string& path, std::span<const platform::TableDefinition> tables);
std::int64_t LastNumberOf(const std::string& path, std::string_view table);
std::vector<std::string> CheckDataFile(const std::string& path, std::span<const platform::TableDefinition> expected);
std::vector<std::string> UpgradeDataFile(const std::string& path, std::span<const platform::TableDefinition> expected,
                                         const std::string& copy, const std::function<void(int, int)>& progress);
std::vector<FileLink> LinksOf(const std::string& path);
void PointLinks(const std::string& path, std::span<const FileLink> links);
std::vector<std::string> ServerToolWords(const std::string& path);
void DropTable(const std::string& path, std::string_view table);

}  // namespace engine::postgres
