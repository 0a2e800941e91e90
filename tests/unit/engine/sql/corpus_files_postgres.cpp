#include <stdlib.h>

#include "engine/objects/engine.h"
#include "engine/store/postgres/open_file.h"
#include "engine/store/postgres/postgres_store.h"
#include "engine/store/postgres/wording/dialect.h"
#include "engine/store/postgres/wording/names.h"
#include "engine/store/query.h"
#include "support/test_server.h"
#include "unit/engine/sql/corpus.h"
#include "unit/engine/sql/corpus_files.h"

namespace corpus {
namespace {

using engine::postgres::ParseTarget;
using engine::postgres::Patience;
using engine::postgres::QuoteName;

// The folder's name in small letters names the database; every file of the corpus belongs to one company in it.
std::string DatabaseOf(const std::filesystem::path& folder) {
  std::string name = "company";
  for (const char c : folder.filename().string()) name += "_" + std::to_string(static_cast<int>(c));
  return name.substr(0, 63);
}

std::string ServerPath(const std::string& database, const std::filesystem::path& file) {
  return TestServer::Shared().PathOf(database) + "corpus/" + file.filename().string();
}

void Write(engine::postgres::ServerConnection& connection, const DataFile& file, const std::string& path) {
  const std::string schema = ParseTarget(path).schema;
  std::vector<platform::TableDefinition> definitions;
  for (const Table& table : file.tables) definitions.push_back(table.definition);
  engine::postgres::CreateServerFile(connection, schema, definitions);
  for (const Table& table : file.tables) {
    std::string names;
    for (const platform::FieldDefinition& field : table.definition.fields) names += (names.empty() ? "" : ", ") + QuoteName(field.name);
    for (const auto& row : table.rows) {
      std::string values;
      for (const platform::Value& value : row) values += (values.empty() ? "" : ", ") + engine::postgres::ServerDialect().Constant(value);
      engine::Query(connection, std::string_view("INSERT INTO " + QuoteName(schema) + '.' + QuoteName(table.definition.name) + " (" + names +
                                                 ") VALUES (" + values + ")"))
          .Run();
    }
  }
}

// The company is written once; every other one is a copy. Nobody stays connected to it.
const std::string& Written() {
  static const std::string database = [] {
    ::setenv("PGUSER", "office", 1);
    const std::string name = "corpus";
    TestServer::Shared().CreateDatabase(name);
    const Fixture fixture = ReadFixture();
    engine::postgres::ServerConnection connection(ParseTarget(ServerPath(name, fixture.files.front().name)), Patience{});
    for (const DataFile& file : fixture.files) Write(connection, file, ServerPath(name, file.name));
    return name;
  }();
  return database;
}

}  // namespace

const Place& Server() {
  static const Place place{
      .fill = [](const std::filesystem::path& folder) { TestServer::Shared().CreateDatabase(DatabaseOf(folder), Written()); },
      .newEngine = [](const std::filesystem::path& folder, const engine::EngineOptions& options) -> std::unique_ptr<platform::DataEngine> {
        engine::EngineOptions there = options;
        const std::string database = DatabaseOf(folder);
        there.hostPath = [database](std::string_view path) { return ServerPath(database, std::filesystem::path(path)); };
        const engine::Clock clock = options.now ? options.now : engine::LocalNow;
        return engine::MakeEngineOver(engine::OneStore(std::make_unique<engine::postgres::PostgresStore>(Patience{.lock = options.lockWait, .asks = true}, clock)), there);
      },
      .remove = [](const std::filesystem::path& folder) { TestServer::Shared().DropDatabase(DatabaseOf(folder)); }};
  return place;
}

}  // namespace corpus
