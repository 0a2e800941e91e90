#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "engine/store/sqlite/statement.h"
#include "platform/values/error.h"
#include "platform/values/value.h"

struct sqlite3;

namespace engine {

/// The one connection of an engine: an empty store in memory to which data files are attached. It keeps prepared
/// statements, waits for locks with painting served, and turns the store's failures into the engine's errors.
class Connection {
 public:
  /// `lockWait`: how long a locked file is waited for, in milliseconds.
  explicit Connection(int lockWait);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// Runs a statement that gives no rows and isn't worth keeping.
  void Execute(const std::string& sql);
  /// The first column of the first row.
  std::optional<std::int64_t> AskNumber(std::string_view sql);
  std::optional<std::string> AskText(std::string_view sql);

  std::int64_t LastRowKey() const;
  /// Rows that the last write changed.
  std::int64_t Changes() const;
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

  // For Query and StatementSlot.
  std::shared_ptr<StatementSlot> Slot(std::string_view sql);
  void Prepare(StatementSlot& slot);
  void CountWrite(int file);
  /// Writes were undone: what was read meanwhile is stale.
  void CountUndone();
  [[noreturn]] void RaiseFor(int code, const StatementSlot& slot);
  [[noreturn]] void Raise(int code, bool writing, int file);
  /// Sleeps one short step with painting served; false when the time since `start` is used up.
  bool WaitForLock(std::chrono::steady_clock::time_point start);
  /// Inside a transaction that has written nothing yet: begins it anew, so that its write can follow another's commit.
  void RenewSnapshot();

 private:
  friend class Transaction;
  using Recent = std::list<std::shared_ptr<StatementSlot>>;

  sqlite3* db_ = nullptr;
  int lockWait_;
  std::function<void()> servePainting_;
  std::function<void(std::string_view)> onPrepare_;
  bool painting_ = false;
  Recent recent_;  ///< kept statements, last used first
  std::unordered_map<std::string_view, Recent::iterator> bySql_;
  std::map<int, std::string> paths_;
  std::vector<std::uint64_t> writes_;  ///< by file number
  std::optional<platform::Error> pendingError_;
  bool cellMarked_ = false;
  bool wroteInTransaction_ = false;
  int depth_ = 0;  ///< transactions inside one another
};

/// Leaves a Query::Step when a WorkLimit is used up. Never leaves the engine.
struct WorkLimitReached {};

/// Bounds the work of one statement while it lives: a step that needs more raises WorkLimitReached.
class WorkLimit {
 public:
  /// `steps`: instructions of the store, about thirty for a row that is looked at.
  WorkLimit(Connection& connection, int steps);
  ~WorkLimit();
  WorkLimit(const WorkLimit&) = delete;
  WorkLimit& operator=(const WorkLimit&) = delete;

 private:
  Connection& connection_;
};

/// Statements that belong together: several reads of one state, or several writes of which all stay or none. Inside
/// another one it is a part of that. Without Commit its writes are undone.
class Transaction {
 public:
  enum class Kind { Read, Write };
  Transaction(Connection& connection, Kind kind);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  void Commit();

 private:
  Connection& connection_;
  Kind kind_;
  std::string savepoint_;
  bool outermost_ = false;
  bool open_ = false;
};

}  // namespace engine
