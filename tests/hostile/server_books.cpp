#include "hostile/server_books.h"

#include <map>
#include <sstream>
#include <stdexcept>

#include "platform/values/text.h"
#include "support/test_server.h"

namespace hostile {
namespace {

constexpr const char* kScheme = "postgresql://";
constexpr const char* kSchema = "orv1_customer";

// "postgresql://HOST/DATABASE/orv1/customer.zdb"
std::string DatabaseOf(const std::string& path) {
  const std::size_t host = path.find('/', std::string(kScheme).size());
  return path.substr(host + 1, path.find('/', host + 1) - host - 1);
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream all(text);
  for (std::string line; std::getline(all, line);) lines.push_back(line);
  return lines;
}

std::string Ask(const std::string& path, const std::string& sql) {
  const std::string said = TestServer::Shared().Run(DatabaseOf(path), sql);
  if (said.find("ERROR:") != std::string::npos || said.find("FATAL:") != std::string::npos) throw std::runtime_error(said);
  return said;
}

using Fields = std::map<std::string, std::vector<std::string>>;

// The fields of each table in their order; what the store keeps beside them begins with "~". No case changes a table.
const Fields& FieldsOfTables(const std::string& path) {
  static const Fields known = [&] {
    Fields fields;
    const std::string sql = std::string("SELECT table_name || '|' || column_name FROM information_schema.columns WHERE table_schema = '") + kSchema +
                            "' AND table_name NOT LIKE '~%' AND column_name NOT LIKE '~%' ORDER BY table_name, ordinal_position";
    for (const std::string& line : Lines(Ask(path, sql))) fields[line.substr(0, line.find('|'))].push_back(line.substr(line.find('|') + 1));
    if (fields.empty()) throw std::runtime_error("no tables in " + path);
    return fields;
  }();
  return known;
}

}  // namespace

bool IsOnServer(const std::string& customerFile) { return customerFile.starts_with(kScheme); }

std::vector<std::string> TablesOnServer(const std::string& customerFile) {
  std::vector<std::string> tables;
  for (const auto& table : FieldsOfTables(customerFile)) tables.push_back(table.first);
  return tables;
}

std::vector<ServerRow> RowsOnServer(const std::string& customerFile, const char* (*ownerField)(const std::string& table)) {
  std::string sql;
  for (const auto& table : FieldsOfTables(customerFile)) {
    const char* const wanted = ownerField(table.first);
    std::string owner = "0";
    std::string cells;
    for (const std::string& field : table.second) {
      if (wanted != nullptr && platform::EqualsNoCase(field, wanted)) owner = "coalesce(\"" + field + "\", 0)";
      cells += ", coalesce(translate(\"" + field + "\"::text, E'\\r\\n', '  '), 'Null')";
    }
    if (wanted != nullptr && owner == "0") throw std::runtime_error(table.first + " has no field " + wanted);
    sql += (sql.empty() ? "" : " UNION ALL ") + std::string("SELECT concat_ws('|', '") + table.first + "', " + owner + cells + ") FROM " + kSchema +
           ".\"" + table.first + '"';
  }
  std::vector<ServerRow> rows;
  for (const std::string& line : Lines(Ask(customerFile, sql))) {
    const std::size_t owner = line.find('|') + 1;
    const std::size_t text = line.find('|', owner) + 1;
    rows.push_back({line.substr(0, owner - 1), static_cast<std::int32_t>(std::stol(line.substr(owner))), line.substr(text)});
  }
  return rows;
}

bool WritableOnServer(const std::string& customerFile) {
  return Ask(customerFile,
             "SELECT count(*) FROM pg_stat_activity a WHERE a.datname = current_database() AND a.pid <> pg_backend_pid() AND "
             "(a.state LIKE 'idle in transaction%' OR EXISTS (SELECT 1 FROM pg_locks l WHERE l.pid = a.pid AND l.locktype = 'relation' AND l.mode IN "
             "('RowExclusiveLock', 'ShareLock', 'ShareRowExclusiveLock', 'ExclusiveLock', 'AccessExclusiveLock')))") == "0\n";
}

}  // namespace hostile
