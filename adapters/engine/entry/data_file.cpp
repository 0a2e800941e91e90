#include "engine/data_file.h"

#include "engine/store/postgres/files/tools.h"
#include "engine/store/sqlite/files/tools.h"
#include "platform/services/data_path.h"

// Whose path names a server, and whose a file.
namespace engine {

using platform::IsServerPath;
using platform::TableDefinition;

bool DataFileExists(const std::string& path) { return IsServerPath(path) ? postgres::DataFileExists(path) : files::DataFileExists(path); }

void CreateDataFile(const std::string& path, std::span<const TableDefinition> tables, bool workFile) {
  IsServerPath(path) ? postgres::CreateDataFile(path, tables) : files::CreateDataFile(path, tables, workFile);
}

void RemoveDataFile(const std::string& path) { IsServerPath(path) ? postgres::RemoveDataFile(path) : files::RemoveDataFile(path); }

std::unique_ptr<BulkWriter> OpenBulkWriter(const std::string& path, std::string_view table, std::span<const std::string> fields) {
  return IsServerPath(path) ? postgres::OpenBulkWriter(path, table, fields) : files::OpenBulkWriter(path, table, fields);
}

std::unique_ptr<NewDataFile> MakeDataFile(const std::string& path, std::span<const TableDefinition> tables) {
  return IsServerPath(path) ? postgres::MakeDataFile(path, tables) : files::MakeDataFile(path, tables);
}

std::int64_t LastNumberOf(const std::string& path, std::string_view table) {
  return IsServerPath(path) ? postgres::LastNumberOf(path, table) : files::LastNumberOf(path, table);
}

std::vector<std::string> CheckDataFile(const std::string& path, std::span<const TableDefinition> expected) {
  return IsServerPath(path) ? postgres::CheckDataFile(path, expected) : files::CheckDataFile(path, expected);
}

std::vector<std::string> UpgradeDataFile(const std::string& path, std::span<const TableDefinition> expected, const std::string& copy,
                                         const std::function<void(int, int)>& progress) {
  return IsServerPath(path) ? postgres::UpgradeDataFile(path, expected, copy, progress)
                            : files::UpgradeDataFile(path, expected, copy, progress);
}

std::vector<FileLink> LinksOf(const std::string& path) { return IsServerPath(path) ? postgres::LinksOf(path) : files::LinksOf(path); }

void PointLinks(const std::string& path, std::span<const FileLink> links) {
  IsServerPath(path) ? postgres::PointLinks(path, links) : files::PointLinks(path, links);
}

std::vector<std::string> ServerToolWords(const std::string& path) { return postgres::ServerToolWords(path); }

void DropTable(const std::string& path, std::string_view table) {
  IsServerPath(path) ? postgres::DropTable(path, table) : files::DropTable(path, table);
}

}  // namespace engine
