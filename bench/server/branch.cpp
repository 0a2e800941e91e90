#include "server/branch.h"

#include <random>
#include <stdexcept>

#include "engine/objects/engine.h"
#include "engine/store/postgres/link/target.h"
#include "engine/store/postgres/postgres_store.h"
#include "engine/store/sqlite/sqlite_store.h"
#include "platform/services/data_path.h"

namespace bench::branch {
namespace {

using engine::postgres::PostgresStore;

}  // namespace

CountedEngine MakeCountedEngine() {
  // The stores live as long as the engine, and so do those who count.
  const auto stores = std::make_shared<std::vector<PostgresStore*>>();
  engine::StoreChoice choice;
  choice.push_back({.nameOf = [](std::string_view path) -> std::optional<std::string> {
                      if (!platform::IsServerPath(path)) return std::nullopt;
                      return engine::postgres::ParseTarget(path).DatabaseName();
                    },
                    .make = [stores]() -> std::unique_ptr<engine::Store> {
                      auto store = std::make_unique<PostgresStore>(engine::postgres::Patience{});
                      stores->push_back(store.get());
                      return store;
                    }});
  choice.push_back({.nameOf = [](std::string_view) { return std::optional<std::string>(""); },
                    .make = []() -> std::unique_ptr<engine::Store> {
                      return std::make_unique<engine::SqliteStore>(2'000, std::function<bool(const std::string&)>(), engine::LocalNow);
                    }});
  const auto count = [stores] {
    std::uint64_t trips = 0;
    for (PostgresStore* store : *stores) trips += store->Connected().Trips();
    return trips;
  };
  return {engine::MakeEngineOver(std::move(choice), {}), count};
}

Company::Company(std::string place) : place_(std::move(place)), engine_(MakeCountedEngine()), bare_(place_) {
  workspace_ = engine_.engine->CreateWorkspace("bench", "Admin", "", 2);
  engine_.engine->AppendWorkspace(workspace_);
  database_ = workspace_->OpenDatabase(place_ + "customer.zdb");
  data_ = [this](const std::string& statement) { return database_->OpenRecordset(statement); };
  OpenList()->Close();
  backend_ = YoungestBackend();
  rows_ = std::stoll(bare_.Value("SELECT count(*) FROM " + bare::Server::Table("Customers")));
  if (rows_ < 1000) throw std::runtime_error(place_ + ": a company with at least 1,000 customers is needed");
  ChooseRows();
}

int Company::YoungestBackend() {
  const std::string pid = bare_.Value(
      "SELECT pid FROM pg_stat_activity WHERE datname = current_database() AND application_name LIKE 'ORCusSch%' ORDER BY backend_start DESC LIMIT 1");
  if (pid.empty()) throw std::runtime_error("no connection of the engine's");
  return std::stoi(pid);
}

void Company::ChooseRows() {
  constexpr std::size_t kChoices = 256;
  std::mt19937_64 random(20'250'630);
  while (somewhere_.size() < kChoices) {
    const auto account = static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(rows_)) + 1;
    const bare::Rows row = bare_.RunPrepared("SELECT \"~k.LastName\", \"Addr1\" FROM " + bare::Server::Table("Customers") +
                                                 R"( WHERE "AcctNum" = $1 AND "~k.LastName" > 'b' AND "~k.LastName" < 'y')",
                                             {std::to_string(account)});
    if (row.Count() == 0) continue;
    somewhere_.push_back({*row.At(0, 0), account});
    const std::string address = row.At(0, 1).value_or("");
    if (!address.empty() && address.find('\'') == std::string::npos) addresses_.push_back(address);
    ordinals_.push_back(static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(rows_ - 100)) + 1);
  }
}

Job Company::Begin(const std::string& name, double mostRatio) {
  Job job;
  job.name = name;
  job.mostRatio = mostRatio;
  job.trips = [this] { return Trips(); };
  job.elsewhereOurs = [backend = backend_] { return bare::ProcessorOf(backend); };
  job.elsewhereRaw = [backend = bare_.Backend()] { return bare::ProcessorOf(backend); };
  return job;
}

std::uint64_t SumOf(const std::vector<platform::ListRow>& rows) {
  std::uint64_t sum = 0;
  for (const platform::ListRow& row : rows) sum = sum * 31 + static_cast<std::uint64_t>(row.cells.at(0).As<std::int32_t>());
  return sum;
}

std::uint64_t AccountOf(const platform::Recordset& recordset) { return static_cast<std::uint64_t>(recordset.Field(0).As<std::int32_t>()); }

}  // namespace bench::branch
