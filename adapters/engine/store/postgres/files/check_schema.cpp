#include "engine/store/compare_tables.h"
#include "engine/store/postgres/files/opened_schema.h"
#include "engine/store/postgres/files/tools.h"
#include "engine/store/postgres/schema/field_words.h"
#include "engine/store/query.h"

namespace engine::postgres {
namespace {

// Indexes that the server itself holds for unfit, as after a building that was broken off.
void CheckIndexes(ServerConnection& connection, const std::string& schema, std::vector<std::string>& findings) {
  Query query(connection, std::string_view("SELECT x.relname FROM pg_index i JOIN pg_class x ON x.oid = i.indexrelid "
                                           "JOIN pg_namespace n ON n.oid = x.relnamespace WHERE n.nspname = $1 AND NOT i.indisvalid ORDER BY 1"));
  query.Bind(1, std::string_view(schema));
  while (query.Step()) findings.push_back("The file is damaged: the index " + std::string(query.Text(0)) + " is not valid.");
}

}  // namespace

std::vector<std::string> CheckDataFile(const std::string& path, std::span<const platform::TableDefinition> expected) {
  std::vector<std::string> findings;
  try {
    OpenedSchema opened(path);
    CheckIndexes(opened.connection, opened.target.schema, findings);
    CompareTables(opened.file, expected, TypeText, findings);
  } catch (const platform::Error& error) {
    findings.push_back(error.Description());
  }
  return findings;
}

}  // namespace engine::postgres
