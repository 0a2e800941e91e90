#include <algorithm>

#include "engine/data_file.h"
#include "engine/errors.h"
#include "engine/store/sqlite/connection.h"
#include "engine/store/sqlite/data_files.h"
#include "engine/store/sqlite/names.h"
#include "platform/values/text.h"

namespace engine {
namespace {
constexpr int kLockWait = 2000;
}

void DropTable(const std::string& path, std::string_view table) {
  Connection connection(kLockWait);
  DataFiles files(connection, [](const std::string&) { return false; });
  const auto file = files.Open(path);
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

}  // namespace engine
