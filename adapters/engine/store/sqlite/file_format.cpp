#include "engine/store/sqlite/file_format.h"

#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

#include "engine/errors.h"

namespace engine {
namespace {

constexpr std::size_t kHeaderSize = 100;
constexpr std::string_view storeMark("SQLite format 3\0", 16);
constexpr std::string_view formerMark("\0\1\0\0Standard ", 13);  // files of the suite's former engine

// Reads through the store's own file layer: closing a file by any other way would drop the locks that this process holds
// on it.
class RawFile {
 public:
  explicit RawFile(const std::string& path)
      : vfs_(sqlite3_vfs_find(nullptr)), memory_(static_cast<std::size_t>(vfs_->szOsFile) / sizeof(std::max_align_t) + 1) {
    file_ = reinterpret_cast<sqlite3_file*>(memory_.data());
    name_ = sqlite3_create_filename(path.c_str(), "", "", 0, nullptr);
    int flags = 0;
    code_ = vfs_->xOpen(vfs_, name_, file_, SQLITE_OPEN_READONLY | SQLITE_OPEN_MAIN_DB, &flags);
  }
  ~RawFile() {
    if (file_->pMethods != nullptr) file_->pMethods->xClose(file_);
    sqlite3_free_filename(const_cast<char*>(name_));
  }
  RawFile(const RawFile&) = delete;
  RawFile& operator=(const RawFile&) = delete;

  bool Opened() const { return code_ == SQLITE_OK; }
  std::int64_t Size() {
    sqlite3_int64 size = 0;
    return file_->pMethods->xFileSize(file_, &size) == SQLITE_OK ? size : -1;
  }
  std::string Start() {
    std::string bytes(kHeaderSize, '\0');
    const int code = file_->pMethods->xRead(file_, bytes.data(), static_cast<int>(bytes.size()), 0);
    return code == SQLITE_OK || code == SQLITE_IOERR_SHORT_READ ? bytes : std::string();
  }

 private:
  sqlite3_vfs* vfs_;
  std::vector<std::max_align_t> memory_;
  sqlite3_file* file_ = nullptr;
  const char* name_ = nullptr;
  int code_ = SQLITE_OK;
};

unsigned BigEndian(const std::string& bytes, std::size_t at, std::size_t count) {
  unsigned number = 0;
  for (std::size_t i = at; i < at + count; ++i) number = number << 8 | static_cast<unsigned char>(bytes[i]);
  return number;
}

// Whether the sizes that the first page tells fit the file. With a log beside it the file may still grow.
bool LooksWhole(const std::string& start, std::int64_t size, bool hasLog) {
  const unsigned told = BigEndian(start, 16, 2);
  const unsigned pageSize = told == 1 ? 65'536 : told;
  if (pageSize < 512 || (pageSize & (pageSize - 1)) != 0) return false;
  if (size < pageSize) return false;
  if (hasLog) return true;
  const std::int64_t pages = BigEndian(start, 28, 4);
  return size % pageSize == 0 && pages * pageSize <= size;
}

}  // namespace

platform::Error NewerFormat(const std::string& path) {
  return {3343,
          errors::UnrecognizedFormat(path).Description() + "  A newer version of this program made the file; this version can't use it."};
}

platform::Error FileExistsAlready(const std::string& path) {
  return {platform::error::number::FileExists, "Database '" + path + "' already exists."};
}

platform::Error OnNetwork(const std::string& path) {
  return {3043, errors::DiskOrNetwork().Description() + "  '" + path +
                    "' lies on a network file system, where several users can't share it safely.  Keep data files on a local "
                    "disk, or use the server store."};
}

platform::Error CantBeReadAlone(const std::string& path) {
  return {errors::number::OpenedExclusively,
          errors::OpenedExclusively(path).Description() +
              "  You may not write in its folder, so it can be read only while somebody who may has it open.  Ask for the right "
              "to write there, or work with a copy."};
}

bool NobodyMayWrite(const std::string& path) {
  struct stat state {};
  return ::stat(path.c_str(), &state) == 0 && (state.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

bool MayWriteBeside(const std::string& path) {
  const auto slash = path.rfind('/');
  return ::eaccess(slash == std::string::npos ? "." : path.substr(0, slash + 1).c_str(), W_OK) == 0;
}

bool LiesOnNetwork(const std::string& path) {
  struct statfs state {};
  if (::statfs(path.c_str(), &state) != 0) return false;
  // NFS, SMB, CIFS, SMB2, NCP, AFS (two kinds), Coda, Ceph, and 9P, by which virtual machines share folders of their host.
  constexpr std::array<unsigned long, 10> kShared{0x6969,     0x517B,     0xFF534D42, 0xFE534D42, 0x564C,
                                                 0x5346414F, 0x6B414653, 0x73757245, 0x00C36400, 0x01021997};
  const auto kind = static_cast<unsigned long>(state.f_type) & 0xFFFFFFFFUL;
  for (const unsigned long known : kShared)
    if (kind == known) return true;
  return false;
}

bool HasLog(const std::string& path) {
  struct stat state {};
  return ::stat((path + "-wal").c_str(), &state) == 0 && state.st_size > 0;
}

std::string CanonicalPath(std::string_view path, const std::string& asked) {
  const std::string text(path);
  if (text.empty() || text.find('\0') != std::string::npos) throw errors::InvalidPath(asked);
  std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(text.c_str(), nullptr), &std::free);
  if (!resolved) {
    if (errno == EACCES) throw errors::OpenedExclusively(asked);
    const auto slash = text.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : text.substr(0, slash + 1);
    struct stat state {};
    const bool folderThere = ::stat(folder.c_str(), &state) == 0 && S_ISDIR(state.st_mode);
    if (!folderThere || slash + 1 == text.size()) throw errors::InvalidPath(asked);
    throw errors::FileNotFound(asked);
  }
  struct stat state {};
  if (::stat(resolved.get(), &state) != 0) throw errors::FileNotFound(asked);
  if (!S_ISREG(state.st_mode)) throw errors::OpenedExclusively(asked);
  return resolved.get();
}

void RequireDataFile(const std::string& path, const std::string& asked) {
  RawFile file(path);
  if (!file.Opened()) throw errors::OpenedExclusively(asked);
  const std::int64_t size = file.Size();
  const std::string start = file.Start();
  if (size < 0 || start.empty()) throw errors::DiskOrNetwork();

  if (start.starts_with(formerMark))
    throw platform::Error(3343, errors::UnrecognizedFormat(asked).Description() +
                                    "  It is a file of the suite's former database engine and must be imported before it can be used.");
  if (size == 0 || !start.starts_with(storeMark)) throw errors::UnrecognizedFormat(asked);
  if (size < static_cast<std::int64_t>(kHeaderSize) || !LooksWhole(start, size, HasLog(path))) throw errors::NotADatabase(asked);
}

}  // namespace engine
