#include "engine/store/counter_field.h"
#include "engine/store/link_paths.h"
#include "engine/store/postgres/files/opened_schema.h"
#include "engine/store/postgres/files/tools.h"
#include "engine/store/postgres/schema/definitions.h"
#include "engine/store/postgres/wording/names.h"
#include "engine/store/query.h"
#include "platform/values/text.h"

namespace engine::postgres {

bool DataFileExists(const std::string& path) {
  ToolConnection tool(path);
  Query query(tool.connection, std::string_view("SELECT 1 FROM pg_namespace WHERE nspname = $1"));
  query.Bind(1, std::string_view(tool.target.schema));
  return query.Step();
}

void CreateDataFile(const std::string& path, std::span<const platform::TableDefinition> tables) {
  ToolConnection tool(path);
  CreateServerFile(tool.connection, tool.target.schema, tables);
}

void RemoveDataFile(const std::string& path) {
  ToolConnection tool(path);
  const std::string drop = "DROP SCHEMA IF EXISTS " + QuoteName(tool.target.schema) + " CASCADE";
  tool.connection.ExecuteAll({&drop, 1}, tool.target.schema);
}

std::vector<std::string> ServerToolWords(const std::string& path) {
  // Values of a connection text stand in single quotes.
  const auto quoted = [](const std::string& value) {
    std::string text = "'";
    for (const char c : value) text += c == '\'' || c == '\\' ? std::string{'\\', c} : std::string(1, c);
    return text + "'";
  };
  const Target target = ParseTarget(path);
  return {"--dbname=host=" + quoted(target.hosts) + " port=" + quoted(target.ports) + " dbname=" + quoted(target.database),
          "--schema=" + QuoteName(target.schema)};
}

std::int64_t LastNumberOf(const std::string& path, std::string_view table) {
  OpenedSchema opened(path);
  const platform::TableDefinition definition = opened.Table(table);
  const platform::FieldDefinition* const counter = CounterOf(definition);
  if (counter == nullptr) return 0;
  const std::string& schema = opened.target.schema;
  return AskNumber(opened.connection, "SELECT greatest((SELECT coalesce(max(" + QuoteName(counter->name) + "), 0) FROM " + QuoteName(schema) + '.' +
                                          QuoteName(definition.name) + "), CASE WHEN is_called THEN last_value ELSE 0 END) FROM " +
                                          SequenceOf(schema, definition.name))
      .value_or(0);
}

// ---- links

std::vector<FileLink> LinksOf(const std::string& path) {
  OpenedSchema opened(path);
  std::vector<FileLink> links;
  for (const StoredLink& link : opened.file.Links()) links.push_back({link.name, FullLinkPath(link.path, path), link.source});
  return links;
}

void PointLinks(const std::string& path, std::span<const FileLink> links) {
  OpenedSchema opened(path);
  opened.RequireWritable();
  Transaction together(opened.connection, Transaction::Kind::Write);
  for (const FileLink& link : links) {
    Query query(opened.connection, std::string_view("UPDATE " + QuoteName(opened.target.schema) + '.' + QuoteName(kLinksTable) +
                                                    " SET path = $1, source = $2 WHERE lower(name) = lower($3)"));
    query.Bind(1, std::string_view(LinkPathToStore(link.path, RealFolder(FolderOfPath(link.path)), path)));
    query.Bind(2, std::string_view(link.source));
    query.Bind(3, std::string_view(link.name));
    query.Run();
  }
  together.Commit();
}

void DropTable(const std::string& path, std::string_view table) {
  OpenedSchema opened(path);
  const std::string own = QuoteName(opened.target.schema) + '.';
  for (const StoredLink& link : opened.file.Links()) {
    if (!platform::EqualsNoCase(link.name, table)) continue;
    Query query(opened.connection, std::string_view("DELETE FROM " + own + QuoteName(kLinksTable) + " WHERE name = $1"));
    query.Bind(1, std::string_view(link.name));
    return query.Run();
  }
  const std::string drop = "DROP TABLE " + own + QuoteName(opened.Table(table).name);
  opened.connection.ExecuteAll({&drop, 1}, opened.target.schema);
}

}  // namespace engine::postgres
