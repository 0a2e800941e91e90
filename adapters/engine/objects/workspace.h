#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/catalogue/stores.h"
#include "engine/objects/database.h"
#include "platform/data/data.h"

namespace engine {

/// A user's session with the databases that it has opened. The default workspace counts transactions and touches no file;
/// others begin, commit and undo them.
class EngineWorkspace final : public platform::Workspace {
 public:
  EngineWorkspace(Stores& stores, MeaningsByFile& meanings, std::string name, bool isDefault,
                  std::function<void(const EngineWorkspace&)> onClose);
  ~EngineWorkspace() override;

  const std::string& Name() const override { return name_; }
  platform::DatabaseRef OpenDatabase(std::string_view path) override;
  void BeginTrans() override;
  void CommitTrans() override;
  void Rollback() override;

  int DatabaseCount() override { return static_cast<int>(databases_.size()); }
  platform::DatabaseRef DatabaseAt(int index) override;
  void RefreshDatabases() override {}

  void Close() override;

 private:
  void EndTransaction(bool keep);

  Stores& stores_;
  MeaningsByFile& meanings_;
  std::string name_;
  bool isDefault_;
  std::function<void(const EngineWorkspace&)> onClose_;
  std::vector<std::shared_ptr<engine::OpenDatabase>> databases_;
  int depth_ = 0;                                          ///< the default workspace's transactions
  std::vector<std::unique_ptr<StoresUnit>> transactions_;  ///< the others'
};

}  // namespace engine
