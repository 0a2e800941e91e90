#pragma once

#include <functional>
#include <string>

namespace engine {

class Connection;

/// Copies an attached file of a connection to a new path: the state that its open transaction sees, or the last one. What fails leaves
/// no copy. `progress` gets (pages done, pages in all).
void CopyAttachedFile(Connection& connection, const std::string& alias, const std::string& to,
                      const std::function<void(int, int)>& progress);

/// Refuses a path that is taken (3204), lies on a network (3043) or names no folder (3044).
void RequireNewPath(const std::string& path);

}  // namespace engine
