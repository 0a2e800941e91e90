#include <unistd.h>

#include "engine/errors.h"
#include "engine/store/counter_field.h"
#include "engine/store/sqlite/file_format.h"
#include "engine/store/sqlite/files/copy_file.h"
#include "engine/store/sqlite/files/opened_file.h"
#include "engine/store/sqlite/files/tools.h"
#include "engine/store/sqlite/names.h"

namespace engine::files {
namespace {

// What is finished holds the file no longer: it can be moved.
class LeavingWriter final : public BulkWriter {
 public:
  explicit LeavingWriter(std::unique_ptr<BulkWriter> rows) : rows_(std::move(rows)) {}
  void Add(std::span<const platform::Value> row) override { rows_->Add(row); }
  void Finish() override {
    rows_->Finish();
    rows_.reset();
  }

 private:
  std::unique_ptr<BulkWriter> rows_;
};

// Made under a name that no other program uses, beside its later place.
class ComingFile final : public NewDataFile {
 public:
  ComingFile(const std::string& path, std::span<const platform::TableDefinition> tables)
      : path_(path), coming_(path + ".coming-" + std::to_string(::getpid())) {
    RequireNewPath(path);
    RemoveDataFile(coming_);
    files::CreateDataFile(coming_, tables, false);
  }
  ~ComingFile() override { RemoveDataFile(coming_); }
  ComingFile(const ComingFile&) = delete;
  ComingFile& operator=(const ComingFile&) = delete;

  std::unique_ptr<BulkWriter> Fill(std::string_view table, std::span<const std::string> fields) override {
    return std::make_unique<LeavingWriter>(files::OpenBulkWriter(coming_, table, fields));
  }

  void RaiseNumber(std::string_view table, std::int64_t last) override {
    OpenedFile opened(coming_);
    const std::string counters = QuoteName(opened.file->Qualifier()) + ".sqlite_sequence";
    const std::string name = QuoteText(opened.file->StoredName(table));
    Transaction together(opened.connection, Transaction::Kind::Write);
    opened.connection.Execute("INSERT INTO " + counters + " (name, seq) SELECT " + name + ", 0 WHERE NOT EXISTS (SELECT 1 FROM " + counters +
                              " WHERE name = " + name + ")");
    opened.connection.Execute("UPDATE " + counters + " SET seq = max(seq, " + std::to_string(last) + ") WHERE name = " + name);
    together.Commit();
  }

  void Finish() override {
    if (!MoveIntoPlace(coming_, path_)) throw FileExistsAlready(path_);
  }

 private:
  std::string path_;
  std::string coming_;
};

}  // namespace

std::unique_ptr<NewDataFile> MakeDataFile(const std::string& path, std::span<const platform::TableDefinition> tables) {
  return std::make_unique<ComingFile>(path, tables);
}

std::int64_t LastNumberOf(const std::string& path, std::string_view table) {
  OpenedFile opened(path);
  const std::string stored = opened.file->StoredName(table);
  if (stored.empty()) throw errors::ObjectNotFound(table);
  const platform::TableDefinition definition = opened.file->ReadTable(stored);
  const platform::FieldDefinition* const counter = CounterOf(definition);
  if (counter == nullptr) return 0;
  const std::string file = QuoteName(opened.file->Qualifier());
  return AskNumber(opened.connection, "SELECT max(ifnull((SELECT max(" + QuoteName(counter->name) + ") FROM " + file + '.' + QuoteName(stored) +
                                          "), 0), ifnull((SELECT seq FROM " + file + ".sqlite_sequence WHERE name = " + QuoteText(stored) + "), 0))")
      .value_or(0);
}

}  // namespace engine::files
