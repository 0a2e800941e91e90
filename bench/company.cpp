#include "company.h"

#include <random>
#include <stdexcept>

#include "engine/engine.h"
#include "engine/values/iso_date.h"

namespace bench {
namespace {

constexpr std::size_t choices = 512;

std::string FileIn(const std::string& folder) { return folder + "/data/orv1/customer.zdb"; }

}  // namespace

const std::string& Company::ListStatement() {
  static const std::string text = "SELECT * FROM Customers ORDER BY LastName";
  return text;
}

Company::Company(const std::string& folder) : engine_(engine::MakeEngine()), raw_(FileIn(folder)) {
  workspace_ = engine_->CreateWorkspace("bench", "Admin", "", 2);
  engine_->AppendWorkspace(workspace_);
  database_ = workspace_->OpenDatabase(FileIn(folder));
  LinkTransactions(folder);
  raw::Statement count(raw_.Handle(), "SELECT count(*) FROM f1.Customers");
  count.Step();
  rows_ = count.Int(0);
  if (rows_ < 1000) throw std::runtime_error(folder + ": a company with at least 1,000 customers is needed");
  ChooseRows();
  FindLargestGroup();
}

// As the program does when it first opens the company's files.
void Company::LinkTransactions(const std::string& folder) {
  const std::string name = "Transactions";
  for (int i = 0; i < database_->TableDefCount(); ++i)
    if (database_->TableDefAt(i).Name == name) return;
  platform::TableDef link = database_->CreateTableDef(name);
  link.Connect = ";DATABASE=" + folder + "/data/orv1/artrans.zdb";
  link.SourceTableName = name;
  database_->AppendTableDef(link);
}

void Company::ChooseRows() {
  std::mt19937_64 random(20'250'630);
  raw::Statement row(raw_.Handle(), "SELECT LastName, Addr1 FROM f1.Customers WHERE AcctNum = ?1 AND LastName > 'b' AND LastName < 'y'");
  while (somewhere_.size() < choices) {
    const auto account = static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(rows_)) + 1;
    row.Bind(1, account);
    if (row.Step()) {
      somewhere_.push_back({std::string(row.Text(0)), account});
      if (!row.Text(1).empty()) addresses_.emplace_back(row.Text(1));
    }
    row.Reset();
    ordinals_.push_back(static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(rows_ - 100)));
  }
}

void Company::FindLargestGroup() {
  raw::Statement largest(
      raw_.Handle(), "SELECT LastName, count(*) FROM f1.Customers WHERE LastName IS NOT NULL GROUP BY LastName ORDER BY 2 DESC LIMIT 1");
  largest.Step();
  const std::string name(largest.Text(0));
  groupSize_ = largest.Int(1);
  raw::Statement rows(raw_.Handle(), "SELECT AcctNum FROM f1.Customers WHERE LastName IS ?1 ORDER BY AcctNum LIMIT 64 OFFSET ?2");
  rows.Bind(1, name);
  rows.Bind(2, groupSize_ / 2);
  while (rows.Step()) group_.push_back({name, rows.Int(0)});
  rows.Reset();
}

std::uint64_t SumOf(const std::vector<platform::ListRow>& rows) {
  std::uint64_t sum = 0;
  for (const platform::ListRow& row : rows) sum = sum * 31 + static_cast<std::uint64_t>(row.cells.at(0).As<std::int32_t>());
  return sum;
}

std::uint64_t SumOf(const raw::Rows& rows) {
  std::uint64_t sum = 0;
  for (std::size_t i = 0; i < rows.Count(); ++i) sum = sum * 31 + static_cast<std::uint64_t>(std::get<std::int64_t>(rows.Row(i)[0]));
  return sum;
}

std::uint64_t AccountOf(const platform::Recordset& recordset) { return static_cast<std::uint64_t>(recordset.Field(0).As<std::int32_t>()); }

namespace {

raw::Cell BareForm(const platform::Value& value) {
  using platform::ValueKind;
  switch (value.Kind()) {
    case ValueKind::Boolean:
      return std::int64_t{value.As<bool>() ? -1 : 0};
    case ValueKind::Byte:
      return std::int64_t{value.As<std::uint8_t>()};
    case ValueKind::Short:
      return std::int64_t{value.As<std::int16_t>()};
    case ValueKind::Long:
      return std::int64_t{value.As<std::int32_t>()};
    case ValueKind::Currency:
      return value.As<platform::Currency>().tenThousandths;
    case ValueKind::Double:
      return value.As<double>();
    case ValueKind::Date:
      return engine::IsoText(value.As<platform::Date>());
    case ValueKind::Text:
      return value.As<std::string>();
    case ValueKind::Empty:
    case ValueKind::Null:
      break;
  }
  return {};
}

}  // namespace

void RequireSameCells(const std::vector<platform::ListRow>& ours, const raw::Rows& bare) {
  if (ours.size() != bare.Count()) throw std::runtime_error("pages of different length");
  for (std::size_t row = 0; row < ours.size(); ++row) {
    if (ours[row].cells.size() != bare.columns) throw std::runtime_error("rows of different width");
    for (std::size_t column = 0; column < bare.columns; ++column)
      if (BareForm(ours[row].cells[column]) != bare.Row(row)[column])
        throw std::runtime_error("row " + std::to_string(row) + ", column " + std::to_string(column) + ": different values");
  }
}

}  // namespace bench
