#include <algorithm>

#include "system/screen_kills/clerk.h"

// Departmental labor rates.
namespace system_test {
namespace {

constexpr const char* kDepartments[] = {"100", "110", "200", "210", "220", "300", "310", "400", "500", "900"};

std::string RateKey(const std::string& acct, const std::string& dept) { return acct + "|" + dept; }

}  // namespace

std::optional<Operation> Clerk::AddRate() {
  const std::string acct = Choose("Customers", [](const Row& row) { return row.at("LaborRateType") == "D"; });
  std::vector<std::string> missing;
  for (const char* dept : kDepartments)
    if (!Table("CustLaborRates").contains(RateKey(acct, dept))) missing.emplace_back(dept);
  if (acct.empty() || missing.empty()) return std::nullopt;
  const std::string& dept = missing[static_cast<std::size_t>(Roll(0, static_cast<int>(missing.size()) - 1))];
  Operation act = At(acct, 4);
  act.before.push_back("click tb_AddRec");
  const Row row{{"AcctNum", acct}, {"Dept", dept}, {"Adjustment", std::to_string(Roll(1, 60))}};
  act.before.push_back("pick cboDepts key " + dept);
  act.before.push_back(TypeInto("txtRateAdjustment", row.at("Adjustment")));
  act.steps.push_back(Insert("CustLaborRates", RateKey(acct, dept), row));
  SaveCard(act);
  return act;
}

std::optional<Operation> Clerk::ChangeRate() {
  const std::string key = ChooseOwned("CustLaborRates", "AcctNum");
  if (key.empty()) return std::nullopt;
  const Row& rate = Table("CustLaborRates")[key];
  Operation act = At(rate.at("AcctNum"), 4);
  act.before.push_back("row grid(4) where Dept " + rate.at("Dept"));
  act.before.push_back("click tb_EditRec");
  const std::string adjustment = std::to_string(Roll(61, 99));
  act.before.push_back(TypeInto("txtRateAdjustment", adjustment));
  act.steps.push_back(Change("CustLaborRates", key, {{"Adjustment", adjustment}}));
  SaveCard(act);
  return act;
}

std::optional<Operation> Clerk::DeleteRate() {
  const std::string key = ChooseOwned("CustLaborRates", "AcctNum");
  if (key.empty()) return std::nullopt;
  const Row& rate = Table("CustLaborRates")[key];
  Operation act = At(rate.at("AcctNum"), 4);
  act.before.push_back("row grid(4) where Dept " + rate.at("Dept"));
  DeleteCurrent(act);
  act.steps.push_back(Remove("CustLaborRates", key));
  return act;
}

/// Departments that the customer has keep their rate; the others come by one statement.
std::optional<Operation> Clerk::AddAllDepartments() {
  const std::string acct = Choose("Customers", [](const Row& row) { return row.at("LaborRateType") == "D"; });
  if (acct.empty()) return std::nullopt;
  Operation act = At(acct, 4);
  const std::string adjustment = std::to_string(Roll(1, 60));
  act.before.push_back("click optAllDept(0)");
  act.before.push_back(TypeInto("txtAdjustAllDept", adjustment));
  act.write = {"click cmdAddAllDepts"};
  act.steps.push_back(
      {[acct, adjustment](Books& books) {
         for (const char* dept : kDepartments)
           books.tables["CustLaborRates"].emplace(RateKey(acct, dept), Row{{"AcctNum", acct}, {"Dept", dept}, {"Adjustment", adjustment}});
       },
       "CustLaborRates", acct});
  return act;
}

std::optional<Operation> Clerk::ApplyPercentage() {
  const std::string acct = Choose("Customers", [this](const Row& row) {
    return row.at("LaborRateType") == "D" &&
           std::ranges::any_of(Table("CustLaborRates"), [&](const auto& rate) { return rate.second.at("AcctNum") == row.at("AcctNum"); });
  });
  if (acct.empty()) return std::nullopt;
  Operation act = At(acct, 4);
  const std::string adjustment = std::to_string(Roll(1, 99));
  act.before.push_back("click optAllDept(1)");
  act.before.push_back(TypeInto("txtAdjustAllDept", adjustment));
  act.write = {"click cmdAddAllDepts"};
  for (const char* dept : kDepartments)
    if (Table("CustLaborRates").contains(RateKey(acct, dept)))
      act.steps.push_back(Change("CustLaborRates", RateKey(acct, dept), {{"Adjustment", adjustment}}));
  return act;
}

}  // namespace system_test
