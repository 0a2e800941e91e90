#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "engine/errors.h"
#include "engine/functions/store_functions.h"
#include "engine/sql/parser.h"
#include "engine/sql/print.h"
#include "engine/store/sqlite/dialect.h"
#include "engine/text/text_order.h"
#include "engine/translate/plan/planning.h"
#include "engine/translate/plan/select_text.h"
#include "platform/values/text.h"

// Any text as a statement and as a criterion: only the engine's errors come out, printing and parsing again changes
// nothing, and the store can read whatever the translator writes.
namespace {

using engine::ActionPlan;
using engine::ResolvedTable;
using engine::SelectPlan;
using platform::FieldType;

[[noreturn]] void Die(std::string_view what, std::string_view text) {
  std::fprintf(stderr, "%.*s: %.*s\n", static_cast<int>(what.size()), what.data(), static_cast<int>(text.size()), text.data());
  std::abort();
}

platform::TableDefinition Definition(const std::string& name, std::initializer_list<platform::FieldDefinition> fields) {
  platform::TableDefinition definition;
  definition.name = name;
  definition.fields = fields;
  return definition;
}

platform::FieldDefinition Field(const char* name, FieldType type, int size = 0) {
  platform::FieldDefinition field;
  field.name = name;
  field.type = type;
  field.size = size;
  return field;
}

class Company final : public engine::Catalogue {
 public:
  Company() {
    using enum FieldType;
    Add(Definition("Customers", {Field("AcctNum", Counter), Field("LastName", Text, 30), Field("City", Text, 25),
                                 Field("NonBillable", Boolean), Field("Comments", Memo), Field("CurrBalance", Currency),
                                 Field("EntryDate", Date), Field("SalesRatePer", Double), Field("Status", Short)}));
    Add(Definition("Phones", {Field("RecordID", Counter), Field("AcctNum", Long), Field("Area", Text, 3), Field("Type", Text, 1)}));
    Add(Definition("PhoneTypes", {Field("Type", Text, 1), Field("TypeDescription", Text, 20), Field("Kind", Byte)}));
    Add(Definition("Rates", {Field("Dept", Text, 3), Field("Rate", Currency), Field("Adjustment", Double), Field("AcctNum", Long)}));
  }

  const ResolvedTable* FindTable(std::string_view name) override {
    for (const ResolvedTable& table : tables_) {
      if (platform::EqualsNoCase(table.definition.name, name)) return &table;
    }
    return nullptr;
  }
  const ResolvedTable* FindTable(std::string_view name, std::string_view file) override {
    if (file == "x") return FindTable(name);
    throw engine::errors::FileNotFound(file);
  }

  const std::deque<ResolvedTable>& Tables() const { return tables_; }

 private:
  void Add(platform::TableDefinition definition) {
    ResolvedTable table;
    const bool counter = definition.fields.front().type == FieldType::Counter;
    table.rowKey = engine::QuoteName(counter ? definition.fields.front().name : "~key");
    table.storeName = "\"main\"." + engine::QuoteName(definition.name);
    table.definition = std::move(definition);
    tables_.push_back(std::move(table));
  }

  std::deque<ResolvedTable> tables_;
};

// An empty store with the company's tables and the names of all helpers.
class Store {
 public:
  explicit Store(const Company& company) {
    const engine::Dialect& plain = engine::SqliteDialect();
    if (sqlite3_open(":memory:", &db_) != SQLITE_OK) std::abort();
    const auto nothing = [](sqlite3_context* context, int, sqlite3_value**) { sqlite3_result_null(context); };
    const auto create = [&](const std::string& name, int arguments) {
      sqlite3_create_function(db_, name.c_str(), arguments, SQLITE_UTF8, nullptr, nothing, nullptr, nullptr);
    };
    for (const engine::Dialect& dialect : {plain, plain.ForCells()}) {
      for (const engine::StoreFunction& function : engine::StoreFunctions())
        create(dialect.functionPrefix + std::string(function.name), function.arguments);
      create(dialect.like, 2);
    }
    create(plain.cellPrefix + plain.cellBegin, 0);
    create(plain.cellPrefix + plain.cell, 2);
    sqlite3_create_collation(db_, plain.collation.c_str(), SQLITE_UTF8, nullptr,
                             [](void*, int, const void*, int, const void*) { return 0; });
    for (const ResolvedTable& table : company.Tables()) Create(table);
  }

  void Require(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db_, sql.c_str(), static_cast<int>(sql.size()), &statement, nullptr) != SQLITE_OK) {
      const std::string_view message = sqlite3_errmsg(db_);
      const bool deep = message.starts_with("parser stack overflow") || message.starts_with("Expression tree is too large");
      if (!deep) Die(message, sql);
    }
    sqlite3_finalize(statement);
  }

 private:
  void Create(const ResolvedTable& table) {
    std::string sql = "CREATE TABLE " + table.storeName + " (" + table.rowKey + " INTEGER PRIMARY KEY";
    for (const platform::FieldDefinition& field : table.definition.fields) {
      if (field.type != FieldType::Counter) sql += ", " + engine::QuoteName(field.name);
    }
    if (sqlite3_exec(db_, (sql + ")").c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Die(sqlite3_errmsg(db_), sql);
  }

  sqlite3* db_ = nullptr;
};

void CheckStatement(std::string_view text) {
  const engine::sql::Statement tree = engine::sql::ParseStatement(text);
  const std::string printed = engine::sql::Print(tree);
  if (!(engine::sql::ParseStatement(printed) == tree)) Die("printed otherwise", printed);
}

void CheckExpression(std::string_view text) {
  const engine::sql::Expression tree = engine::sql::ParseCriterion(text);
  const std::string printed = engine::sql::Print(tree);
  if (!(engine::sql::ParseCriterion(printed) == tree)) Die("printed otherwise", printed);
}

// Runs `act`; the engine's own errors are fine.
template <class Act>
void Allow(const Act& act) {
  try {
    act();
  } catch (const platform::Error&) {
  }
}

class Fuzzer {
 public:
  Fuzzer()
      : store_(company_),
        wide_(engine::PlanSelect("Select *, CurrBalance * 2 As Twice From Customers Left Join Phones On Customers.AcctNum = Phones.AcctNum",
                                 company_, dialect_)) {}

  void Run(std::string_view text) {
    Allow([&] { CheckStatement(text); });
    Allow([&] { CheckExpression(text); });
    Allow([&] { RequireSelect(engine::PlanSelect(text, company_, dialect_)); });
    Allow([&] { RequireAction(engine::PlanAction(text, company_, dialect_)); });
    Allow([&] {
      const engine::CriterionPlan plan = engine::PlanCriterion(text, wide_, dialect_);
      store_.Require("SELECT 1 FROM " + wide_.from + " WHERE " + plan.where);
    });
  }

 private:
  void RequireSelect(const SelectPlan& plan) {
    std::vector<std::string> columns = engine::ColumnTexts(plan);
    if (!plan.aggregate && !plan.distinct) {
      for (const engine::PlanTable& table : plan.tables) columns.push_back(table.alias + '.' + table.table->rowKey);
      if (plan.tables[static_cast<std::size_t>(plan.driving)].nullable) Die("driving table without rows", plan.from);
    }
    store_.Require(engine::SelectText(plan, columns, dialect_));
  }

  void RequireAction(const ActionPlan& plan) {
    if (plan.direct != !plan.sql.empty()) Die("direct without a statement", plan.source);
    if (!plan.sql.empty()) store_.Require(plan.sql);
    if (!plan.lenientSql.empty()) store_.Require(plan.lenientSql);
    if (!plan.source.empty()) store_.Require(plan.source);
  }

  const engine::Dialect& dialect_ = engine::SqliteDialect();
  Company company_;
  Store store_;
  SelectPlan wide_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Fuzzer fuzzer;
  fuzzer.Run(std::string_view(reinterpret_cast<const char*>(data), size));
  return 0;
}
