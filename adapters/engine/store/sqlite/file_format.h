#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "engine/data_file.h"
#include "platform/values/error.h"

/// What a data file is before the store opens it, and the errors that say why it can't be used.
namespace engine {

/// Version of the layout that this engine writes and the newest that it reads.
inline constexpr int kFileFormat = 1;

platform::Error NewerFormat(const std::string& path);        ///< 3343, made by a newer version
platform::Error FileExistsAlready(const std::string& path);  ///< 3204
platform::Error OnNetwork(const std::string& path);          ///< 3043, a file that may only lie on a local disk
platform::Error CantBeReadAlone(const std::string& path);    ///< 3051, for want of the right to write beside the file

using NetworkTest = std::function<bool(const std::string& path)>;

/// The path that names a file in one way only (links followed). Raises 3044 for a malformed path or a missing folder,
/// 3024 for a missing file, 3051 for a folder; the errors name the file by `asked`.
std::string CanonicalPath(std::string_view path, const std::string& asked);

/// Whether the store's log with writes lies beside the file.
bool HasLog(const std::string& path);

/// Whether the file has no right to write for anybody, so that it stays as it is.
bool NobodyMayWrite(const std::string& path);
/// Whether this process may make files beside it.
bool MayWriteBeside(const std::string& path);

/// Looks at a file's first page: 3343 for an empty file, one of another format, or one that must be imported first; 3049 for a
/// truncated or damaged one; 3051 when it may not be read. The errors name the file by `asked`.
void RequireDataFile(const std::string& path, const std::string& asked);

}  // namespace engine
