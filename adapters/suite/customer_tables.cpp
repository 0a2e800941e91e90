#include "suite/company_schema.h"
#include "suite/fields.h"

namespace suite {

using namespace fields;
using platform::TableDefinition;

platform::TableDefinition CustomersTable() {
  return {"Customers",
          {Counter("AcctNum"),         Text("LastName", 30),       Text("FirstName", 15),
           Text("Title", 5),           Text("Addr1", 30),          Text("Addr2", 30),
           Text("City", 25),           Text("State", 2),           Text("Zip", 10),
           Text("Country", 30),        LongOrNull("Terms"),        Short("Status"),
           Flag("NonBillable"),        Memo("Comments"),           Text("TaxID", 15),
           Date("ExemptExpireDate"),   FlagOrNull("AgeMethod"),    FlagOrNull("OmitFinanceCharge"),
           Money("Creditlimit"),       Flag("CreditHold"),         Text("EMail", 40),
           Text("WebSite", 40),        Text("MapCode", 20),        Text("SalesRate", 1),
           Double("SalesRatePer"),     Text("LaborRateType", 1),   Money("LaborRate"),
           Long("TaxBasisA"),          Long("TaxBasisB"),          Long("TaxBasisC"),
           Long("TaxBasisD"),          Money("CurrFinanceCharge"), Money("CurrBalance"),
           Money("PaidThisMonth"),     Money("PaidThisYear"),      Money("PaidLastYear"),
           Money("PaidToDate"),        Date("EntryDate"),          Date("LastTrans"),
           Date("LastOrdDate"),        Date("LastStateDate"),      Date("LastPayDate"),
           Long("DefaultBillTo"),      Long("DefaultBillAddress"), Long("DefaultShipAddress"),
           Long("DefaultPhoneNumber"), Long("DefaultCreditCard"),  Long("Latitude"),
           Long("Longitude"),          Text("CustomerID", 20)},
          {Primary("ByAcct", {"AcctNum"}), Index("Zip", {"Zip"}), Index("CustomersMapCode", {"MapCode"})}};
}

namespace {

TableDefinition FastCustomersTable() {
  auto table = CustomersTable();
  for (const char* field : {"LastName", "FirstName", "City"}) table.indexes.push_back(Index(std::string("x") + field, {field}));
  table.indexes.push_back(Index("xBilling", {"NonBillable", "LastName"}));
  return table;
}

std::vector<TableDefinition> SubRecordTables() {
  return {
      {"Phones",
       {Counter("RecordID"), Long("AcctNum"), Text("Area", 3), Text("Phone", 7), Text("Ext", 5), Text("Type", 1), Text("Comment", 20)},
       {Primary("PrimaryKey", {"RecordID"}), Index("Type", {"Type"}), Index("xCustomer", {"AcctNum"}),
        Index("xArea", {"Area", "AcctNum"})}},
      {"Addresses",
       {Counter("addressID"), Long("Customer"), Text("Addr1", 30), Text("Addr2", 30), Text("City", 25), Text("State", 2), Text("Zip", 10),
        Text("Country", 30), Text("Comment", 30), Short("ActiveMonthLow"), Short("ActiveMonthHigh")},
       {Primary("PrimaryKey", {"addressID"}), Index("xCustomer", {"Customer"})}},
      {"CustCreditCards",
       {Counter("CreditCardID"), Long("AcctNum"), Text("CCType", 1), Text("CCNumber", 30), Text("CCHolder", 30), Text("CCMonth", 2),
        Text("CCYear", 4), Money("CCLimit"), Text("CCComment", 30)},
       {Primary("PrimaryKey", {"CreditCardID"}), Index("CCType", {"CCType"}), Index("xCustomer", {"AcctNum"})}},
      {"CustLaborRates", {Long("AcctNum"), Text("Dept", 3), Double("Adjustment")}, {Primary("PrimaryKey", {"AcctNum", "Dept"})}},
      {"CustCodes",
       {Long("AcctNum"), Short("CustCodes")},
       {Index("CustCodes", {"CustCodes"}), Unique("AcctCode", {"AcctNum", "CustCodes"}), Index("xCode", {"CustCodes", "AcctNum"})}},
      {"Lookups",
       {Long("AcctNum"), Text("Text", 20)},
       {Index("ByWord", {"Text"}), Unique("ByAcct", {"AcctNum", "Text"}), Index("xWord", {"Text", "AcctNum"})}},
      {"SuperCustomers", {Long("Primary"), Long("Subordinate")}, {Index("xPrimary", {"Primary"}), Index("xSubordinate", {"Subordinate"})}},
  };
}

std::vector<TableDefinition> CodeTables() {
  return {
      {"PhoneTypes", {Text("Type", 1), Text("TypeDescription", 20)}, {Primary("PrimaryKey", {"Type"})}},
      {"CreditCardTypes",
       {Text("CreditCardType", 1), Text("CreditCardName", 30), Double("BankCharge")},
       {Primary("PrimaryKey", {"CreditCardType"})}},
      {"DataCodes", {Short("Code"), Text("Description", 30)}, {Primary("PrimaryKey", {"Code"})}},
      {"Keywords", {Text("Keyword", 20)}, {Primary("PrimaryKey", {"Keyword"})}},
      {"Terms", {Long("Terms"), Text("Message", 30)}, {Primary("PrimaryKey", {"Terms"})}},
      {"MaterialSalesRateCodes", {Text("SalesRate", 1), Text("RateDescription", 20)}, {Primary("PrimaryKey", {"SalesRate"})}},
      {"Locations",
       {Counter("RecordID"), Text("MapCode", 20), Text("Location", 24)},
       {Primary("PrimaryKey", {"RecordID"}), Index("MapCode", {"MapCode"})}},
      {"TaxTypes", {Counter("TaxType"), Text("TypeDescription", 30), Text("TypeCode", 1)}, {Primary("PrimaryKey", {"TaxType"})}},
      {"TaxEntities", {Counter("TaxEntity"), Text("EntityDescription", 30)}, {Primary("PrimaryKey", {"TaxEntity"})}},
      {"TaxGrid",
       {Counter("TaxID"), Text("Description", 25), LongOrNull("TaxType"), LongOrNull("TaxEntity"), Text("TaxCode", 20), Double("Mat"),
        Double("Lab"), Double("Oth"), Text("GLMat", 8), Text("GLLab", 8), Text("GLOth", 8), Money("Limit"), Text("LimitTransType", 1),
        Text("Comment", 50)},
       {Primary("Primary", {"TaxID"}), Index("TaxType", {"TaxType"}), Index("TaxEntity", {"TaxEntity"})}},
  };
}

std::vector<TableDefinition> OptionTables() {
  TableDefinition reports{"CUReports",
                          {Long("Sequence"), Text("Description", 50), Text("DefaultDescription", 50), Text("Name", 30), Text("Type", 20),
                           Text("PrintMedia", 40)},
                          {}};
  for (const char* digit : {"0", "1", "2", "3", "4", "5", "6", "7"}) reports.fields.push_back(Text(std::string("DataFiles") + digit, 30));
  for (auto& field : {Long("CustomerTable"), Text("SelectionFormula", 255), Flag("CustomerPageBreak"), Flag("CustomerSelection")}) {
    reports.fields.push_back(field);
  }
  return {{"UserStartup",
           {Long("UserNum"), Flag("StartGrid"), Short("QueryTab"), Short("QueryField"), FlagOrNull("AddPhone")},
           {Index("xUser", {"UserNum"})}},
          reports};
}

}  // namespace

std::vector<TableDefinition> CustomerFileTables() {
  std::vector<TableDefinition> tables{FastCustomersTable()};
  for (auto group : {SubRecordTables(), CodeTables(), OptionTables()}) tables.insert(tables.end(), group.begin(), group.end());
  return tables;
}

std::vector<std::string> CodeTableNames() {
  std::vector<std::string> names;
  for (const TableDefinition& table : CodeTables()) names.push_back(table.name);
  return names;
}

}  // namespace suite
