#pragma once

#include <string>

/// How the path of a link is kept. A file in the folder of the link's own file is named within it, so that the folder may be
/// moved, copied, and seen under several paths; any other file has the path that the link's maker wrote.
namespace engine {

/// The path to store in `file` (its real path), of which `folder` is the real folder of the other one. `path`: as it was written.
std::string LinkPathToStore(const std::string& path, const std::string& folder, const std::string& file);

/// The stored path in full, for who opened the link's file as `database`.
std::string FullLinkPath(const std::string& stored, const std::string& database);

/// The folder of a path of either style, with its separator; "" for a bare name.
std::string FolderOfPath(const std::string& path);
/// The folder by its one real name, without a separator at its end; "" when there is none. "" is the working folder.
std::string RealFolder(const std::string& folder);

}  // namespace engine
