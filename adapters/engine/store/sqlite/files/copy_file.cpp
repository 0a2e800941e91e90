#include "engine/store/sqlite/files/copy_file.h"

#include <sqlite3.h>
#include <unistd.h>

#include <cstdio>

#include "engine/data_file.h"
#include "engine/errors.h"
#include "engine/store/sqlite/files/opened_file.h"

namespace engine {
namespace {

constexpr int kPagesAStep = 2048;

std::string FolderOf(const std::string& path) {
  const auto slash = path.rfind('/');
  return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

/// All pages, step by step; the store's result.
int CopyPages(sqlite3_backup* backup, const std::function<void(int, int)>& progress) {
  int code = SQLITE_OK;
  while ((code = sqlite3_backup_step(backup, kPagesAStep)) == SQLITE_OK || code == SQLITE_BUSY || code == SQLITE_LOCKED) {
    const int all = sqlite3_backup_pagecount(backup);
    if (progress) progress(all - sqlite3_backup_remaining(backup), all);
    if (code != SQLITE_OK) sqlite3_sleep(20);
  }
  const int all = sqlite3_backup_pagecount(backup);
  if (code == SQLITE_DONE && progress) progress(all, all);
  return code;
}

}  // namespace

void RequireNewPath(const std::string& path) {
  if (path.empty() || path.back() == '/' || path.find('\0') != std::string::npos) throw errors::InvalidPath(path);
  if (::access(FolderOf(path).c_str(), F_OK) != 0) throw errors::InvalidPath(path);
  if (::access(path.c_str(), F_OK) == 0) throw FileExistsAlready(path);
  if (LiesOnNetwork(FolderOf(path))) throw OnNetwork(path);
}

void CopyAttachedFile(Connection& connection, const std::string& alias, const std::string& to,
                      const std::function<void(int, int)>& progress) {
  sqlite3* target = nullptr;
  int code = sqlite3_open_v2(to.c_str(), &target, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
  if (code == SQLITE_OK) {
    sqlite3_backup* backup = sqlite3_backup_init(target, "main", connection.Handle(), alias.c_str());
    code = backup != nullptr ? CopyPages(backup, progress) : sqlite3_errcode(target);
    sqlite3_backup_finish(backup);
  }
  sqlite3_close(target);
  if (code == SQLITE_DONE) return;
  std::remove(to.c_str());
  if (code == SQLITE_CANTOPEN) throw errors::OpenedExclusively(to);
  connection.Raise(code, true, 1);
}

void BackupDataFile(const std::string& from, const std::string& to, const std::function<void(int, int)>& progress) {
  RequireNewPath(to);
  OpenedFile opened(from);
  Connection& connection = opened.connection;
  const auto& source = opened.file;

  // One reading transaction over the whole copy: writers go on, and the copy shows one moment.
  Transaction snapshot(connection, Transaction::Kind::Read);
  source->TableNames();
  CopyAttachedFile(connection, source->Qualifier(), to, progress);
}

}  // namespace engine
