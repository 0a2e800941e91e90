#include "streets/file/database.h"

#include <sqlite3.h>

#include <utility>

#include "streets/file/file_error.h"

namespace streets {
namespace {

int FlagsOf(Database::Use use) {
  switch (use) {
    case Database::Use::Read:
      return SQLITE_OPEN_READONLY;
    case Database::Use::Write:
      return SQLITE_OPEN_READWRITE;
    case Database::Use::Make:
      return SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
  }
  return SQLITE_OPEN_READONLY;
}

std::string Why(int code, sqlite3* handle) {
  switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return " is locked by another program.";
    case SQLITE_READONLY:
      return " can't be written.";
    case SQLITE_NOTADB:
      return " is not a streets file.";
    case SQLITE_CORRUPT:
      return " is damaged.";
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return " can't be opened.";
    case SQLITE_FULL:
      return " can't grow: the disk is full.";
    case SQLITE_IOERR:
      return ": the disk or the network failed.";
    default:
      return std::string(" can't be used: ") + (handle ? sqlite3_errmsg(handle) : sqlite3_errstr(code)) + ".";
  }
}

// Asks for something that lies in the file.
int Look(sqlite3* handle) { return sqlite3_exec(handle, "SELECT 1 FROM sqlite_schema LIMIT 1", nullptr, nullptr, nullptr); }

}  // namespace

Database::Database(std::string path, Use use, int lockWait) : path_(std::move(path)) {
  Open(use, lockWait);
  if (use != Use::Read || Look(handle_) != SQLITE_READONLY_ROLLBACK) return;
  // A writer was killed, and who only reads may not play its journal back: for a moment it must be written.
  Close();
  Open(Use::Write, lockWait);
  Look(handle_);
  Close();
  Open(use, lockWait);
}

void Database::Open(Use use, int lockWait) {
  const int code = sqlite3_open_v2(path_.c_str(), &handle_, FlagsOf(use) | SQLITE_OPEN_NOMUTEX, nullptr);
  if (code != SQLITE_OK) {
    const std::string why = Why(code, handle_);
    Close();
    throw FileError(path_ + why);
  }
  sqlite3_extended_result_codes(handle_, 1);
  sqlite3_busy_timeout(handle_, lockWait);
  // Nothing that a file's own schema says may call functions with effects, and damaged pages are noticed early.
  sqlite3_exec(handle_, "PRAGMA trusted_schema=OFF; PRAGMA cell_size_check=ON", nullptr, nullptr, nullptr);
}

Database::~Database() { Close(); }

void Database::Close() noexcept {
  sqlite3_close_v2(handle_);
  handle_ = nullptr;
}

void Database::Execute(const std::string& sql) {
  if (const int code = sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr); code != SQLITE_OK) Raise(code);
}

std::int64_t Database::Ask(const std::string& sql) {
  Statement statement(*this, sql);
  return statement.Step() ? statement.Int(0) : 0;
}

std::int64_t Database::Changes() const { return sqlite3_changes64(handle_); }

void Database::Raise(int code) const { throw FileError(path_ + Why(code, handle_)); }

Transaction::Transaction(Database& database) : database_(database) { database_.Execute("BEGIN IMMEDIATE"); }

Transaction::~Transaction() {
  if (!over_) sqlite3_exec(database_.Handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::Commit() {
  database_.Execute("COMMIT");
  over_ = true;
}

}  // namespace streets
