#include <optional>

#include "engine/store/find_by_name.h"
#include "engine/store/postgres/files/opened_schema.h"
#include "engine/store/postgres/files/tools.h"
#include "engine/store/postgres/schema/definitions.h"
#include "engine/store/postgres/table_copy.h"
#include "engine/store/postgres/wording/names.h"
#include "engine/store/query.h"

namespace engine::postgres {
namespace {

// The schema, its tables and their rows are one transaction. Indexes are built when all rows are there.
class ComingSchema final : public NewDataFile {
 public:
  ComingSchema(const std::string& path, std::span<const platform::TableDefinition> tables)
      : tool_(path), tables_(tables.begin(), tables.end()), unit_(tool_.connection, Transaction::Kind::Write) {
    std::vector<std::string> texts = CreateSchemaTexts(Schema());
    for (const platform::TableDefinition& table : tables_) texts.push_back(CreateTableText(Schema(), table));
    tool_.connection.ExecuteAll(texts, Schema());
  }

  std::unique_ptr<BulkWriter> Fill(std::string_view table, std::span<const std::string> fields) override {
    class Rows final : public BulkWriter {
     public:
      explicit Rows(std::unique_ptr<TableCopy> copy) : copy_(std::move(copy)) {}
      void Add(std::span<const platform::Value> row) override { copy_->Add(row); }
      void Finish() override {
        copy_->Finish();
        copy_.reset();
      }

     private:
      std::unique_ptr<TableCopy> copy_;
    };
    return std::make_unique<Rows>(std::make_unique<TableCopy>(tool_.connection, Schema(), Table(table), fields));
  }

  void RaiseNumber(std::string_view table, std::int64_t last) override { RaiseSequence(tool_.connection, Schema(), Table(table).name, last); }

  void Finish() override {
    std::vector<std::string> texts;
    for (const platform::TableDefinition& table : tables_) {
      for (std::string& text : CreateIndexTexts(Schema(), table)) texts.push_back(std::move(text));
      texts.push_back("ANALYZE " + QuoteName(Schema()) + '.' + QuoteName(table.name));
    }
    tool_.connection.ExecuteAll(texts, Schema());
    unit_.Commit();
  }

 private:
  const std::string& Schema() const { return tool_.target.schema; }
  const platform::TableDefinition& Table(std::string_view name) const {
    const platform::TableDefinition* const table = FindByName(tables_, name);
    if (table == nullptr) throw errors::ObjectNotFound(name);
    return *table;
  }

  ToolConnection tool_;
  std::vector<platform::TableDefinition> tables_;
  Transaction unit_;
};

}  // namespace

std::unique_ptr<NewDataFile> MakeDataFile(const std::string& path, std::span<const platform::TableDefinition> tables) {
  return std::make_unique<ComingSchema>(path, tables);
}

}  // namespace engine::postgres
