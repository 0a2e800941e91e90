#pragma once

#include <cstdint>
#include <memory>

#include "platform/data.h"

namespace engine {

struct EngineOptions {
  /// Results up to this many rows use the exact strategy; larger ones in one indexed order the live one. 0 proves the
  /// large-file code on small files.
  std::int64_t exactRows = 20'000;
  /// How long a locked file is waited for before 3218, in milliseconds.
  int lockWait = 2000;
};

/// The data engine over SQLite files: one connection, each file attached once.
std::unique_ptr<platform::DataEngine> MakeEngine(const EngineOptions& options = {});

}  // namespace engine
