#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "engine/catalogue/engine_context.h"
#include "engine/translate/names/catalogue.h"
#include "engine/translate/plan/plan.h"

namespace engine {

/// Tables and links of one open database. Definitions are read when first asked for, and again when somebody has changed
/// the file's tables; those in use by open recordsets stay as they were.
class DatabaseCatalogue final : public Catalogue {
 public:
  /// `name`: the path by which the database was opened.
  DatabaseCatalogue(EngineContext& context, std::shared_ptr<StoreFile> file, std::string name)
      : context_(context), file_(std::move(file)), name_(std::move(name)) {}

  const ResolvedTable* FindTable(std::string_view name) override;
  const ResolvedTable* FindTable(std::string_view name, std::string_view inFile) override;
  const ResolvedTable* FindTarget(std::string_view name, std::string_view inFile) override;

  /// Whether the statement would be planned in the same way again. False for all that reaches into other files, since
  /// these can be replaced.
  bool StandsAsPlanned(const SelectPlan& plan) const;

  /// Base tables, then links.
  std::vector<platform::TableDef> ReadTableDefs();
  /// The same at the beginning of a walk through them: what is there now is what the walker sees, also when another program makes
  /// a link while he walks.
  std::vector<platform::TableDef> TableDefs();
  /// Stores a link; errors as Store::Open, 3011 for a table that isn't there, 3012 for a name that is taken. Taken by just this
  /// link since the tables were last looked through, by another program: then there is nothing left to do.
  void AppendLink(const platform::TableDef& definition);

 private:
  const ResolvedTable* FindIn(const std::shared_ptr<StoreFile>& file, std::string_view name, bool linked) {
    return FindIn(context_, file, name, linked);
  }
  const ResolvedTable* FindIn(EngineContext& context, const std::shared_ptr<StoreFile>& file, std::string_view name, bool linked);
  /// Whether the name is taken; raises 3012 unless it is by this link and by another program.
  bool IsMadeAlready(const platform::TableDef& definition);

  EngineContext& context_;
  std::shared_ptr<StoreFile> file_;
  std::string name_;
  std::optional<std::set<std::string>> seen_;                    ///< names when the tables were last looked through, and own links
  std::map<std::string, std::unique_ptr<ResolvedTable>> known_;  ///< by file, kind and name
  std::vector<std::unique_ptr<ResolvedTable>> outdated_;         ///< open recordsets may still use them
};

}  // namespace engine
