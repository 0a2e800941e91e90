#include "engine/engine.h"
#include "engine/objects/engine.h"
#include "engine/store/sqlite/sqlite_store.h"

namespace engine {

std::unique_ptr<platform::DataEngine> MakeEngine(const EngineOptions& options) {
  const Clock clock = options.now ? options.now : LocalNow;
  return MakeEngineOver(std::make_unique<SqliteStore>(options.lockWait, options.onNetwork, clock), options);
}

}  // namespace engine
