#pragma once

#include <memory>
#include <string>

#include "platform/data/data.h"

namespace suitefiles {

/// The data engine with one workspace, for commands that run statements.
class DataAccess {
 public:
  DataAccess();
  platform::DatabaseRef Open(const std::string& path);

 private:
  std::unique_ptr<platform::DataEngine> engine_;
  platform::WorkspaceRef workspace_;
};

/// Rows of a table.
std::int64_t CountRows(const platform::DatabaseRef& database, const std::string& table);

}  // namespace suitefiles
