#pragma once

#include <memory>

#include "engine/store/sqlite/connection.h"
#include "engine/store/sqlite/data_files.h"
#include "engine/store/store.h"
#include "engine/values/clock.h"

namespace engine {

/// SQLite files as the engine's store: one connection, each file attached once.
class SqliteStore final : public Store {
 public:
  /// `lockWait`: how long a locked file is waited for, in milliseconds. `onNetwork` may be empty: the system is asked.
  SqliteStore(int lockWait, NetworkTest onNetwork, const Clock& clock);

  const Dialect& OwnDialect() const override;
  std::shared_ptr<StoreFile> Open(std::string_view path, std::string_view asked) override { return files_.Open(path, asked); }
  bool ScansAll(std::string_view sql) override;
  bool ReadsCheaply(int rows, const std::function<void()>& read) override;
  bool ReadsToItsEnd(const std::function<bool()>& goOn, const std::function<void()>& read) override;
  void ServedMeanwhile(const std::function<void()>& act) override;
  void OnWait(std::function<void()> servePainting) override { connection_.OnWait(std::move(servePainting)); }
  void ServePainting() override { connection_.ServePainting(); }

  std::shared_ptr<Statement> Prepare(std::string_view sql) override { return connection_.Prepare(sql); }
  Unit BeginUnit(Unit::Kind kind) override { return connection_.BeginUnit(kind); }
  void CommitUnit(const Unit& unit) override { connection_.CommitUnit(unit); }
  void UndoUnit(const Unit& unit) noexcept override { connection_.UndoUnit(unit); }

 private:
  Connection connection_;
  DataFiles files_;
};

}  // namespace engine
