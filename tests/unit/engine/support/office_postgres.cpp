#include <algorithm>

#include "engine/objects/engine.h"
#include "engine/store/postgres/open_file.h"
#include "engine/store/postgres/postgres_store.h"
#include "engine/store/postgres/schema/definitions.h"
#include "engine/store/postgres/wording/names.h"
#include "engine/store/query.h"
#include "support/test_server.h"
#include "unit/engine/support/office_files.h"

namespace office_files {
namespace {

using engine::postgres::ParseTarget;
using engine::postgres::Patience;
using engine::postgres::QuoteName;
using engine::postgres::ServerConnection;
using engine::postgres::Target;

constexpr const char* kDatabase = "office";

// "FOLDER/office.zdb": the test's folder is the company.
std::string ServerPath(std::string_view path) {
  const std::size_t file = path.rfind('/');
  const std::size_t folder = path.rfind('/', file - 1);
  return TestServer::Shared().PathOf(kDatabase) + std::string(path.substr(folder + 1));
}

// What another program works by.
ServerConnection& Another(const std::string& path) {
  static ServerConnection connection = [&] {
    ::setenv("PGUSER", "office", 1);
    TestServer::Shared().CreateDatabase(kDatabase);
    return ServerConnection(ParseTarget(path), Patience{});
  }();
  return connection;
}

}  // namespace

void Create(const std::string& path, const std::vector<platform::TableDefinition>& tables) {
  const std::string there = ServerPath(path);
  engine::postgres::CreateServerFile(Another(there), ParseTarget(there).schema, tables);
}

void AddRows(const std::string& path, const std::string& table, const std::vector<std::string>& fields,
             const std::vector<std::vector<platform::Value>>& rows) {
  constexpr std::size_t kAtOnce = 500;
  const std::string there = ServerPath(path);
  ServerConnection& connection = Another(there);
  std::string names;
  for (std::size_t i = 0; i < fields.size(); ++i) names += (i == 0 ? "" : ", ") + QuoteName(fields[i]);
  engine::Transaction together(connection, engine::Transaction::Kind::Write);
  for (std::size_t first = 0; first < rows.size(); first += kAtOnce) {
    const std::size_t count = std::min(kAtOnce, rows.size() - first);
    std::string text = "INSERT INTO " + QuoteName(ParseTarget(there).schema) + '.' + QuoteName(table) + " (" + names + ") VALUES ";
    for (std::size_t i = 0; i < count * fields.size(); ++i)
      text += std::string(i == 0 ? "($" : i % fields.size() == 0 ? "), ($" : ", $") + std::to_string(i + 1);
    engine::Query query(connection, std::string_view(text + ')'));
    for (std::size_t i = 0; i < count * fields.size(); ++i)
      query.Bind(static_cast<int>(i) + 1, rows[first + i / fields.size()][i % fields.size()]);
    query.Run();
  }
  together.Commit();
}

void DropTable(const std::string& path, const std::string& table) {
  const std::string there = ServerPath(path);
  engine::Query(Another(there), std::string_view("DROP TABLE " + QuoteName(ParseTarget(there).schema) + '.' + QuoteName(table))).Run();
}

std::shared_ptr<void> Hold(const std::string& path) {
  struct Held {
    explicit Held(const Target& target) : connection(target, Patience{}), unit(connection, engine::Transaction::Kind::Write) {}
    ServerConnection connection;
    engine::Transaction unit;
  };
  const Target target = ParseTarget(ServerPath(path));
  auto held = std::make_shared<Held>(target);
  for (const engine::postgres::StoredTable& table : engine::postgres::ReadTables(Another(ServerPath(path)), target.schema))
    engine::Query(held->connection, std::string_view("LOCK TABLE " + QuoteName(target.schema) + '.' + QuoteName(table.name) + " IN EXCLUSIVE MODE")).Run();
  return held;
}

std::unique_ptr<platform::DataEngine> NewEngine(const engine::EngineOptions& options) {
  engine::EngineOptions there = options;
  there.hostPath = ServerPath;
  const engine::Clock clock = options.now ? options.now : engine::LocalNow;
  return engine::MakeEngineOver(engine::OneStore(std::make_unique<engine::postgres::PostgresStore>(Patience{.lock = options.lockWait, .asks = true}, clock)), there);
}

}  // namespace office_files
