#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/store/channel.h"
#include "engine/store/kept_statements.h"
#include "engine/store/query.h"
#include "engine/store/sqlite/statement.h"
#include "platform/values/error.h"

struct sqlite3;
struct sqlite3_stmt;

namespace engine {

/// The one connection of an engine: an empty store in memory to which data files are attached. It keeps prepared
/// statements, waits for locks with painting served, and turns the store's failures into the engine's errors.
class Connection final : public Channel {
 public:
  /// `lockWait`: how long a locked file is waited for, in milliseconds.
  explicit Connection(int lockWait);
  ~Connection() override;
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// Runs a statement that gives no rows and isn't worth keeping.
  void Execute(const std::string& sql);
  /// The text in the first column of the first row; nothing for Null or no row.
  std::optional<std::string> AskText(std::string_view sql);

  std::shared_ptr<Statement> Prepare(std::string_view sql) override { return Kept(sql); }
  Unit BeginUnit(Unit::Kind kind) override;
  void CommitUnit(const Unit& unit) override;
  void UndoUnit(const Unit& unit) noexcept override;
  bool InTransaction() const;

  /// Counts this connection's own writes to a file; `data_version` tells only of others'.
  std::uint64_t Writes(int file) const;

  void OnWait(std::function<void()> servePainting) { servePainting_ = std::move(servePainting); }
  /// Lets the windows paint; does nothing when called from inside painting.
  void ServePainting();

  /// Forgets every prepared statement, as a detach demands.
  void DropStatements();
  /// Whether a statement that names the file is being run.
  bool Uses(int file) const;
  /// Called with the text of each statement before it is prepared.
  void OnPrepare(std::function<void(std::string_view)> prepare) { onPrepare_ = std::move(prepare); }

  /// For messages: the path behind a file's number.
  void NameFile(int file, std::string path) { paths_[file] = std::move(path); }
  const std::string& PathOf(int file) const;

  /// An error that a function of ours raised inside a statement; it replaces the store's own.
  void PendingError(platform::Error error) { pendingError_ = std::move(error); }
  /// Whether something failed in the computed cell that a statement is at.
  void MarkCell(bool failed) noexcept { cellMarked_ = failed; }
  bool CellMarked() const noexcept { return cellMarked_; }

  sqlite3* Handle() const noexcept { return db_; }

  // For its statements.
  /// `file`: the first file that the text names.
  sqlite3_stmt* PrepareText(const std::string& sql, int file);
  void CountWrite(int file);
  bool WorkIsLimited() const noexcept { return workIsLimited_; }
  /// Raises 3045 inside painting that is served from the midst of a statement: nothing else may be asked of the store then.
  void RequireOutside(int file);
  [[noreturn]] void RaiseFor(int code, bool writing, int file);
  [[noreturn]] void Raise(int code, bool writing, int file);
  /// Sleeps one short step with painting served; false when the time since `start` is used up.
  bool WaitForLock(std::chrono::steady_clock::time_point start);
  /// Inside a transaction that has written nothing yet: begins it anew, so that its write can follow another's commit.
  void RenewSnapshot();

 private:
  friend class WorkLimit;
  friend class Served;

  std::shared_ptr<SqliteStatement> Kept(std::string_view sql);
  void ServeInside() noexcept;
  /// Writes were undone: what was read meanwhile is stale.
  void CountUndone();

  sqlite3* db_ = nullptr;
  int lockWait_;
  std::function<void()> servePainting_;
  std::function<void(std::string_view)> onPrepare_;
  bool painting_ = false;
  bool inside_ = false;  ///< of a statement, while painting is served there
  KeptStatements<SqliteStatement> kept_;
  std::map<int, std::string> paths_;
  std::vector<std::uint64_t> writes_;  ///< by file number
  std::optional<platform::Error> pendingError_;
  bool cellMarked_ = false;
  bool workIsLimited_ = false;
  bool wroteInTransaction_ = false;
  int depth_ = 0;  ///< units inside one another
};

/// Leaves a statement's step when a WorkLimit is used up or a Stoppable is stopped. Never leaves the store.
struct WorkLimitReached {};

/// Bounds the work of one statement while it lives: a step that needs more, or that has put all rows in order first, raises
/// WorkLimitReached.
class WorkLimit {
 public:
  /// `steps`: instructions of the store, about thirty for a row that is looked at.
  WorkLimit(Connection& connection, int steps);
  ~WorkLimit();
  WorkLimit(const WorkLimit&) = delete;
  WorkLimit& operator=(const WorkLimit&) = delete;

 private:
  static constexpr int kTick = 256;
  Connection& connection_;
  int ticks_;
};

/// Asks every few milliseconds of statements' work while it lives whether that shall go on: else WorkLimitReached.
class Stoppable {
 public:
  Stoppable(Connection& connection, const std::function<bool()>& goOn);
  ~Stoppable();
  Stoppable(const Stoppable&) = delete;
  Stoppable& operator=(const Stoppable&) = delete;

 private:
  Connection& connection_;
};

/// Serves painting every few milliseconds of statements' work while it lives.
class Served {
 public:
  explicit Served(Connection& connection);
  ~Served();
  Served(const Served&) = delete;
  Served& operator=(const Served&) = delete;

 private:
  Connection& connection_;
};

}  // namespace engine
