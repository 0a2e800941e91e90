#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "engine/catalogue/database_catalogue.h"
#include "engine/catalogue/engine_context.h"
#include "engine/rows/row_source.h"

namespace engine {

/// What statements mean that were opened before, by their texts.
class KnownShapes {
 public:
  bool Contains(std::string_view source) const { return shapes_.contains(source); }
  /// nullptr for one that isn't known or whose tables have changed since.
  std::shared_ptr<const RowShape> Find(std::string_view source, const DatabaseCatalogue& catalogue);
  void Keep(std::string_view source, std::shared_ptr<const RowShape> shape);

 private:
  std::map<std::string, std::shared_ptr<const RowShape>, std::less<>> shapes_;
};

/// What all databases that are open on one file know of it: its own tables, and what statements mean that ask these alone. A screen
/// that comes and goes opens a database each time.
class FileMeanings {
 public:
  FileMeanings(EngineContext& context, std::shared_ptr<StoreFile> file)
      : file_(file), tables_(context, file, file->Path()), dialect_(context.OwnDialect()) {}

  bool Contains(std::string_view source) const { return shapes_.Contains(source); }
  std::shared_ptr<const RowShape> Find(std::string_view source) { return shapes_.Find(source, tables_); }
  /// Plans a statement for one of the databases. What it means to that one alone is kept in `ownShapes`.
  std::shared_ptr<const RowShape> Plan(std::string_view source, DatabaseCatalogue& catalogue, KnownShapes& ownShapes);

 private:
  class TablesFirst;

  std::shared_ptr<StoreFile> file_;
  DatabaseCatalogue tables_;  ///< asked for no links
  const Dialect& dialect_;
  KnownShapes shapes_;
};

/// By file, as long as a database is open on it.
class MeaningsByFile {
 public:
  std::shared_ptr<FileMeanings> Of(EngineContext& context, const std::shared_ptr<StoreFile>& file);

 private:
  std::map<const StoreFile*, std::weak_ptr<FileMeanings>> files_;
};

}  // namespace engine
