#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string_view>
#include <vector>

#include "engine/catalogue/database_catalogue.h"
#include "engine/catalogue/engine_context.h"
#include "engine/store/query.h"
#include "engine/store/store.h"

namespace engine {

/// Names of a statement as a reader may use them: tables of other files may lie in other stores.
class AskedTables final : public Catalogue {
 public:
  AskedTables(DatabaseCatalogue& own, EngineContext& context) : own_(own), context_(context) {}

  const ResolvedTable* FindTable(std::string_view name) override;
  const ResolvedTable* FindTable(std::string_view name, std::string_view inFile) override;

  /// The stores of all tables that were found so far, the first one's first.
  const std::vector<EngineContext*>& Found() const { return found_; }
  /// A file of that store in which one of them lies.
  std::shared_ptr<StoreFile> FileIn(const EngineContext& context) const;
  EngineContext& ContextOf(const ResolvedTable& table) const { return *contexts_.at(&table); }

 private:
  const ResolvedTable* Keep(const ResolvedTable* table, EngineContext& context);

  DatabaseCatalogue& own_;
  EngineContext& context_;
  std::vector<EngineContext*> found_;
  std::map<const ResolvedTable*, EngineContext*> contexts_;
};

/// The tables of a statement over several stores, as they are at one place, and the rows that came there as guests. Whoever reads the
/// statement keeps it: the rows are there as long as this object, in the state in which the statement met them.
class Gathering {
 public:
  explicit Gathering(Store& home) : unit_(home, Transaction::Kind::Read) {}

  std::unique_ptr<ResolvedTable>& Known(const ResolvedTable* table) { return tables_[table]; }
  GuestTable& Keep(std::unique_ptr<GuestTable> guest) { return *guests_.emplace_back(std::move(guest)); }

 private:
  Transaction unit_;
  std::map<const ResolvedTable*, std::unique_ptr<ResolvedTable>> tables_;
  std::vector<std::unique_ptr<GuestTable>> guests_;
};

/// The same names for the planning of such a statement: it runs in the one store that takes guests, and the others' rows travel there,
/// those fields alone that the statement names. What it is given must live as long.
class JoinedStores final : public Catalogue {
 public:
  /// `path`: the file that was asked, for 3219 where no store takes guests, and 3027 where the one that does takes none at present.
  /// `goOn` may be empty; its no raises kReadingStopped.
  JoinedStores(AskedTables& asked, std::string_view path, std::string_view select, const std::function<bool()>& goOn);

  EngineContext& Home() const { return home_; }
  const ResolvedTable* FindTable(std::string_view name) override { return AtHome(asked_.FindTable(name)); }
  const ResolvedTable* FindTable(std::string_view name, std::string_view inFile) override { return AtHome(asked_.FindTable(name, inFile)); }

  /// For the reader, when all is planned.
  std::unique_ptr<Gathering> TakeGathering() { return std::move(gathering_); }

 private:
  const ResolvedTable* AtHome(const ResolvedTable* table);
  std::unique_ptr<ResolvedTable> Brought(const ResolvedTable& table);
  GuestTable& Receive(const platform::TableDefinition& definition);
  platform::TableDefinition Named(platform::TableDefinition table) const;
  void CarryRows(EngineContext& from, const ResolvedTable& table, const platform::TableDefinition& named, GuestTable& guest) const;

  AskedTables& asked_;
  EngineContext& home_;
  std::string_view path_;
  std::string_view select_;
  const std::function<bool()>& goOn_;
  std::shared_ptr<StoreFile> beside_;
  std::unique_ptr<Gathering> gathering_;
};

}  // namespace engine
