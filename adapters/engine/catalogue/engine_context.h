#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/engine.h"
#include "engine/errors.h"
#include "engine/store/dialect.h"
#include "engine/store/sqlite/clock_functions.h"
#include "engine/store/sqlite/connection.h"
#include "engine/store/sqlite/data_files.h"
#include "engine/values/clock.h"

namespace engine {

/// What all objects of one engine share.
struct EngineContext {
  explicit EngineContext(const EngineOptions& given) : options(given), clock(given.now ? given.now : LocalNow), connection(given.lockWait), files(connection, given.onNetwork) {
    RegisterClock(connection, clock);
  }

  /// The file that a path of the program's style names, attached.
  std::shared_ptr<DataFile> Open(std::string_view path) {
    if (!options.hostPath) return files.Open(path);
    const std::string host = options.hostPath(path);
    if (host.empty()) throw errors::InvalidPath(path);
    return files.Open(host, path);
  }
  /// The real file or folder that a path of the program's style names; "" when there can be none.
  std::string HostPath(const std::string& path) const { return options.hostPath ? options.hostPath(path) : path; }
  /// A number that no other recordset of this engine has had.
  std::uint64_t NewSet() { return ++lastSet_; }

  EngineOptions options;
  Clock clock;
  Connection connection;
  DataFiles files;
  Dialect dialect;

 private:
  std::uint64_t lastSet_ = 0;
};

}  // namespace engine
