#include <span>
#include <vector>

#include "engine/errors.h"
#include "engine/store/link_paths.h"
#include "engine/store/sqlite/files/opened_file.h"
#include "engine/store/sqlite/files/tools.h"
#include "engine/store/sqlite/names.h"

namespace engine {

namespace files {

std::vector<FileLink> LinksOf(const std::string& path) {
  const OpenedFile opened(path);
  std::vector<FileLink> links;
  for (const StoredLink& link : opened.file->Links()) links.push_back({link.name, FullLinkPath(link.path, path), link.source});
  return links;
}

void PointLinks(const std::string& path, std::span<const FileLink> links) {
  OpenedFile opened(path);
  Connection& connection = opened.connection;
  const auto& file = opened.file;
  if (file->ReadOnly()) throw errors::ReadOnly();
  Transaction transaction(connection, Transaction::Kind::Write);
  for (const FileLink& link : links) {
    const std::string stored = LinkPathToStore(link.path, RealFolder(FolderOfPath(link.path)), file->Path());
    connection.Execute("UPDATE " + QuoteName(file->Qualifier()) + '.' + QuoteName(kLinksTable) + " SET path = " + QuoteText(stored) +
                       ", source = " + QuoteText(link.source) + " WHERE name = " + QuoteText(link.name));
  }
  transaction.Commit();
}

}  // namespace files

}  // namespace engine
