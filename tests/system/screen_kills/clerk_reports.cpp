#include <algorithm>

#include "suite/company_schema.h"
#include "system/screen_kills/clerk.h"

// The catalogue of reports: its names, and runs that fill the user's temporary file.
namespace system_test {
namespace {

constexpr const char* kCatalogue = "CUReports";

/// The catalogue has no key of its own: its rows are told apart by all their fields.
std::string KeyOf(const Row& row) {
  static const auto tables = suite::TablesOf(suite::DataFile::Customer);
  const auto& fields = std::ranges::find(tables, kCatalogue, &platform::TableDefinition::name)->fields;
  std::string key;
  for (const auto& field : fields) key += (&field == &fields.front() ? "" : "|") + row.at(field.name);
  return key;
}

Operation InTheCatalogue() {
  Operation act;
  act.before = {"click tb_Reports"};
  act.after = {"close"};
  return act;
}

std::string RowsOf(const std::string& table) { return "expect value temp \"SELECT Count(*) FROM " + table + "\" "; }

}  // namespace

std::optional<Operation> Clerk::NameReport(const std::string& key, const std::string& name) {
  if (key.empty()) return std::nullopt;
  Row row = Table(kCatalogue).at(key);
  Operation act = InTheCatalogue();
  act.before.push_back("row grdReports where Sequence " + row.at("Sequence"));
  row["Description"] = name;
  act.steps.push_back({[key, row](Books& books) {
                         books.tables[kCatalogue].erase(key);
                         books.tables[kCatalogue].emplace(KeyOf(row), row);
                       },
                       kCatalogue, KeyOf(row)});
  return act;
}

std::optional<Operation> Clerk::RenameReport() {
  const std::string name = ListText("report");
  auto act = NameReport(Choose(kCatalogue), name);
  if (!act) return act;
  act->before.push_back("check chkReportName");
  act->before.push_back("cell grdReports \"Available Reports     \" " + Quoted(name));
  act->write = {"leave grdReports"};
  return act;
}

std::optional<Operation> Clerk::RestoreReportName() {
  const std::string key = Choose(kCatalogue, [](const Row& row) { return row.at("Description") != row.at("DefaultDescription"); });
  if (key.empty()) return std::nullopt;
  auto act = NameReport(key, Table(kCatalogue).at(key).at("DefaultDescription"));
  act->write = {"click cmdRestoreName"};
  return act;
}

std::optional<Operation> Clerk::MakeLabels() {
  if (Table("Customers").empty()) return std::nullopt;
  Operation act = InTheCatalogue();
  act.before.push_back("row grdReports where Name ARFL5166.RPT");
  act.before.push_back("click optCustomer(1)");
  act.write = {"click tb_preview"};
  act.after.insert(act.after.begin(), RowsOf("CustLabelTempRpt") + std::to_string(Table("Customers").size()));
  return act;
}

/// The customers whose last names begin like somebody's are copied; then the list shows all again.
std::optional<Operation> Clerk::RunOverAQuery() {
  const std::string whose = Choose("Customers", [](const Row& row) { return row.at("LastName") != "Null" && !row.at("LastName").empty(); });
  if (whose.empty()) return std::nullopt;
  const std::string& name = Table("Customers").at(whose).at("LastName");
  const auto found =
      std::ranges::count_if(Table("Customers"), [&](const auto& customer) { return customer.second.at("LastName").starts_with(name); });
  Operation act;
  act.before = {"tab SSIndexTab1 0",
                "click tb_Queries",
                "tab SSTab1 0",
                "uncheck chkSelectAll",
                "check chkSelectNameAdd(0)",
                TypeInto("txtNameAdd(0)", name),
                "click tb_RunQuery",
                "click tb_Reports",
                "row grdReports where Name ARCusLst.Rpt",
                "expect optCustomer(0) True"};
  act.write = {"click tb_preview"};
  act.after = {RowsOf("Customers") + std::to_string(found), "close", "click tb_Queries", "check chkSelectAll", "click tb_RunQuery"};
  return act;
}

}  // namespace system_test
