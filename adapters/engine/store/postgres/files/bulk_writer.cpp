#include <optional>

#include "engine/store/postgres/files/opened_schema.h"
#include "engine/store/postgres/files/tools.h"
#include "engine/store/postgres/schema/definitions.h"
#include "engine/store/postgres/table_copy.h"
#include "engine/store/postgres/wording/names.h"
#include "engine/store/query.h"

namespace engine::postgres {
namespace {

std::vector<std::string> DropIndexTexts(const std::string& schema, const platform::TableDefinition& table) {
  std::vector<std::string> texts;
  for (const platform::IndexDefinition& index : table.indexes)
    texts.push_back("DROP INDEX " + QuoteName(schema) + '.' + QuoteName(IndexName(table.name, index.name)));
  return texts;
}

class SchemaBulkWriter final : public BulkWriter {
 public:
  SchemaBulkWriter(const std::string& path, std::string_view table, std::span<const std::string> fields)
      : opened_(path), table_(opened_.Table(table)) {
    opened_.RequireWritable();
    unit_.emplace(opened_.connection, Transaction::Kind::Write);
    fresh_ = !AskNumber(opened_.connection, "SELECT 1 FROM " + Name() + " LIMIT 1");
    // Nobody reads the table meanwhile: it is empty anyway.
    if (fresh_) opened_.connection.ExecuteAll(DropIndexTexts(opened_.target.schema, table_), opened_.target.schema);
    rows_.emplace(opened_.connection, opened_.target.schema, table_, fields);
  }

  void Add(std::span<const platform::Value> row) override { rows_->Add(row); }

  void Finish() override {
    rows_->Finish();
    rows_.reset();
    if (fresh_) opened_.connection.ExecuteAll(CreateIndexTexts(opened_.target.schema, table_), opened_.target.schema);
    Query(opened_.connection, std::string_view("ANALYZE " + Name())).Run();
    unit_->Commit();
    unit_.reset();
  }

 private:
  std::string Name() const { return QuoteName(opened_.target.schema) + '.' + QuoteName(table_.name); }

  OpenedSchema opened_;
  platform::TableDefinition table_;
  std::optional<Transaction> unit_;
  bool fresh_ = false;
  std::optional<TableCopy> rows_;
};

}  // namespace

std::unique_ptr<BulkWriter> OpenBulkWriter(const std::string& path, std::string_view table, std::span<const std::string> fields) {
  return std::make_unique<SchemaBulkWriter>(path, table, fields);
}

}  // namespace engine::postgres
