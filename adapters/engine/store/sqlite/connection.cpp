#include "engine/store/sqlite/connection.h"

#include <sqlite3.h>

#include <algorithm>
#include <thread>

#include "engine/errors.h"
#include "engine/store/sqlite/functions.h"

namespace engine {
namespace {

constexpr auto kLockStep = std::chrono::milliseconds(15);
constexpr int kCheckpointPages = 1000;  // the store's own choice

platform::Error ConstraintError(int code) {
  if (code == SQLITE_CONSTRAINT_NOTNULL) return errors::NullInKey();
  return errors::DuplicateKey();
}

// "f3.Phones": the table's name without the file that it was looked for in.
std::string_view WithoutFile(std::string_view name) {
  const std::size_t dot = name.find('.');
  const bool file = dot != std::string_view::npos && dot > 1 && name[0] == 'f' &&
                    name.substr(1, dot - 1).find_first_not_of("0123456789") == std::string_view::npos;
  return file ? name.substr(dot + 1) : name;
}

// What the store tells by words alone: statements deeper than it takes, a sum beyond 64 bits, and a table that another
// program took away after the statement was planned.
void RaiseForMessage(std::string_view message) {
  constexpr std::string_view kNoTable = "no such table: ";
  if (message.starts_with(kNoTable)) throw errors::UnknownTable(WithoutFile(message.substr(kNoTable.size())));
  for (const std::string_view deep : {"parser stack overflow", "Expression tree is too large"}) {
    if (message.starts_with(deep)) throw errors::QueryTooComplex();
  }
  if (message == "integer overflow") throw platform::error::Overflow();
}

std::string Savepoint(const Channel::Unit& unit) { return "s" + std::to_string(unit.depth); }

}  // namespace

Connection::Connection(int lockWait) : lockWait_(lockWait) {
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX;
  if (sqlite3_open_v2(":memory:", &db_, flags, nullptr) != SQLITE_OK) throw std::bad_alloc();
  sqlite3_extended_result_codes(db_, 1);
  RegisterFunctions(*this);
  // Nothing that a file's own schema says may call functions with effects, and damaged pages are noticed early.
  Execute("PRAGMA trusted_schema=OFF");
  Execute("PRAGMA cell_size_check=ON");
}

Connection::~Connection() {
  DropStatements();
  sqlite3_close_v2(db_);
}

void Connection::Execute(const std::string& sql) {
  SqliteStatement statement(*this, sql);
  statement.Begin();
  while (statement.Step()) {
  }
}

std::optional<std::string> Connection::AskText(std::string_view sql) {
  Query query(*this, sql);
  if (!query.Step() || query.IsNull(0)) return {};
  return std::string(query.Text(0));
}

bool Connection::InTransaction() const { return sqlite3_get_autocommit(db_) == 0; }

std::uint64_t Connection::Writes(int file) const {
  return static_cast<std::size_t>(file) < writes_.size() ? writes_[static_cast<std::size_t>(file)] : 0;
}

void Connection::CountWrite(int file) {
  if (static_cast<std::size_t>(file) >= writes_.size()) writes_.resize(static_cast<std::size_t>(file) + 1);
  ++writes_[static_cast<std::size_t>(file)];
  wroteInTransaction_ = true;
}

void Connection::CountUndone() {
  for (std::uint64_t& count : writes_) ++count;
}

void Connection::ServePainting() {
  if (painting_ || !servePainting_) return;
  painting_ = true;
  struct Done {
    bool& flag;
    ~Done() { flag = false; }
  } done{painting_};
  servePainting_();
}

// The statement goes on whatever becomes of the painting, which has nothing to do with it.
void Connection::ServeInside() noexcept {
  if (inside_) return;
  inside_ = true;
  try {
    ServePainting();
  } catch (...) {
  }
  inside_ = false;
}

void Connection::RequireOutside(int file) {
  if (inside_) throw errors::FileInUse(PathOf(file));
}

const std::string& Connection::PathOf(int file) const {
  static const std::string none;
  const auto found = paths_.find(file);
  return found == paths_.end() ? none : found->second;
}

std::shared_ptr<SqliteStatement> Connection::Kept(std::string_view sql) {
  return kept_.Take(sql, [&] { return std::make_shared<SqliteStatement>(*this, sql); });
}

sqlite3_stmt* Connection::PrepareText(const std::string& sql, int file) {
  RequireOutside(file);
  if (onPrepare_) onPrepare_(sql);
  sqlite3_stmt* statement = nullptr;
  const auto prepare = [&] { return sqlite3_prepare_v3(db_, sql.c_str(), static_cast<int>(sql.size()) + 1, 0, &statement, nullptr); };
  int code = prepare();
  if (code == SQLITE_OK) return statement;
  const auto start = std::chrono::steady_clock::now();
  while ((code & 0xff) == SQLITE_BUSY && WaitForLock(start)) code = prepare();
  if (code != SQLITE_OK) RaiseFor(code, false, file);
  return statement;
}

void Connection::DropStatements() {
  for (const auto& statement : kept_.All())
    if (!statement->InUse()) statement->Drop();
  kept_.Clear();
}

bool Connection::Uses(int file) const {
  const std::string name = "\"f" + std::to_string(file) + "\".";
  return std::ranges::any_of(
      kept_.All(), [&](const auto& statement) { return statement->InUse() && statement->Sql().find(name) != std::string::npos; });
}

bool Connection::WaitForLock(std::chrono::steady_clock::time_point start) {
  if (std::chrono::steady_clock::now() - start >= std::chrono::milliseconds(lockWait_)) return false;
  std::this_thread::sleep_for(kLockStep);
  ServePainting();
  return true;
}

void Connection::RenewSnapshot() {
  if (!InTransaction() || wroteInTransaction_ || depth_ != 1) return;
  sqlite3_exec(db_, "ROLLBACK; BEGIN", nullptr, nullptr, nullptr);
}

void Connection::RaiseFor(int code, bool writing, int file) {
  if (pendingError_) {
    auto error = std::move(*pendingError_);
    pendingError_.reset();
    throw error;
  }
  Raise(code, writing, file);
}

void Connection::Raise(int code, bool writing, int file) {
  switch (code & 0xff) {
    case SQLITE_INTERRUPT:
      throw WorkLimitReached();
    case SQLITE_CONSTRAINT:
      throw ConstraintError(code);
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      throw writing ? errors::UpdateLocked() : errors::FileInUse(PathOf(file));
    case SQLITE_READONLY:
      throw errors::ReadOnly();
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      throw errors::NotADatabase(PathOf(file));
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      throw errors::OpenedExclusively(PathOf(file));
    case SQLITE_IOERR:
    case SQLITE_FULL:
      throw errors::DiskOrNetwork();
    case SQLITE_ERROR:
      RaiseForMessage(sqlite3_errmsg(db_));
      break;
    case SQLITE_NOMEM:
    case SQLITE_TOOBIG:
      throw platform::Error(3035, "System resource exceeded.");
    default:
      break;
  }
  throw platform::Error(3000, std::string("Reserved error (") + std::to_string(code) + "): " + sqlite3_errmsg(db_));
}

// The store counts a prepared statement's instructions over all its runs, so that the first question can come a whole tick too early.
WorkLimit::WorkLimit(Connection& connection, int steps) : connection_(connection), ticks_(steps / kTick + 1) {
  const auto ask = [](void* ticks) { return --*static_cast<int*>(ticks) <= 0 ? 1 : 0; };
  sqlite3_progress_handler(connection.Handle(), std::min(steps, kTick), ask, &ticks_);
  connection.workIsLimited_ = true;
}

WorkLimit::~WorkLimit() {
  connection_.workIsLimited_ = false;
  sqlite3_progress_handler(connection_.Handle(), 0, nullptr, nullptr);
}

Stoppable::Stoppable(Connection& connection, const std::function<bool()>& goOn) : connection_(connection) {
  constexpr int kInstructions = 20'000;  // of hundreds to thousands of rows: about a millisecond
  const auto ask = [](void* asked) { return (*static_cast<const std::function<bool()>*>(asked))() ? 0 : 1; };
  sqlite3_progress_handler(connection.Handle(), kInstructions, ask, const_cast<std::function<bool()>*>(&goOn));
}

Stoppable::~Stoppable() { sqlite3_progress_handler(connection_.Handle(), 0, nullptr, nullptr); }

// Asked after every twenty rows that are copied or five hundred that are removed, a millisecond or two; and around the checkpoint that
// a long commit brings, which is else a part of the commit.
Served::Served(Connection& connection) : connection_(connection) {
  constexpr int kInstructions = 4'000;
  const auto serve = [](void* of) {
    static_cast<Connection*>(of)->ServeInside();
    return 0;
  };
  sqlite3_progress_handler(connection.Handle(), kInstructions, serve, &connection);
  const auto committed = [](void* of, sqlite3* db, const char* file, int pages) {
    static_cast<Connection*>(of)->ServeInside();
    if (pages >= kCheckpointPages) sqlite3_wal_checkpoint_v2(db, file, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
    return SQLITE_OK;
  };
  sqlite3_wal_hook(connection.Handle(), committed, &connection);
}

Served::~Served() {
  sqlite3_progress_handler(connection_.Handle(), 0, nullptr, nullptr);
  sqlite3_wal_autocheckpoint(connection_.Handle(), kCheckpointPages);
}

Channel::Unit Connection::BeginUnit(Unit::Kind kind) {
  const Unit unit{kind, !InTransaction(), depth_};
  if (unit.outermost) {
    Query(*this, "BEGIN").Run();
    wroteInTransaction_ = false;
  } else if (kind == Unit::Kind::Write) {
    Execute("SAVEPOINT " + Savepoint(unit));
  }
  ++depth_;
  return unit;
}

void Connection::CommitUnit(const Unit& unit) {
  if (unit.outermost)
    Query(*this, "COMMIT").Run();
  else if (unit.kind == Unit::Kind::Write)
    Execute("RELEASE " + Savepoint(unit));
  --depth_;
}

void Connection::UndoUnit(const Unit& unit) noexcept {
  --depth_;
  // A reading transaction has nothing to undo; ending it either way is the same. A failure here can't be told to anyone,
  // and the store has then undone the transaction by itself.
  if (unit.kind == Unit::Kind::Write) CountUndone();
  if (!InTransaction()) return;
  if (unit.outermost)
    sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
  else if (unit.kind == Unit::Kind::Write)
    sqlite3_exec(db_, ("ROLLBACK TO " + Savepoint(unit) + "; RELEASE " + Savepoint(unit)).c_str(), nullptr, nullptr, nullptr);
}

}  // namespace engine
