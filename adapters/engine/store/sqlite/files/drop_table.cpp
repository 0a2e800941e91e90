#include <algorithm>

#include "engine/errors.h"
#include "engine/store/sqlite/files/opened_file.h"
#include "engine/store/sqlite/files/tools.h"
#include "engine/store/sqlite/names.h"
#include "platform/values/text.h"

namespace engine {

namespace files {

void DropTable(const std::string& path, std::string_view table) {
  OpenedFile opened(path);
  Connection& connection = opened.connection;
  const auto& file = opened.file;
  const std::vector<std::string> tables = file->TableNames();
  const std::vector<StoredLink> links = file->Links();
  const auto isTable = std::find_if(tables.begin(), tables.end(), [&](const auto& name) { return platform::EqualsNoCase(name, table); });
  const auto isLink = std::find_if(links.begin(), links.end(), [&](const auto& link) { return platform::EqualsNoCase(link.name, table); });
  if (isLink != links.end()) {
    connection.Execute("DELETE FROM " + file->Qualifier() + "." + QuoteName(kLinksTable) + " WHERE name=" + QuoteText(isLink->name));
  } else if (isTable != tables.end()) {
    connection.Execute("DROP TABLE " + file->Qualifier() + "." + QuoteName(*isTable));
  } else {
    throw errors::ObjectNotFound(table);
  }
}

}  // namespace files

}  // namespace engine
