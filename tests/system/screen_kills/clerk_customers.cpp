#include <algorithm>

#include "system/screen_kills/clerk.h"

namespace system_test {
namespace {

constexpr std::size_t kFewest = 6;
constexpr std::size_t kMost = 30;

/// A new customer as the rules fill it, but for what the user enters.
Row NewCustomer(const std::string& acct) {
  Row row;
  for (const char* empty : {"LastName", "FirstName", "Title", "Addr1", "Addr2", "City", "State", "Zip", "Country", "Comments", "TaxID",
                            "EMail", "WebSite", "MapCode"})
    row[empty] = "";
  for (const char* zero : {"Status", "Creditlimit", "LaborRate", "TaxBasisA", "TaxBasisB", "TaxBasisC", "TaxBasisD", "CurrFinanceCharge",
                           "CurrBalance", "PaidThisMonth", "PaidThisYear", "PaidLastYear", "PaidToDate", "DefaultBillAddress",
                           "DefaultShipAddress", "DefaultPhoneNumber", "DefaultCreditCard", "Latitude", "Longitude"})
    row[zero] = "0";
  for (const char* null : {"ExemptExpireDate", "LastTrans", "LastOrdDate", "LastStateDate", "LastPayDate", "CustomerID", "SalesRate"})
    row[null] = "Null";
  row["AcctNum"] = row["DefaultBillTo"] = acct;
  row["NonBillable"] = row["OmitFinanceCharge"] = row["CreditHold"] = "False";
  row["AgeMethod"] = "True";
  row["LaborRateType"] = "N";
  row["EntryDate"] = "3/4/2026";
  return row;
}

struct Entry {
  const char* control;
  const char* field;
  const char* word;
};
constexpr Entry kTexts[] = {{"txtLastName", "LastName", "Last"}, {"txtFirstName", "FirstName", "First"},
                            {"txtAddr1", "Addr1", "Elm"},        {"txtAddr2", "Addr2", "Floor"},
                            {"txtCity", "City", "City"},         {"txtCountry", "Country", "Land"},
                            {"txtEMail", "EMail", "mail"},       {"txtWebSite", "WebSite", "web"},
                            {"txtTaxID", "TaxID", "tax"}};

}  // namespace

/// The first four ticked taxes go to the four places, in the order of their numbers.
void Clerk::TickTaxes(Operation& act, Row& row) {
  std::vector<std::string> ticked;
  std::vector<std::string> taxes;
  for (const auto& [key, tax] : Table("TaxGrid")) taxes.push_back(key);
  std::ranges::sort(taxes, {}, [](const std::string& key) { return std::stoi(key); });
  for (const std::string& key : taxes) {
    const bool tick = Chance(50);
    act.before.push_back("row grdTaxBasis where TaxID " + key);
    act.before.push_back(std::string("cell grdTaxBasis Assigned ") + (tick ? "True" : "False"));
    if (tick) ticked.push_back(key);
  }
  ticked.resize(4, "0");
  row["TaxBasisA"] = ticked[0];
  row["TaxBasisB"] = ticked[1];
  row["TaxBasisC"] = ticked[2];
  row["TaxBasisD"] = ticked[3];
}

std::optional<Operation> Clerk::AddCustomer() {
  if (Table("Customers").size() >= kMost) return std::nullopt;
  Operation act;
  act.before = {"tab SSIndexTab1 0", "click tb_AddRec"};
  const std::string acct = TakeNumber(act, "Customers");
  Row row = NewCustomer(acct);
  for (const Entry& entry : kTexts) act.before.push_back(TypeInto(entry.control, row[entry.field] = Mark(entry.word)));
  act.before.push_back(TypeInto("txtZip", row["Zip"] = Digits(5)));
  act.before.push_back("pick cboTerms key " + (row["Terms"] = std::to_string(Roll(1, 4))));
  act.before.push_back(TypeInto("txtCreditLimit", row["Creditlimit"] = std::to_string(Roll(1, 9000))));
  act.before.push_back(TypeInto("txtSalesRatePer", row["SalesRatePer"] = std::to_string(Roll(0, 40))));
  if (Chance(50)) act.before.push_back("pick cboSalesRate key " + (row["SalesRate"] = "T"));
  const int status = Roll(0, 2);
  act.before.push_back("click optStatus(" + (row["Status"] = std::to_string(status)) + ")");
  if (Chance(60)) {
    act.before.push_back("click optLaborRate(2)");
    row["LaborRateType"] = "D";
  } else if (Chance(50)) {
    act.before.push_back("click optLaborRate(1)");
    act.before.push_back(TypeInto("txtLaborRate", row["LaborRate"] = std::to_string(Roll(1, 99))));
    row["LaborRateType"] = "C";
  }
  if (Chance(30)) TickTaxes(act, row);
  // A comment of up to several pages of the file.
  const std::string word = "n" + std::to_string(++serial_) + ".";
  const int times = Chance(25) ? Roll(1000, 2000) : Roll(0, 20);
  if (times > 0) act.before.push_back("type txtComment repeat " + std::to_string(times) + " " + word);
  for (int i = 0; i < times; ++i) row["Comments"] += word;
  act.steps.push_back(Insert("Customers", acct, row));
  if (Chance(50)) {
    act.write = {"click miSaveRec"};
  } else {
    // The toolbar goes on to the new customer's first phone, which is given up here.
    act.write = {"click tb_SaveRec"};
    act.after = {"answer Yes", "click tb_CancelRec", "expect box like \"Are you sure you want to cancel*\""};
  }
  return act;
}

std::optional<Operation> Clerk::ChangeCustomer() {
  const std::string acct = Choose("Customers");
  if (acct.empty()) return std::nullopt;
  Operation act = At(acct, 0);
  act.before.push_back("click tb_EditRec");
  Row row;
  for (const Entry& entry : kTexts)
    if (Chance(50)) act.before.push_back(TypeInto(entry.control, row[entry.field] = Mark(entry.word)));
  act.before.push_back("pick cboTerms key " + (row["Terms"] = std::to_string(Roll(1, 4))));
  act.before.push_back(TypeInto("txtCreditLimit", row["Creditlimit"] = std::to_string(Roll(1, 9000))));
  act.before.push_back("click optStatus(" + (row["Status"] = std::to_string(Roll(0, 2))) + ")");
  const bool hold = Chance(50);
  act.before.push_back(SetBox("chkHoldCredit", hold));
  row["CreditHold"] = hold ? "True" : "False";
  if (Table("Customers")[acct]["LaborRateType"] != "D" && Chance(50)) {
    act.before.push_back("click optLaborRate(2)");
    row["LaborRateType"] = "D";
    row["LaborRate"] = "0";
  }
  if (Chance(30)) TickTaxes(act, row);
  act.steps.push_back(Change("Customers", acct, row));
  SaveCard(act);
  return act;
}

std::optional<Operation> Clerk::GiveUpRates() {
  const std::string acct = Choose("Customers", [this](const Row& row) {
    if (row.at("LaborRateType") != "D") return false;
    int rates = 0;
    for (const auto& [key, rate] : Table("CustLaborRates")) rates += rate.at("AcctNum") == row.at("AcctNum") ? 1 : 0;
    return rates >= 2;
  });
  if (acct.empty()) return std::nullopt;
  Operation act = At(acct, 0);
  act.before.push_back("click tb_EditRec");
  act.before.push_back("click optLaborRate(0)");
  act.before.push_back("answer Yes");
  SaveCard(act);
  act.after = {"expect box like \"The department labor rate option has not*\""};
  // They go in the order in which they were stored, which the books don't tell.
  std::vector<std::string> keys;
  for (const auto& [key, rate] : Table("CustLaborRates"))
    if (rate.at("AcctNum") == acct) keys.push_back(key);
  act.anyOrder = "CustLaborRates";
  for (const std::string& key : keys) act.steps.push_back(Remove("CustLaborRates", key));
  act.steps.push_back(Change("Customers", acct, {{"LaborRateType", "N"}, {"LaborRate", "0"}}));
  return act;
}

std::optional<Operation> Clerk::DeleteCustomer() {
  if (Table("Customers").size() <= kFewest) return std::nullopt;
  const std::string acct = Choose("Customers");
  Operation act = At(acct, 0);
  DeleteCurrent(act);
  act.steps.push_back(Remove("Customers", acct));
  return act;
}

std::optional<Operation> Clerk::ChangeCustomerCell() {
  const std::string acct = Choose("Customers");
  if (acct.empty()) return std::nullopt;
  Operation act = At(acct, 0);
  const std::string city = Mark("Town");
  act.write = {"cell grid(0) City " + Quoted(city)};
  act.steps.push_back(Change("Customers", acct, {{"City", city}}));
  return act;
}

}  // namespace system_test
