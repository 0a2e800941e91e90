#include "engine/store/compare_tables.h"
#include "engine/store/sqlite/declared_types.h"
#include "engine/store/sqlite/files/opened_file.h"
#include "engine/store/sqlite/files/tools.h"
#include "engine/store/sqlite/names.h"
#include "platform/values/error.h"

namespace engine {
namespace {

using platform::FieldDefinition;
using platform::TableDefinition;

std::string TypeText(const FieldDefinition& field) {
  return field.type == platform::FieldType::Counter ? "COUNTER" : DeclaredType(field.type, field.size);
}

void CheckStore(Connection& connection, const std::string& alias, std::vector<std::string>& findings) {
  Query query(connection, "PRAGMA " + QuoteName(alias) + ".integrity_check(20)");
  while (query.Step())
    if (query.Text(0) != "ok") findings.push_back("The file is damaged: " + std::string(query.Text(0)) + ".");
}

}  // namespace

namespace files {

std::vector<std::string> CheckDataFile(const std::string& path, std::span<const TableDefinition> expected) {
  std::vector<std::string> findings;
  try {
    OpenedFile opened(path);
    CheckStore(opened.connection, opened.file->Qualifier(), findings);
    CompareTables(*opened.file, expected, TypeText, findings);
  } catch (const platform::Error& error) {
    findings.push_back(error.Description());
  }
  return findings;
}

}  // namespace files

}  // namespace engine
