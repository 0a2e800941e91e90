#include "unit/engine/cursor/query_lists.h"

#include <algorithm>

#include "engine/text/text_order.h"
#include "unit/engine/support/engine_fixture.h"
#include "unit/engine/support/office_files.h"

namespace query_lists {
namespace {

using platform::FieldType;
using platform::Value;

constexpr std::int32_t kCustomers = 5'003;

}  // namespace

bool Same(const std::string& left, const std::string& right) { return engine::CompareText(left, right) == 0; }

std::vector<Part> Parts() {
  return {
      {.table = "",
       .condition = "(Customers.LastName Like 'S*')",
       .own = [](const Customer& one) { return !one.name.empty() && (one.name[0] == 's' || one.name[0] == 'S'); }},
      {.table = "",
       .condition = "(Customers.LastName Like '*smith*')",
       .own =
           [](const Customer& one) { return one.name.find("smith") != std::string::npos || one.name.find("SMITH") != std::string::npos; }},
      {.table = "", .condition = "(Customers.State = 'mn')", .own = [](const Customer& one) { return one.state == "MN"; }},
      {.table = "", .condition = "(Customers.State Like 'N*')", .own = [](const Customer& one) { return one.state == "ND"; }},
      {.table = "", .condition = "(Customers.Points>=500)", .own = [](const Customer& one) { return one.points >= 500; }},
      {.table = "", .condition = "(Customers.Points=7)", .own = [](const Customer& one) { return one.points == 7; }},
      {.table = "", .condition = "(Customers.Points<0)", .own = [](const Customer& one) { return one.points < 0; }},
      {.table = "Phones", .condition = "(Phones.Area Like '6*')", .phone = [](const Phone& one) { return one.area[0] == '6'; }},
      {.table = "Phones", .condition = "(Phones.Area Like '612*')", .phone = [](const Phone& one) { return one.area == "612"; }},
      {.table = "Phones", .condition = "(Phones.Area Like '*01')", .phone = [](const Phone& one) { return one.area == "701"; }},
      {.table = "Lookups", .condition = "(Lookups.Text = 'boiler')", .word = [](const Word& one) { return one.text == "Boiler"; }},
      {.table = "Lookups", .condition = "(Lookups.Text = 'VIP')", .word = [](const Word& one) { return one.text == "VIP"; }},
      {.table = "Lookups",
       .condition = "(Lookups.Text = 'VIP' OR Lookups.Text = 'Pool')",
       .word = [](const Word& one) { return one.text == "VIP" || one.text == "Pool"; }},
      {.table = "Transactions",
       .condition = "(Transactions.TranType<>'P') And (Transactions.InvChkCredNo = '1000')",
       .sale = [](const Sale& one) { return one.type != "P" && one.number == "1000"; }},
      {.table = "Transactions",
       .condition = "(Transactions.TranType='P') And (Transactions.InvChkCredNo = '1077')",
       .sale = [](const Sale& one) { return one.type == "P" && one.number == "1077"; }},
      {.table = "Transactions", .condition = "(Transactions.TranType<>'P')", .sale = [](const Sale& one) { return one.type != "P"; }},
  };
}

std::string StatementOf(const std::vector<Part>& parts, bool descending) {
  std::vector<std::string> tables;
  std::string where;
  for (const Part& part : parts) {
    where += (where.empty() ? " WHERE " : " AND ") + part.condition;
    if (!part.table.empty() && std::ranges::find(tables, part.table) == tables.end()) tables.push_back(part.table);
  }
  std::string from = "Customers";
  for (std::size_t i = 0; i < tables.size(); ++i)
    from = (i == 0 ? from : '(' + from + ')') + " INNER JOIN " + tables[i] + " ON Customers.AcctNum = " + tables[i] + ".AcctNum";
  return "Select DISTINCTROW Customers.* FROM " + from + where + " ORDER BY LastName" + (descending ? " DESC;" : ";");
}

Company::Company(std::mt19937& random) {
  const auto below = [&random](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
  for (std::int32_t account = 1; account <= kCustomers; ++account) {
    Customer one{account, "", below(3) == 0 ? "MN" : below(40) == 0 ? "ND" : "WI", below(1'000)};
    const int kind = below(12);
    if (kind > 0)
      one.name =
          std::string(1, static_cast<char>((kind % 2 == 0 ? 'a' : 'A') + below(26))) + (kind < 4   ? "smith"
                                                                                        : kind < 6 ? "SMITHE"
                                                                                                   : "x" + std::to_string(below(900)));
    customers_.push_back(one);
    for (int i = below(3); i > 0; --i) phones_.push_back({account, below(10) == 0 ? "612" : below(200) == 0 ? "701" : "651"});
    for (const char* word : {"Boiler", "Pool", "VIP"})
      if (below(word[0] == 'B' ? 3 : word[0] == 'P' ? 40 : 900) == 0) words_.push_back({account, word});
    for (int i = below(4); i > 0; --i) sales_.push_back({account, i == 2 ? "P" : "I", std::to_string(1000 + below(i == 3 ? 3 : 4'000))});
  }
  phones_.push_back({kCustomers + 5, "612"});
  phones_.insert(phones_.begin(), {0, "701"});
  sales_.push_back({kCustomers + 6, "I", "1000"});
}

void Company::Create(const std::string& customerFile, const std::string& salesFile) const {
  office_files::Create(
      customerFile,
      {{"Customers",
        {Field("AcctNum", FieldType::Counter), TextField("LastName", 20), TextField("State", 2), Field("Points", FieldType::Long)},
        {{"ByAcct", {"AcctNum"}, true, true}, {"xLastName", {"LastName"}, false, false}, {"xState", {"State", "LastName"}, false, false}}},
       {"Phones",
        {Field("RecordID", FieldType::Counter), Field("AcctNum", FieldType::Long), TextField("Area", 3)},
        {{"PrimaryKey", {"RecordID"}, true, true}, {"xCustomer", {"AcctNum"}, false, false}, {"xArea", {"Area", "AcctNum"}, false, false}}},
       {"Lookups",
        {Field("AcctNum", FieldType::Long), TextField("Text", 20)},
        {{"ByAcct", {"AcctNum", "Text"}, true, false}, {"xWord", {"Text", "AcctNum"}, false, false}}}});
  office_files::Create(salesFile, {{"Transactions",
                                    {Field("AcctNum", FieldType::Long), TextField("TranType", 1), TextField("InvChkCredNo", 15)},
                                    {{"xCustomer", {"AcctNum"}, false, false}, {"xNumber", {"InvChkCredNo"}, false, false}}}});
  std::vector<std::vector<Value>> rows;
  for (const Customer& one : customers_)
    rows.push_back({Value(one.account), one.name.empty() ? Value(platform::Null) : Value(one.name), Value(one.state), Value(one.points)});
  office_files::AddRows(customerFile, "Customers", {"AcctNum", "LastName", "State", "Points"}, rows);
  rows.clear();
  for (const Phone& one : phones_) rows.push_back({Value(one.account), Value(one.area)});
  office_files::AddRows(customerFile, "Phones", {"AcctNum", "Area"}, rows);
  rows.clear();
  for (const Word& one : words_) rows.push_back({Value(one.account), Value(one.text)});
  office_files::AddRows(customerFile, "Lookups", {"AcctNum", "Text"}, rows);
  rows.clear();
  for (const Sale& one : sales_) rows.push_back({Value(one.account), Value(one.type), Value(one.number)});
  office_files::AddRows(salesFile, "Transactions", {"AcctNum", "TranType", "InvChkCredNo"}, rows);
}

// The joined row must meet every condition on its table at once.
bool Company::Fits(const Customer& one, const std::vector<Part>& parts) const {
  const auto any = [&](const std::string& table, const auto& rows, auto member) {
    std::vector<const Part*> of;
    for (const Part& part : parts)
      if (part.table == table) of.push_back(&part);
    if (of.empty()) return true;
    auto row = std::ranges::partition_point(rows, [&](const auto& each) { return each.account < one.account; });
    for (; row != rows.end() && row->account == one.account; ++row)
      if (std::ranges::all_of(of, [&](const Part* part) { return ((*part).*member)(*row); })) return true;
    return false;
  };
  for (const Part& part : parts)
    if (part.table.empty() && !part.own(one)) return false;
  return any("Phones", phones_, &Part::phone) && any("Lookups", words_, &Part::word) && any("Transactions", sales_, &Part::sale);
}

std::vector<std::int32_t> Company::Expected(const std::vector<Part>& parts, bool descending) const {
  std::vector<const Customer*> fits;
  for (const Customer& one : customers_)
    if (Fits(one, parts)) fits.push_back(&one);
  std::ranges::sort(fits, [](const Customer* left, const Customer* right) {
    const int order = engine::CompareText(left->name, right->name);
    if (left->name.empty() != right->name.empty()) return left->name.empty();
    return order != 0 ? order < 0 : left->account < right->account;
  });
  if (descending) std::ranges::reverse(fits);
  std::vector<std::int32_t> accounts;
  for (const Customer* one : fits) accounts.push_back(one->account);
  return accounts;
}

}  // namespace query_lists
