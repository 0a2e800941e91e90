#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

/// Files of the host, by host paths.
namespace suite {

/// Bytes of a regular file; raises 53 when it is missing or no file, 76 when its folder is missing.
std::int64_t HostFileLength(const std::string& path);

/// The first `limit` bytes of a regular file; nothing for everything else (missing, a folder, no right to read).
std::optional<std::string> ReadFileStart(const std::string& path, std::size_t limit);

}  // namespace suite
