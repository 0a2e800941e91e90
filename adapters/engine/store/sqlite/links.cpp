#include <span>
#include <vector>

#include "engine/data_file.h"
#include "engine/errors.h"
#include "engine/store/link_paths.h"
#include "engine/store/sqlite/connection.h"
#include "engine/store/sqlite/data_files.h"
#include "engine/store/sqlite/names.h"

namespace engine {
namespace {

constexpr int kLockWait = 2000;

}  // namespace

std::vector<FileLink> LinksOf(const std::string& path) {
  Connection connection(kLockWait);
  DataFiles files(connection, [](const std::string&) { return false; });
  std::vector<FileLink> links;
  for (const StoredLink& link : files.Open(path)->Links()) links.push_back({link.name, FullLinkPath(link.path, path), link.source});
  return links;
}

void PointLinks(const std::string& path, std::span<const FileLink> links) {
  Connection connection(kLockWait);
  DataFiles files(connection, [](const std::string&) { return false; });
  const auto file = files.Open(path);
  if (file->ReadOnly()) throw errors::ReadOnly();
  Transaction transaction(connection, Transaction::Kind::Write);
  for (const FileLink& link : links) {
    const std::string stored = LinkPathToStore(link.path, RealFolder(FolderOfPath(link.path)), file->Path());
    connection.Execute("UPDATE " + QuoteName(file->Qualifier()) + '.' + QuoteName(kLinksTable) + " SET path = " + QuoteText(stored) +
                       ", source = " + QuoteText(link.source) + " WHERE name = " + QuoteText(link.name));
  }
  transaction.Commit();
}

}  // namespace engine
