#include "suitefiles/company/copied_file.h"

#include <algorithm>
#include <bit>
#include <memory>

#include "engine/data_file.h"
#include "engine/engine.h"
#include "platform/data/row_stream.h"
#include "platform/values/text.h"
#include "suitefiles/company/data_access.h"

namespace suitefiles {
namespace {

using platform::Value;
using platform::ValueKind;

std::uint64_t Mixed(std::uint64_t number) {
  constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15U;
  number = (number ^ (number >> 32U)) * kOdd;
  return (number ^ (number >> 29U)) * kOdd;
}

std::uint64_t NumberOf(const std::string& text) {
  std::uint64_t number = 0xCBF29CE484222325U;
  for (const char c : text) number = (number ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
  return number;
}

// Equal for equal values of a column, whichever store they came from.
std::uint64_t NumberOf(const Value& value) {
  switch (value.Kind()) {
    case ValueKind::Empty:
    case ValueKind::Null:
      return 0;
    case ValueKind::Boolean:
      return value.As<bool>() ? 1 : 2;
    case ValueKind::Byte:
      return value.As<std::uint8_t>();
    case ValueKind::Short:
      return static_cast<std::uint64_t>(value.As<std::int16_t>());
    case ValueKind::Long:
      return static_cast<std::uint64_t>(value.As<std::int32_t>());
    case ValueKind::Currency:
      return static_cast<std::uint64_t>(value.As<platform::Currency>().tenThousandths);
    case ValueKind::Double:
      return std::bit_cast<std::uint64_t>(value.As<double>());
    case ValueKind::Date:
      return std::bit_cast<std::uint64_t>(value.As<platform::Date>().serial);
    case ValueKind::Text:
      return NumberOf(value.As<std::string>());
  }
  return 0;
}

void AddRow(TableSums& sums, const std::vector<Value>& row) {
  ++sums.rows;
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (row[i].IsNull()) continue;
    ++sums.columns[i].values;
    sums.columns[i].sum += Mixed(NumberOf(row[i]) + 1);
  }
}

std::vector<std::string> TablesOf(const std::string& path) {
  DataAccess data;
  const auto database = data.Open(path);
  std::vector<std::string> names;
  const int count = database->TableDefCount();
  for (int i = 0; i < count; ++i)
    if (const platform::TableDef table = database->TableDefAt(i); table.Connect.empty()) names.push_back(table.Name);
  return names;
}

/// A file as it is at one moment, whatever is written into it meanwhile.
class OneState {
 public:
  explicit OneState(const std::string& path) : path_(path), reader_(engine::MakeSnapshotReader()) {
    for (const std::string& name : TablesOf(path)) {
      auto definition = reader_->FindTable(path, name);
      if (definition) tables_.push_back(std::move(*definition));
    }
    if (tables_.empty()) return;
    // As long as it is open, all others read what it has seen; it need not see a row.
    held_ = reader_->OpenRows(path_, "SELECT * FROM [" + tables_.front().name + "] WHERE False");
    held_->Next();
  }

  const std::vector<platform::TableDefinition>& Tables() const { return tables_; }
  std::unique_ptr<platform::RowStream> Rows(const platform::TableDefinition& table) { return reader_->OpenRows(path_, "SELECT * FROM [" + table.name + "]"); }

 private:
  std::string path_;
  std::unique_ptr<platform::SnapshotReader> reader_;
  std::vector<platform::TableDefinition> tables_;
  std::unique_ptr<platform::RowStream> held_;
};

std::vector<std::string> FieldNames(const platform::TableDefinition& table) {
  std::vector<std::string> names;
  for (const auto& field : table.fields) names.push_back(field.name);
  return names;
}

/// Reads a table; each row goes to `take`, too.
template <class Take>
TableSums ReadTable(OneState& file, const platform::TableDefinition& table, const CopyProgress& progress, const Take& take) {
  TableSums sums{.table = table.name, .rows = 0, .columns = {}};
  for (const std::string& name : FieldNames(table)) sums.columns.push_back({.name = name});
  const auto rows = file.Rows(table);
  const std::int64_t all = rows->Count();
  constexpr std::uint64_t kStep = 1000;
  while (rows->Next()) {
    AddRow(sums, rows->Row());
    take(rows->Row());
    if (sums.rows % kStep == 0) progress(table.name, static_cast<std::int64_t>(sums.rows), all);
  }
  return sums;
}

void CompareColumns(const TableSums& from, const TableSums& to, std::vector<std::string>& differences) {
  if (from.columns.size() != to.columns.size()) differences.push_back("Table " + from.table + " has other fields.");
  for (std::size_t i = 0; i < std::min(from.columns.size(), to.columns.size()); ++i)
    if (from.columns[i] != to.columns[i]) differences.push_back("Field " + from.columns[i].name + " of table " + from.table + " holds other values.");
}

}  // namespace

std::vector<TableSums> SumsOf(const std::string& path, const CopyProgress& progress) {
  OneState file(path);
  std::vector<TableSums> sums;
  for (const auto& table : file.Tables()) sums.push_back(ReadTable(file, table, progress, [](const auto&) {}));
  return sums;
}

std::vector<TableSums> CopyDataFile(const std::string& from, const std::string& to, const CopyProgress& progress) {
  OneState file(from);
  const auto made = engine::MakeDataFile(to, file.Tables());
  std::vector<TableSums> sums;
  for (const auto& table : file.Tables()) {
    const auto writer = made->Fill(table.name, FieldNames(table));
    sums.push_back(ReadTable(file, table, progress, [&](const std::vector<Value>& row) { writer->Add(row); }));
    writer->Finish();
    made->RaiseNumber(table.name, engine::LastNumberOf(from, table.name));
  }
  made->Finish();
  return sums;
}

std::vector<std::string> Differences(const std::vector<TableSums>& from, const std::vector<TableSums>& to) {
  std::vector<std::string> differences;
  for (const TableSums& table : from) {
    const auto other = std::ranges::find_if(to, [&](const TableSums& each) { return platform::EqualsNoCase(each.table, table.table); });
    if (other == to.end())
      differences.push_back("Table " + table.table + " is missing.");
    else if (other->rows != table.rows)
      differences.push_back("Table " + table.table + " has " + std::to_string(other->rows) + " rows instead of " + std::to_string(table.rows) + ".");
    else
      CompareColumns(table, *other, differences);
  }
  return differences;
}

}  // namespace suitefiles
