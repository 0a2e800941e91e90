#include "engine/store/postgres/guest_table.h"

#include <vector>

#include "engine/store/counter_field.h"
#include "engine/store/postgres/schema/definitions.h"
#include "engine/store/postgres/table_copy.h"
#include "engine/store/postgres/wording/names.h"

namespace engine::postgres {
namespace {

using platform::FieldDefinition;
using platform::FieldType;
using platform::TableDefinition;
using platform::Value;

// A hidden row key becomes a field, and numbers that the other store has given stay as they are.
TableDefinition AsItLiesHere(TableDefinition table, int number) {
  if (CounterOf(table) == nullptr) table.fields.push_back(FieldDefinition{std::string(kHiddenKey), FieldType::Long});
  for (FieldDefinition& field : table.fields)
    if (field.type == FieldType::Counter) field.type = FieldType::Long;
  table.name = std::string(1, kOwnNameMark) + "guest" + std::to_string(number);
  return table;
}

std::vector<std::string> NamesOf(const TableDefinition& table) {
  std::vector<std::string> names;
  for (const FieldDefinition& field : table.fields) names.push_back(field.name);
  return names;
}

class Guest final : public GuestTable {
 public:
  Guest(ServerConnection& connection, const std::string& schema, const TableDefinition& table, int number)
      : connection_(connection), hidden_(CounterOf(table) == nullptr), key_(RowKeyOf(table)), table_(AsItLiesHere(table, number)) {
    const std::string create = CreateGuestText(schema, table_, key_);
    connection_.ExecuteAll({&create, 1}, schema);
    rows_ = std::make_unique<TableCopy>(connection_, std::string(kOwnTables), table_, NamesOf(table_));
  }

  std::string Name() const override { return QuoteName(kOwnTables) + '.' + QuoteName(table_.name); }
  std::string RowKey() const override { return QuoteName(key_); }

  void Add(std::span<const Value> row) override {
    row_.assign(row.begin(), row.end());
    if (hidden_) row_.emplace_back(++last_);
    rows_->Add(row_);
  }

  void Finish() override {
    rows_->Finish();
    rows_.reset();
    const std::string analyze = "ANALYZE " + Name();
    connection_.ExecuteAll({&analyze, 1}, {});
  }

 private:
  ServerConnection& connection_;
  bool hidden_;
  std::string key_;
  TableDefinition table_;
  std::unique_ptr<TableCopy> rows_;
  std::vector<Value> row_;
  std::int32_t last_ = 0;
};

}  // namespace

std::unique_ptr<GuestTable> ReceiveGuest(ServerConnection& connection, const std::string& schema, const TableDefinition& table,
                                         int number) {
  return std::make_unique<Guest>(connection, schema, table, number);
}

}  // namespace engine::postgres
