#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/data/data.h"

namespace desktop_test {

/// What a made-up table does and counts.
struct FakeTable {
  std::int64_t rows = 0;
  bool counted = true;                ///< the count is exact from the start
  int slicesToCount = 0;              ///< idle slices until it is
  std::int64_t estimate = 0;          ///< what Count says till then
  bool broken = false;                ///< every read raises
  std::set<std::int64_t> unreadable;  ///< rows that are in the list and can't be read
  std::set<std::int64_t> gone;        ///< rows that another user has deleted: nobody can stand on them again
  std::map<std::pair<std::int64_t, int>, platform::Value> edits;
  std::function<void()> onRead;  ///< runs inside each read, as a slow engine does

  int fetches = 0;
  std::int64_t rowsFetched = 0;
  std::int64_t mostRowsAtOnce = 0;
  int updates = 0;
};

/// Fields of every made-up table: Number (Long), Name (Text 30), Amount (Currency), Born (Date, Null in each 7th row), Member
/// (Boolean), Grade (Text 1: "A", "B" in turn).
const std::vector<platform::FieldInfo>& FakeFields();
platform::Value FakeValue(const FakeTable& table, std::int64_t row, int field);

/// Recordset, clone and window on one made-up table.
std::shared_ptr<platform::Recordset> MakeFakeRecordset(FakeTable& table, std::string source);

/// An engine with one database that has one table, whatever the statement says.
class FakeEngine final : public platform::DataEngine {
 public:
  explicit FakeEngine(FakeTable& table);
  ~FakeEngine() override;
  platform::WorkspaceRef CreateWorkspace(std::string_view, std::string_view, std::string_view, int) override;
  void AppendWorkspace(const platform::WorkspaceRef&) override {}
  int WorkspaceCount() override { return 0; }
  platform::WorkspaceRef WorkspaceAt(int) override;
  void RefreshWorkspaces() override {}
  platform::DatabaseRef OpenControlDatabase(std::string_view path) override;
  void OnWait(std::function<void()> servePainting) override { wait = std::move(servePainting); }

  std::function<void()> wait;

 private:
  std::shared_ptr<platform::Database> database_;
};

}  // namespace desktop_test
