#include "engine/objects/joined_stores.h"

#include <algorithm>
#include <string>

#include "engine/catalogue/stores.h"
#include "engine/errors.h"
#include "platform/data/row_stream.h"
#include "platform/values/text.h"

namespace engine {
namespace {

EngineContext& HomeOf(const AskedTables& asked, std::string_view path) {
  for (EngineContext* context : asked.Found())
    if (context->OwnStore().TakesGuests()) return *context;
  throw errors::OtherStore(path);
}

// 3027, with the reason.
platform::Error NoGuests(std::string_view path, std::string_view home) {
  const platform::Error plain = errors::ReadOnly();
  return {plain.Number(), plain.Description() + "  The rows of '" + std::string(path) + "' can't be joined with those of '" + std::string(home) +
                              "': that server takes no temporary tables from this user. It is a standby or read-only, or the user has no "
                              "right TEMPORARY on the database."};
}

// Once in so many rows it is asked whether to go on.
constexpr int kStretch = 512;

}  // namespace

// ---- as they are named

const ResolvedTable* AskedTables::FindTable(std::string_view name) { return Keep(own_.FindTable(name), context_); }

const ResolvedTable* AskedTables::FindTable(std::string_view name, std::string_view inFile) {
  EngineContext& there = context_.AllStores().Open(inFile).context;
  return Keep(own_.FindTarget(name, inFile), there);
}

const ResolvedTable* AskedTables::Keep(const ResolvedTable* table, EngineContext& context) {
  if (table == nullptr) return nullptr;
  contexts_[table] = &context;
  if (std::ranges::find(found_, &context) == found_.end()) found_.push_back(&context);
  return table;
}

std::shared_ptr<StoreFile> AskedTables::FileIn(const EngineContext& context) const {
  for (const auto& [table, owner] : contexts_)
    if (owner == &context) return table->file;
  return nullptr;
}

// ---- as they are at one place

JoinedStores::JoinedStores(AskedTables& asked, std::string_view path, std::string_view select, const std::function<bool()>& goOn)
    : asked_(asked),
      home_(HomeOf(asked, path)),
      path_(path),
      select_(select),
      goOn_(goOn),
      beside_(asked.FileIn(home_)),
      gathering_(std::make_unique<Gathering>(home_.OwnStore())) {}

const ResolvedTable* JoinedStores::AtHome(const ResolvedTable* table) {
  if (table == nullptr) return nullptr;
  std::unique_ptr<ResolvedTable>& known = gathering_->Known(table);
  if (known == nullptr) known = Brought(*table);
  return known.get();
}

std::unique_ptr<ResolvedTable> JoinedStores::Brought(const ResolvedTable& table) {
  auto brought = std::make_unique<ResolvedTable>(table);
  brought->elsewhere = nullptr;
  EngineContext& from = asked_.ContextOf(table);
  if (&from == &home_) return brought;

  brought->definition = Named(table.definition);
  GuestTable& guest = Receive(brought->definition);
  CarryRows(from, table, brought->definition, guest);
  brought->storeName = guest.Name();
  brought->rowKey = guest.RowKey();
  return brought;
}

// A store may take guests and yet be read-only at present, or for this user.
GuestTable& JoinedStores::Receive(const platform::TableDefinition& definition) {
  try {
    return gathering_->Keep(home_.OwnStore().Receive(definition, *beside_));
  } catch (const platform::Error& error) {
    if (error.Number() != errors::number::ReadOnly) throw;
    throw NoGuests(path_, beside_->Path());
  }
}

// The fields whose names stand in the statement, and the Counter, which is the row key.
platform::TableDefinition JoinedStores::Named(platform::TableDefinition table) const {
  const std::string words = platform::ToLowerAscii(select_);
  const bool all = words.find('*') != std::string::npos;
  const auto isNamed = [&](const platform::FieldDefinition& field) {
    return all || field.type == platform::FieldType::Counter || words.find(platform::ToLowerAscii(field.name)) != std::string::npos;
  };
  std::erase_if(table.fields, [&](const platform::FieldDefinition& field) { return !isNamed(field); });
  const auto isThere = [&](const std::string& name) {
    return std::ranges::any_of(table.fields,
                               [&](const platform::FieldDefinition& field) { return platform::EqualsNoCase(field.name, name); });
  };
  std::erase_if(table.indexes, [&](const platform::IndexDefinition& index) { return !std::ranges::all_of(index.fields, isThere); });
  return table;
}

void JoinedStores::CarryRows(EngineContext& from, const ResolvedTable& table, const platform::TableDefinition& named,
                             GuestTable& guest) const {
  std::string columns;
  std::vector<platform::FieldType> types;
  for (const platform::FieldDefinition& field : named.fields) {
    columns += (columns.empty() ? "" : ", ") + from.OwnDialect().Name(field.name);
    types.push_back(field.type);
  }
  if (columns.empty()) columns = table.rowKey;
  Transaction oneState(from.OwnStore(), Transaction::Kind::Read);
  Query query(from.OwnStore(), std::string_view("SELECT " + columns + " FROM " + table.storeName + " ORDER BY " + table.rowKey));
  std::vector<platform::Value> row;
  for (int read = 0; query.Step(); ++read) {
    if (goOn_ && read % kStretch == 0 && !goOn_()) throw platform::Error(platform::kReadingStopped, "Operation canceled by user.");
    row.clear();
    query.Append(row, 0, types);
    guest.Add(row);
  }
  guest.Finish();
}

}  // namespace engine
