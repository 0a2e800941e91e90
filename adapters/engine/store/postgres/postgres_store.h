#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "engine/store/postgres/connection.h"
#include "engine/store/postgres/link/target.h"
#include "engine/store/postgres/server_file.h"
#include "engine/store/store.h"

namespace engine::postgres {

/// A database of a PostgreSQL server as the engine's store: one connection, made when the first file is opened; each file of the suite
/// is a schema of it.
class PostgresStore final : public Store {
 public:
  explicit PostgresStore(Patience patience, Clock clock = LocalNow);

  const Dialect& OwnDialect() const override;
  /// Raises 3043 for a second database, besides what every store raises.
  std::shared_ptr<StoreFile> Open(std::string_view path, std::string_view asked) override;
  bool TakesGuests() const override { return true; }
  std::unique_ptr<GuestTable> Receive(const platform::TableDefinition& table, const StoreFile& beside) override;
  bool ScansAll(std::string_view sql) override;
  bool ReadsCheaply(int rows, const std::function<void()>& read) override;
  bool ReadsToItsEnd(const std::function<bool()>& goOn, const std::function<void()>& read) override;
  void OnWait(std::function<void()> servePainting) override;
  void ServePainting() override;

  std::shared_ptr<Statement> Prepare(std::string_view sql) override { return Connected().Prepare(sql); }
  Unit BeginUnit(Unit::Kind kind) override { return Connected().BeginUnit(kind); }
  void CommitUnit(const Unit& unit) override { Connected().CommitUnit(unit); }
  void UndoUnit(const Unit& unit) noexcept override;

  /// The connection; 3043 before a file was opened.
  ServerConnection& Connected();

 private:
  ServerConnection& ConnectionTo(const Target& target, const std::string& asked);

  Patience patience_;
  Clock clock_;
  std::function<void()> servePainting_;
  std::optional<Target> target_;
  std::unique_ptr<ServerConnection> connection_;
  int lastGuest_ = 0;
  std::map<std::string, std::weak_ptr<ServerFile>> files_;  ///< by schema
};

}  // namespace engine::postgres
