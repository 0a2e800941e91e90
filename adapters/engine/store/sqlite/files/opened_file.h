#pragma once

#include <memory>
#include <string>

#include "engine/store/sqlite/connection.h"
#include "engine/store/sqlite/data_files.h"

namespace engine {

/// How long a tool waits for a locked file, in milliseconds.
inline constexpr int kToolLockWait = 2000;

/// A data file that a tool has open, over a connection of its own. Unlike the screens a tool opens it wherever it lies; one that makes
/// a file refuses networks by itself (RequireNewPath).
struct OpenedFile {
  explicit OpenedFile(const std::string& path) : file(files.Open(path)) {}

  Connection connection{kToolLockWait};
  DataFiles files{connection, [](const std::string&) { return false; }};
  std::shared_ptr<AttachedFile> file;
};

}  // namespace engine
