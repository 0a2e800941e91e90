#include "suitefiles/company/copying.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "suitefiles/program/command_line.h"

namespace suitefiles {

namespace fs = std::filesystem;

namespace {

/// Whether the disk has it. A file system that can't say so counts as one that has.
bool Sync(const std::string& path) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return false;
  const bool synced = ::fsync(file) == 0 || errno == EINVAL || errno == ENOTSUP;
  ::close(file);
  return synced;
}

}  // namespace

void CopyFile(const std::string& from, const std::string& to) {
  std::error_code problem;
  fs::copy_file(from, to, problem);
  if (!problem && !Sync(to)) problem = std::error_code(errno, std::generic_category());
  if (!problem) return;
  const std::string why = problem.message();
  if (problem != std::errc::file_exists) fs::remove(to, problem);
  throw CommandError(to + " can't be written: " + why);
}

void WriteFile(const std::string& path, const std::string& content) {
  std::ofstream file(path, std::ios::binary);
  file << content;
  file.close();
  if (!file) throw CommandError(path + " can't be written");
}

ScratchFolder::ScratchFolder(const std::string& in) : path_(in + "/suitefiles-XXXXXX") {
  if (::mkdtemp(path_.data()) == nullptr)
    throw CommandError("no folder can be made in " + in + ": " + std::generic_category().message(errno));
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

}  // namespace suitefiles
