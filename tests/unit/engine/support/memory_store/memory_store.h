#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "engine/store/store.h"
#include "unit/engine/support/memory_store/tables.h"

namespace memory_store {

/// One program's store over the files of a disk.
class MemoryStore final : public engine::Store {
 public:
  explicit MemoryStore(std::shared_ptr<Disk> disk) : disk_(std::move(disk)) {}

  const engine::Dialect& OwnDialect() const override { return memory_store::OwnDialect(); }
  std::shared_ptr<engine::StoreFile> Open(std::string_view path, std::string_view asked) override;
  bool ScansAll(std::string_view) override { return true; }
  bool ReadsCheaply(int, const std::function<void()>& read) override;
  void OnWait(std::function<void()>) override {}
  void ServePainting() override {}

  std::shared_ptr<engine::Statement> Prepare(std::string_view sql) override;
  Unit BeginUnit(Unit::Kind kind) override;
  void CommitUnit(const Unit& unit) override;
  void UndoUnit(const Unit& unit) noexcept override;

  void CountWrite(File& file) { ++file.writes[this]; }

 private:
  using Rows = std::map<std::int64_t, std::vector<StoredValue>>;

  std::shared_ptr<Disk> disk_;
  std::map<std::string, std::weak_ptr<engine::StoreFile>> open_;
  std::vector<std::shared_ptr<File>> used_;
  std::vector<std::map<Table*, Rows>> undo_;  ///< of each unit
};

}  // namespace memory_store
