#include "engine/store/link_paths.h"

#include <filesystem>

#include "platform/services/data_path.h"

namespace engine {
namespace {

// Stands before the name of a file in the same folder. No path begins so, since a path may also be one within the program's
// working folder.
constexpr std::string_view kInFolder = "{folder}/";

}  // namespace

std::string FolderOfPath(const std::string& path) {
  const auto separator = path.find_last_of("/\\");
  if (separator != std::string::npos) return path.substr(0, separator + 1);
  const bool drive = path.size() >= 2 && path[1] == ':';
  return drive ? path.substr(0, 2) : std::string();
}

std::string RealFolder(const std::string& folder) {
  // A folder on a server is what its path says.
  if (platform::IsServerPath(folder)) return folder.substr(0, folder.find_last_not_of('/') + 1);
  std::error_code problem;
  const auto real = std::filesystem::canonical(folder.empty() ? "." : folder, problem);
  return problem ? std::string() : real.string();
}

std::string LinkPathToStore(const std::string& path, const std::string& folder, const std::string& file) {
  if (folder.empty() || std::filesystem::path(file).parent_path() != folder) return path;
  return std::string(kInFolder) + path.substr(FolderOfPath(path).size());
}

std::string FullLinkPath(const std::string& stored, const std::string& database) {
  if (!stored.starts_with(kInFolder)) return stored;
  return FolderOfPath(database) + stored.substr(kInFolder.size());
}

}  // namespace engine
