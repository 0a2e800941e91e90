#include <algorithm>
#include <cassert>

#include "engine/errors.h"
#include "engine/store/sqlite/connection.h"
#include "engine/store/sqlite/data_files.h"
#include "engine/store/sqlite/files/tools.h"
#include "engine/store/sqlite/names.h"
#include "engine/store/sqlite/schema.h"
#include "engine/values/field_values.h"
#include "platform/values/text.h"

namespace engine {
namespace {

constexpr int kLockWait = 10'000;

class TableBulkWriter final : public BulkWriter {
 public:
  TableBulkWriter(const std::string& path, std::string_view table, std::span<const std::string> fields)
      : connection_(kLockWait), files_(connection_, [](const std::string&) { return false; }), file_(files_.Open(path)) {
    if (file_->ReadOnly()) throw errors::ReadOnly();
    // Room for sorting the indexes; everything reaches the disk in Finish.
    connection_.Execute("PRAGMA " + file_->Qualifier() + ".cache_size=-131072");
    connection_.Execute("PRAGMA " + file_->Qualifier() + ".synchronous=OFF");
    connection_.Execute("PRAGMA wal_autocheckpoint=0");
    table_ = ReadTable(connection_, file_->Qualifier(), StoredName(table));
    ChooseFields(fields);
    transaction_.emplace(connection_, Transaction::Kind::Write);
    dropsIndexes_ = AskNumber(connection_, "SELECT 1 FROM " + StoreName() + " LIMIT 1") == std::nullopt;
    if (dropsIndexes_)
      for (const std::string& text : DropIndexTexts(file_->Qualifier(), table_)) connection_.Execute(text);
    insert_.emplace(connection_, std::string_view(InsertText()));
  }

  void Add(std::span<const platform::Value> row) override {
    assert(row.size() == fields_.size());
    for (std::size_t i = 0; i < row.size(); ++i) insert_->Bind(static_cast<int>(i) + 1, ConvertForField(LocalNow, *fields_[i], row[i]));
    insert_->Run();
    insert_->Again();
  }

  void Finish() override {
    insert_.reset();
    if (dropsIndexes_)
      for (const std::string& text : CreateIndexTexts(file_->Qualifier(), table_)) connection_.Execute(text);
    connection_.Execute("PRAGMA analysis_limit=1000");
    connection_.Execute("ANALYZE " + StoreName());
    transaction_->Commit();
    transaction_.reset();
    connection_.Execute("PRAGMA " + file_->Qualifier() + ".synchronous=FULL");
    connection_.Execute("PRAGMA " + file_->Qualifier() + ".wal_checkpoint(TRUNCATE)");
  }

 private:
  std::string StoreName() const { return QuoteName(file_->Qualifier()) + '.' + QuoteName(table_.name); }

  std::string StoredName(std::string_view table) {
    for (const std::string& name : file_->TableNames())
      if (platform::EqualsNoCase(name, table)) return name;
    throw errors::ObjectNotFound(table);
  }

  void ChooseFields(std::span<const std::string> names) {
    for (const std::string& name : names) {
      const auto found = std::ranges::find_if(table_.fields, [&](const auto& field) { return platform::EqualsNoCase(field.name, name); });
      if (found == table_.fields.end()) throw platform::error::ItemNotFound();
      fields_.push_back(&*found);
    }
  }

  std::string InsertText() const {
    std::string names;
    std::string places;
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      names += (i == 0 ? "" : ", ") + QuoteName(fields_[i]->name);
      places += (i == 0 ? "?" : ", ?") + std::to_string(i + 1);
    }
    return "INSERT INTO " + StoreName() + " (" + names + ") VALUES (" + places + ")";
  }

  Connection connection_;
  DataFiles files_;
  std::shared_ptr<AttachedFile> file_;
  platform::TableDefinition table_;
  std::vector<const platform::FieldDefinition*> fields_;
  std::optional<Transaction> transaction_;
  bool dropsIndexes_ = false;
  std::optional<Query> insert_;
};

}  // namespace

namespace files {

std::unique_ptr<BulkWriter> OpenBulkWriter(const std::string& path, std::string_view table, std::span<const std::string> fields) {
  return std::make_unique<TableBulkWriter>(path, table, fields);
}

}  // namespace files

}  // namespace engine
