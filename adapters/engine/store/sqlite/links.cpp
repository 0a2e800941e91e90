#include "engine/store/sqlite/links.h"

#include <filesystem>
#include <span>
#include <vector>

#include "engine/data_file.h"
#include "engine/errors.h"
#include "engine/store/sqlite/connection.h"
#include "engine/store/sqlite/data_files.h"
#include "engine/store/sqlite/names.h"

namespace engine {
namespace {

constexpr int lockWait = 2000;

// Stands before the name of a file in the same folder. No path begins so, since a path may also be one within the program's
// working folder.
constexpr std::string_view inFolder = "{folder}/";

}  // namespace

std::string FolderOfPath(const std::string& path) {
  const auto separator = path.find_last_of("/\\");
  if (separator != std::string::npos) return path.substr(0, separator + 1);
  const bool drive = path.size() >= 2 && path[1] == ':';
  return drive ? path.substr(0, 2) : std::string();
}

std::string RealFolder(const std::string& folder) {
  std::error_code problem;
  const auto real = std::filesystem::canonical(folder.empty() ? "." : folder, problem);
  return problem ? std::string() : real.string();
}

std::string LinkPathToStore(const std::string& path, const std::string& folder, const std::string& file) {
  if (folder.empty() || std::filesystem::path(file).parent_path() != folder) return path;
  return std::string(inFolder) + path.substr(FolderOfPath(path).size());
}

std::string FullLinkPath(const std::string& stored, const std::string& database) {
  if (!stored.starts_with(inFolder)) return stored;
  return FolderOfPath(database) + stored.substr(inFolder.size());
}

std::vector<FileLink> LinksOf(const std::string& path) {
  Connection connection(lockWait);
  DataFiles files(connection, [](const std::string&) { return false; });
  std::vector<FileLink> links;
  for (const StoredLink& link : files.Open(path)->Links()) links.push_back({link.name, FullLinkPath(link.path, path), link.source});
  return links;
}

void PointLinks(const std::string& path, std::span<const FileLink> links) {
  Connection connection(lockWait);
  DataFiles files(connection, [](const std::string&) { return false; });
  const auto file = files.Open(path);
  if (file->ReadOnly()) throw errors::ReadOnly();
  Transaction transaction(connection, Transaction::Kind::Write);
  for (const FileLink& link : links) {
    const std::string stored = LinkPathToStore(link.path, RealFolder(FolderOfPath(link.path)), file->Path());
    connection.Execute("UPDATE " + QuoteName(file->Alias()) + '.' + QuoteName(linksTable) + " SET path = " + QuoteText(stored) +
                       ", source = " + QuoteText(link.source) + " WHERE name = " + QuoteText(link.name));
  }
  transaction.Commit();
}

}  // namespace engine
