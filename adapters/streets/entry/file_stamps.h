#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace streets {

/// What tells whether a file is still the same: its place on the disk, its size and when it was written. All 0: it is not there.
struct FileStamp {
  std::uint64_t place = 0;
  std::int64_t size = 0;
  std::int64_t written = 0;
  bool operator==(const FileStamp&) const = default;
};

std::vector<FileStamp> StampsOf(const std::vector<std::string>& files);

}  // namespace streets
