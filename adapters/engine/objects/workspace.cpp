#include "engine/objects/workspace.h"

#include <algorithm>

#include "engine/errors.h"

namespace engine {
namespace {

constexpr std::size_t kDeepestTransaction = 5;

}  // namespace

EngineWorkspace::EngineWorkspace(Stores& stores, MeaningsByFile& meanings, std::string name, bool isDefault,
                                 std::function<void(const EngineWorkspace&)> onClose)
    : stores_(stores), meanings_(meanings), name_(std::move(name)), isDefault_(isDefault), onClose_(std::move(onClose)) {}

EngineWorkspace::~EngineWorkspace() {
  while (!transactions_.empty()) transactions_.pop_back();
}

platform::DatabaseRef EngineWorkspace::OpenDatabase(std::string_view path) {
  Stores::Opened opened = stores_.Open(path);
  auto database = std::make_shared<engine::OpenDatabase>(
      opened.context, meanings_, std::move(opened.file), std::string(path),
      [this](const engine::OpenDatabase& closed) { std::erase_if(databases_, [&](const auto& open) { return open.get() == &closed; }); });
  databases_.push_back(database);
  return platform::DatabaseRef(database);
}

void EngineWorkspace::BeginTrans() {
  if (isDefault_) {
    if (static_cast<std::size_t>(depth_) == kDeepestTransaction) throw errors::TooManyTransactions();
    ++depth_;
    return;
  }
  if (transactions_.size() == kDeepestTransaction) throw errors::TooManyTransactions();
  transactions_.push_back(std::make_unique<StoresUnit>(stores_));
}

void EngineWorkspace::CommitTrans() { EndTransaction(true); }
void EngineWorkspace::Rollback() { EndTransaction(false); }

void EngineWorkspace::EndTransaction(bool keep) {
  if (isDefault_) {
    if (depth_ == 0) throw errors::CommitWithoutBegin();
    --depth_;
    return;
  }
  if (transactions_.empty()) throw errors::CommitWithoutBegin();
  const auto ended = std::move(transactions_.back());
  transactions_.pop_back();
  if (keep) ended->Commit();
}

platform::DatabaseRef EngineWorkspace::DatabaseAt(int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= databases_.size()) throw platform::error::ItemNotFound();
  return platform::DatabaseRef(std::shared_ptr<platform::Database>(databases_[static_cast<std::size_t>(index)]));
}

void EngineWorkspace::Close() {
  // The default workspace stays as long as the engine.
  if (isDefault_) return;
  while (!transactions_.empty()) Rollback();
  while (!databases_.empty()) {
    const auto last = databases_.back();
    last->Close();
  }
  onClose_(*this);
}

}  // namespace engine
