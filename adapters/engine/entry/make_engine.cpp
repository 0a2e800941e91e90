#include "engine/engine.h"
#include "engine/objects/engine.h"
#include "engine/objects/snapshot_reader.h"
#include "engine/store/postgres/link/target.h"
#include "engine/store/postgres/postgres_store.h"
#include "engine/store/sqlite/sqlite_store.h"
#include "platform/data/row_stream.h"
#include "platform/services/data_path.h"

namespace engine {

namespace {

// Whose path names a server: a store for each database there.
StoreKind ServerStores(const EngineOptions& options) {
  return {.nameOf = [](std::string_view path) -> std::optional<std::string> {
            if (!platform::IsServerPath(path)) return std::nullopt;
            return postgres::ParseTarget(path).DatabaseName();
          },
          .make = [wait = options.lockWait, whole = options.lockWholeFiles, asks = options.askOthers, now = options.now]() -> std::unique_ptr<Store> {
            return std::make_unique<postgres::PostgresStore>(postgres::Patience{.lock = wait, .asks = asks, .wholeFiles = whole}, now ? now : LocalNow);
          }};
}

// All others: one store of files.
StoreKind FileStore(const EngineOptions& options) {
  return {.nameOf = [](std::string_view) { return std::optional<std::string>(""); },
          .make = [wait = options.lockWait, network = options.onNetwork, now = options.now]() -> std::unique_ptr<Store> {
            return std::make_unique<SqliteStore>(wait, network, now ? now : LocalNow);
          }};
}

// A server commits before the files beside it: its commit is the one that can fail, and they are work files of one desk.
StoreChoice ShippedStores(const EngineOptions& options) { return {ServerStores(options), FileStore(options)}; }

}  // namespace

std::unique_ptr<platform::DataEngine> MakeEngine(const EngineOptions& options) { return MakeEngineOver(ShippedStores(options), options); }

std::unique_ptr<platform::SnapshotReader> MakeSnapshotReader(const EngineOptions& options) {
  return MakeSnapshotReaderOver(ShippedStores(options), options);
}

}  // namespace engine
