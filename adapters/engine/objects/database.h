#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/catalogue/database_catalogue.h"
#include "engine/catalogue/engine_context.h"
#include "engine/cursor/cursor.h"
#include "engine/objects/file_meanings.h"
#include "platform/data/data.h"

namespace engine {

/// One opened file. It owns its recordsets and, through the catalogue, keeps its file and those of its links attached.
class OpenDatabase final : public platform::Database, public RecordsetOwner {
 public:
  /// `onClose` takes it out of the collection that owns it.
  OpenDatabase(EngineContext& context, MeaningsByFile& meanings, std::shared_ptr<StoreFile> file, std::string name,
               std::function<void(const OpenDatabase&)> onClose);
  ~OpenDatabase() override;

  const std::string& Name() const override { return name_; }
  platform::RecordsetRef OpenRecordset(std::string_view source, platform::RecordsetType type) override;
  void Execute(std::string_view sql, int options) override;
  std::int32_t RecordsAffected() const override { return recordsAffected_; }

  platform::TableDef CreateTableDef(std::string_view name) override { return {std::string(name), "", ""}; }
  int TableDefCount() override { return static_cast<int>(catalogue_->TableDefs().size()); }
  platform::TableDef TableDefAt(int index) override;
  void AppendTableDef(const platform::TableDef& definition) override { catalogue_->AppendLink(definition); }

  int RecordsetCount() override { return static_cast<int>(recordsets_.size()); }
  platform::RecordsetRef RecordsetAt(int index) override;
  void RefreshRecordsets() override {}

  void Close() override;

  platform::RecordsetRef Adopt(std::shared_ptr<platform::Recordset> recordset) override;
  void Release(const platform::Recordset& recordset) override;

 private:
  std::shared_ptr<Cursor> OpenTable(std::string_view source, const ResolvedTable& table);
  std::shared_ptr<Cursor> OpenDynaset(std::string_view source, platform::RecordsetType type);

  std::shared_ptr<Cursor> OpenShape(std::string_view source, platform::RecordsetType type, std::shared_ptr<const RowShape> shape);
  /// What a statement opened before means; nullptr when its tables have changed.
  std::shared_ptr<const RowShape> KnownShape(std::string_view source);

  EngineContext& context_;
  std::shared_ptr<FileMeanings> file_;
  std::shared_ptr<DatabaseCatalogue> catalogue_;  ///< keeps what recordsets know of the file
  KnownShapes shapes_;                            ///< of statements that mean something to this database alone
  std::string name_;
  std::function<void(const OpenDatabase&)> onClose_;
  std::vector<std::shared_ptr<platform::Recordset>> recordsets_;
  std::int32_t recordsAffected_ = 0;
};

}  // namespace engine
