#include "suitefiles/company/data_access.h"

#include "engine/engine.h"
#include "platform/values/convert.h"

namespace suitefiles {

DataAccess::DataAccess() : engine_(engine::MakeEngine()) {
  workspace_ = engine_->CreateWorkspace("suitefiles", "Admin", "", 2);
  engine_->AppendWorkspace(workspace_);
}

platform::DatabaseRef DataAccess::Open(const std::string& path) { return workspace_->OpenDatabase(path); }

std::int64_t CountRows(const platform::DatabaseRef& database, const std::string& table) {
  const auto rows = database->OpenRecordset("SELECT Count(*) AS Total FROM " + table);
  const auto total = platform::CLng(rows->Field(0));
  rows->Close();
  return total;
}

}  // namespace suitefiles
