#include "streets/entry/file_stamps.h"

#include <sys/stat.h>

namespace streets {

namespace {

FileStamp StampOf(const std::string& file) {
  struct stat told {};
  if (::stat(file.c_str(), &told) != 0) return {};
  constexpr std::int64_t kNanoseconds = 1'000'000'000;
  return {told.st_ino, told.st_size, told.st_mtim.tv_sec * kNanoseconds + told.st_mtim.tv_nsec};
}

}  // namespace

std::vector<FileStamp> StampsOf(const std::vector<std::string>& files) {
  std::vector<FileStamp> stamps;
  for (const std::string& file : files) stamps.push_back(StampOf(file));
  return stamps;
}

}  // namespace streets
