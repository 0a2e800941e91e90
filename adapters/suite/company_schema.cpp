#include "suite/company_schema.h"

#include <cassert>

#include "suite/fields.h"

namespace suite {

using namespace fields;
using platform::TableDefinition;

namespace {

std::vector<TableDefinition> DatTables() {
  return {{"Company",
           {Long("CompID"), Byte("AccountingEntity"), Short("BeginningMonth"), Text("CompName", 40), Text("Addr1", 40), Text("Addr2", 40),
            Text("City", 25), Text("State", 2), Text("Zip", 10), Text("Country", 30), Text("Phone", 10), Text("Fax", 10), Text("Owner", 40),
            Text("FIN", 11)},
           {Primary("CompID", {"CompID"})}},
          {"Rights", {Text("Program", 10), Long("UserNum"), Text("Mask", 80)}, {Primary("Program", {"Program", "UserNum"})}},
          {"AR", {Long("CompID"), Long("PayTerms")}, {Primary("CompID", {"CompID"})}}};
}

std::vector<TableDefinition> LedgerTables() {
  return {{"Departments",
           {Text("DeptNumber", 3), Text("DeptDescription", 30), MoneyOrNull("DefaultLaborRate")},
           {Primary("PrimaryKey", {"DeptNumber"})}},
          {"GL", {Short("Year"), Text("Account", 5), Text("DeptNumber", 3)}, {Primary("PrimaryKey", {"Year", "Account", "DeptNumber"})}},
          {"Accounts",
           {Text("AccountNumber", 5), Text("AccountType", 1), Text("AccountDescription", 40)},
           {Primary("AccountNumber", {"AccountNumber"})}},
          {"AccountingPeriod", {ShortOrNull("Year")}, {}}};
}

std::vector<TableDefinition> TransactionTables() {
  return {{"Transactions",
           {Long("AcctNum"), Text("TranType", 1), Text("InvChkCredNo", 15), Long("AltInvNo")},
           {Index("xCustomer", {"AcctNum"}), Index("xNumber", {"InvChkCredNo"}), Index("xAltNumber", {"AltInvNo"})}}};
}

std::vector<TableDefinition> FlatRateTables() { return {{"FRDeptTax", {Long("FRTaxID"), Long("TaxID")}, {Index("xTax", {"TaxID"})}}}; }

std::vector<TableDefinition> WorkTables() {
  return {
      {"CU_AssignTaxes",
       {Long("Instance"), Long("TaxID"), Flag("Assign"), Text("Description", 25), Text("TypeDescription", 30),
        Text("EntityDescription", 30)},
       {Index("xInstance", {"Instance", "TaxID"})}},
      {"CU_AssignDataCodes",
       {Long("Instance"), Flag("Assign"), Short("Code"), Text("Description", 30)},
       {Unique("InstanceCode", {"Instance", "Code"})}},
      {"CU_AssignKeywords", {Long("Instance"), Flag("Assign"), Text("Keyword", 20)}, {Unique("InstanceKeyword", {"Instance", "Keyword"})}},
      CustomersTable(),
      // A title, a first and a last name with a blank between each; the last address line is city, state and zip.
      {"CustLabelTempRpt",
       {Long("AcctNum"), Text("Name", 60), Text("Address1", 50), Text("Address2", 50), Text("Address3", 50), Text("City", 25),
        Text("State", 2), Text("Zip", 10)},
       {}}};
}

}  // namespace

std::string FileName(DataFile file) {
  switch (file) {
    case DataFile::Dat:
      return "dat.zdb";
    case DataFile::Customer:
      return "customer.zdb";
    case DataFile::Ledger:
      return "GL.zdb";
    case DataFile::Transactions:
      return "artrans.zdb";
    case DataFile::FlatRate:
      return "flatrate.zdb";
    case DataFile::Temporary:
      return "";
  }
  assert(false);
  return "";
}

std::string TemporaryFileName(int user) { return "orvTemp" + std::to_string(user) + ".zdb"; }

std::vector<TableDefinition> TablesOf(DataFile file) {
  switch (file) {
    case DataFile::Dat:
      return DatTables();
    case DataFile::Customer:
      return CustomerFileTables();
    case DataFile::Ledger:
      return LedgerTables();
    case DataFile::Transactions:
      return TransactionTables();
    case DataFile::FlatRate:
      return FlatRateTables();
    case DataFile::Temporary:
      return WorkTables();
  }
  assert(false);
  return {};
}

}  // namespace suite
