#include "engine/catalogue/database_catalogue.h"

#include "engine/catalogue/stores.h"
#include "engine/store/link_paths.h"
#include "platform/values/text.h"

namespace engine {
namespace {

constexpr std::string_view kConnectStart = ";DATABASE=";

// The path in a link's Connect text.
std::string PathOfConnect(std::string_view connect) {
  if (connect.size() <= kConnectStart.size() || !platform::EqualsNoCase(connect.substr(0, kConnectStart.size()), kConnectStart))
    throw errors::InvalidOperation();
  std::string_view path = connect.substr(kConnectStart.size());
  return std::string(path.substr(0, path.find(';')));
}

}  // namespace

const ResolvedTable* DatabaseCatalogue::FindIn(EngineContext& context, const std::shared_ptr<StoreFile>& file, std::string_view name,
                                               bool linked) {
  const bool elsewhere = &context != &context_;
  const std::string key = (elsewhere ? "!" : "") + file->Qualifier() + (linked ? "@" : ".") + platform::ToLowerAscii(name);
  const std::int64_t version = file->SchemaVersion();
  std::unique_ptr<ResolvedTable>& known = known_[key];
  // Several other stores may have a file of that name each.
  const bool same = known != nullptr && (!elsewhere || known->elsewhere == &context.OwnStore());
  if (same && known->schemaVersion == version) return known.get();

  const std::string stored = file->StoredName(name);
  if (known != nullptr) outdated_.push_back(std::move(known));
  if (stored.empty()) return nullptr;
  auto table = std::make_unique<ResolvedTable>();
  const Dialect& dialect = context.OwnDialect();
  table->definition = file->ReadTable(stored);
  table->storeName = dialect.Name(file->Qualifier()) + '.' + dialect.Name(stored);
  table->rowKey = dialect.Name(file->RowKeyOf(table->definition));
  table->linked = linked;
  table->file = file;
  table->schemaVersion = version;
  if (elsewhere) table->elsewhere = &context.OwnStore();
  known = std::move(table);
  return known.get();
}

const ResolvedTable* DatabaseCatalogue::FindTable(std::string_view name) {
  if (const ResolvedTable* own = FindIn(file_, name, false)) return own;
  for (const StoredLink& link : file_->Links()) {
    if (!platform::EqualsNoCase(link.name, name)) continue;
    const ResolvedTable* linked = FindIn(context_.Open(FullLinkPath(link.path, name_)), link.source, true);
    if (linked == nullptr) throw errors::ObjectNotFound(link.source);
    return linked;
  }
  return nullptr;
}

const ResolvedTable* DatabaseCatalogue::FindTable(std::string_view name, std::string_view inFile) {
  const auto file = context_.Open(inFile);
  if (file == file_) return FindTable(name);
  return FindIn(file, name, false);
}

const ResolvedTable* DatabaseCatalogue::FindTarget(std::string_view name, std::string_view inFile) {
  const Stores::Opened there = context_.AllStores().Open(inFile);
  if (there.file == file_) return FindTable(name);
  return FindIn(there.context, there.file, name, false);
}

bool DatabaseCatalogue::StandsAsPlanned(const SelectPlan& plan) const {
  const std::int64_t version = file_->SchemaVersion();
  for (const PlanTable& table : plan.tables) {
    const ResolvedTable& stored = *table.table;
    if (stored.file != file_ || stored.linked || stored.schemaVersion != version) return false;
  }
  return true;
}

std::vector<platform::TableDef> DatabaseCatalogue::ReadTableDefs() {
  std::vector<platform::TableDef> definitions;
  for (std::string& name : file_->TableNames()) definitions.push_back({std::move(name), "", ""});
  for (StoredLink& link : file_->Links())
    definitions.push_back({link.name, std::string(kConnectStart) + FullLinkPath(link.path, name_), link.source});
  return definitions;
}

std::vector<platform::TableDef> DatabaseCatalogue::TableDefs() {
  auto definitions = ReadTableDefs();
  seen_.emplace();
  for (const platform::TableDef& definition : definitions) seen_->insert(definition.Name);
  return definitions;
}

bool DatabaseCatalogue::IsMadeAlready(const platform::TableDef& definition) {
  for (const platform::TableDef& there : ReadTableDefs()) {
    if (!platform::EqualsNoCase(there.Name, definition.Name)) continue;
    const bool anothers = seen_ && !seen_->contains(there.Name);
    if (!anothers || there.Connect.empty() || there.Name != definition.Name ||
        !platform::EqualsNoCase(there.SourceTableName, definition.SourceTableName) ||
        context_.Open(PathOfConnect(there.Connect)) != context_.Open(PathOfConnect(definition.Connect)))
      throw errors::ObjectExists(definition.Name);
    return true;
  }
  return false;
}

void DatabaseCatalogue::AppendLink(const platform::TableDef& definition) {
  if (definition.Name.empty() || definition.Name.front() == kOwnNameMark) throw errors::InvalidOperation();
  if (IsMadeAlready(definition)) return;
  const std::string path = PathOfConnect(definition.Connect);
  const auto target = context_.Open(path);
  if (target->StoredName(definition.SourceTableName).empty()) throw errors::ObjectNotFound(definition.SourceTableName);

  // In one folder for the program, and in one folder where the file really lies.
  const std::string folder = RealFolder(context_.HostPath(FolderOfPath(path)));
  const bool asOpened = folder == RealFolder(context_.HostPath(FolderOfPath(name_)));
  const std::string stored = asOpened ? LinkPathToStore(path, folder, file_->Path()) : path;
  try {
    file_->AddLink({definition.Name, stored, definition.SourceTableName});
  } catch (const platform::Error& error) {
    if (error.Number() != errors::number::ObjectExists || !IsMadeAlready(definition)) throw;
    return;
  }
  if (seen_) seen_->insert(definition.Name);
}

}  // namespace engine
