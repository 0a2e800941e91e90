#include "engine/engine.h"
#include "engine/objects/engine.h"
#include "engine/objects/snapshot_reader.h"
#include "engine/store/sqlite/sqlite_store.h"
#include "platform/data/row_stream.h"

namespace engine {

namespace {

std::unique_ptr<Store> NewStore(const EngineOptions& options) {
  return std::make_unique<SqliteStore>(options.lockWait, options.onNetwork, options.now ? options.now : LocalNow);
}

}  // namespace

std::unique_ptr<platform::DataEngine> MakeEngine(const EngineOptions& options) { return MakeEngineOver(NewStore(options), options); }

std::unique_ptr<platform::SnapshotReader> MakeSnapshotReader(const EngineOptions& options) {
  return MakeSnapshotReaderOver(NewStore(options), options);
}

}  // namespace engine
