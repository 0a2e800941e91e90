
#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "engine/errors.h"
#include "engine/store/sqlite/connection.h"
#include "engine/store/sqlite/data_files.h"
#include "engine/store/sqlite/files/copy_file.h"
#include "engine/store/sqlite/files/opened_file.h"
#include "engine/store/sqlite/files/tools.h"
#include "engine/store/sqlite/names.h"
#include "engine/store/sqlite/schema.h"
#include "engine/text/text_order.h"

namespace engine {
namespace {

/// A file that is being made, beside its later place and under a name that no other program uses. What is not moved into place is
/// deleted.
class UnfinishedFile {
 public:
  explicit UnfinishedFile(const std::string& place) {
    for (int n = 0;; ++n) {
      path_ = place + ".new-" + std::to_string(::getpid()) + "-" + std::to_string(n);
      const int file = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
      if (file >= 0) {
        ::close(file);
        return;
      }
      if (errno == EEXIST) continue;
      if (errno == ENOSPC || errno == EIO || errno == EDQUOT) throw errors::DiskOrNetwork();
      throw errors::OpenedExclusively(place);
    }
  }
  ~UnfinishedFile() {
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) std::remove((path_ + suffix).c_str());
  }
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

// The empty file, with the journal kind that it then keeps for ever.
void MakeEmptyStore(const std::string& path, const std::string& asked) {
  sqlite3* db = nullptr;
  int code = sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
  if (code == SQLITE_OK) code = sqlite3_exec(db, "PRAGMA page_size=4096; PRAGMA journal_mode=WAL", nullptr, nullptr, nullptr);
  sqlite3_close(db);
  if (code == SQLITE_CANTOPEN || code == SQLITE_READONLY) throw errors::OpenedExclusively(asked);
  if (code != SQLITE_OK) throw errors::DiskOrNetwork();
}

void WriteTables(Connection& connection, std::span<const platform::TableDefinition> tables, bool workFile) {
  const std::string file = "f1";
  const std::string info = "\"f1\"." + QuoteName(kInfoTable);
  Transaction transaction(connection, Transaction::Kind::Write);
  connection.Execute("CREATE TABLE " + info + " (key TEXT PRIMARY KEY, value TEXT)");
  connection.Execute("INSERT INTO " + info + " VALUES ('format', '" + std::to_string(kFileFormat) + "'), ('text order', '" +
                     std::to_string(kTextOrderVersion) + "'), ('kind', '" + (workFile ? "work" : "company") + "')");
  connection.Execute("CREATE TABLE \"f1\"." + QuoteName(kLinksTable) + " (name TEXT PRIMARY KEY COLLATE NOCASE, path TEXT, source TEXT)");
  for (const platform::TableDefinition& table : tables) {
    connection.Execute(CreateTableText(file, table));
    for (const std::string& text : CreateIndexTexts(file, table)) connection.Execute(text);
  }
  transaction.Commit();
}

}  // namespace

bool MoveIntoPlace(const std::string& from, const std::string& to) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
  if (errno == EEXIST) return false;
  // File systems that can't rename so.
  if (::link(from.c_str(), to.c_str()) == 0) {
    ::unlink(from.c_str());
    return true;
  }
  if (errno == EEXIST || ::access(to.c_str(), F_OK) == 0) return false;
  if (std::rename(from.c_str(), to.c_str()) != 0) throw errors::DiskOrNetwork();
  return true;
}

namespace files {

void CreateDataFile(const std::string& path, std::span<const platform::TableDefinition> tables, bool workFile) {
  RequireNewPath(path);
  const UnfinishedFile file(path);
  MakeEmptyStore(file.Path(), path);
  {
    Connection connection(kToolLockWait);
    connection.NameFile(1, path);
    connection.Execute("ATTACH " + QuoteText(file.Path()) + " AS \"f1\"");
    connection.Execute(std::string("PRAGMA \"f1\".synchronous=") + (workFile ? "OFF" : "FULL"));
    WriteTables(connection, tables, workFile);
  }
  if (!MoveIntoPlace(file.Path(), path)) throw FileExistsAlready(path);
}

bool DataFileExists(const std::string& path) { return ::access(path.c_str(), F_OK) == 0; }

void RemoveDataFile(const std::string& path) {
  for (const char* suffix : {"-wal", "-shm", "-journal", ""}) std::remove((path + suffix).c_str());
}

}  // namespace files

}  // namespace engine
