#include "engine/objects/engine.h"

#include <algorithm>
#include <vector>

#include "engine/catalogue/stores.h"
#include "engine/errors.h"
#include "engine/objects/workspace.h"

namespace engine {
namespace {

class Engine final : public platform::DataEngine {
 public:
  Engine(const EngineOptions& options, StoreChoice choice) : stores_(options, std::move(choice)) {
    workspaces_.push_back(
        std::make_shared<EngineWorkspace>(stores_, meanings_, "#Default Workspace#", true, [](const EngineWorkspace&) {}));
  }

  platform::WorkspaceRef CreateWorkspace(std::string_view name, std::string_view, std::string_view, int type) override {
    constexpr int kOwnType = 2;
    if (type != kOwnType) throw errors::InvalidOperation();
    auto workspace = std::make_shared<EngineWorkspace>(stores_, meanings_, std::string(name), false,
                                                       [this](const EngineWorkspace& closed) { Forget(closed); });
    loose_.push_back(workspace);
    return platform::WorkspaceRef(workspace);
  }

  void AppendWorkspace(const platform::WorkspaceRef& workspace) override {
    const auto object = workspace.operator->();
    const auto found = std::ranges::find_if(loose_, [&](const auto& own) { return own == object; });
    if (found == loose_.end()) throw errors::NameInCollection();
    workspaces_.push_back(*found);
    loose_.erase(found);
  }

  int WorkspaceCount() override { return static_cast<int>(workspaces_.size()); }

  platform::WorkspaceRef WorkspaceAt(int index) override {
    if (index < 0 || static_cast<std::size_t>(index) >= workspaces_.size()) throw platform::error::ItemNotFound();
    return platform::WorkspaceRef(std::shared_ptr<platform::Workspace>(workspaces_[static_cast<std::size_t>(index)]));
  }

  void RefreshWorkspaces() override {}

  platform::DatabaseRef OpenControlDatabase(std::string_view path) override {
    Stores::Opened opened = stores_.Open(path);
    auto database = std::make_shared<OpenDatabase>(
        opened.context, meanings_, std::move(opened.file), std::string(path),
        [this](const OpenDatabase& closed) { std::erase_if(controlDatabases_, [&](const auto& open) { return open.get() == &closed; }); });
    controlDatabases_.push_back(database);
    return platform::DatabaseRef(std::shared_ptr<platform::Database>(database));
  }

  void OnWait(std::function<void()> servePainting) override { stores_.OnWait(std::move(servePainting)); }

 private:
  void Forget(const EngineWorkspace& closed) {
    const auto isClosed = [&](const auto& workspace) { return workspace.get() == &closed; };
    std::erase_if(workspaces_, isClosed);
    std::erase_if(loose_, isClosed);
  }

  Stores stores_;
  MeaningsByFile meanings_;
  std::vector<std::shared_ptr<EngineWorkspace>> workspaces_;
  std::vector<std::shared_ptr<EngineWorkspace>> loose_;  ///< created and not appended yet
  std::vector<std::shared_ptr<OpenDatabase>> controlDatabases_;
};

}  // namespace

std::unique_ptr<platform::DataEngine> MakeEngineOver(StoreChoice choice, const EngineOptions& options) {
  return std::make_unique<Engine>(options, std::move(choice));
}

}  // namespace engine
