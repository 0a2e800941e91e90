#include "suite/company_schema.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using platform::FieldType;
using platform::TableDefinition;
using suite::DataFile;

/// A field as "Name TYPE", with " null" behind the type when its default is Null although it is a number or a Boolean.
std::string Describe(const platform::FieldDefinition& field) {
  const auto type = [&]() -> std::string {
    switch (field.type) {
      case FieldType::Boolean:
        return "BOOLEAN";
      case FieldType::Byte:
        return "BYTE";
      case FieldType::Short:
        return "SHORT";
      case FieldType::Long:
        return "LONG";
      case FieldType::Counter:
        return "COUNTER";
      case FieldType::Currency:
        return "CURRENCY";
      case FieldType::Double:
        return "DOUBLE";
      case FieldType::Date:
        return "DATE";
      case FieldType::Text:
        return "TEXT(" + std::to_string(field.size) + ")";
      case FieldType::Memo:
        return "MEMO";
    }
    return "?";
  }();
  platform::Value expected = platform::Null;
  switch (field.type) {
    case FieldType::Boolean:
      expected = false;
      break;
    case FieldType::Byte:
      expected = std::uint8_t{0};
      break;
    case FieldType::Short:
      expected = std::int16_t{0};
      break;
    case FieldType::Long:
      expected = std::int32_t{0};
      break;
    case FieldType::Currency:
      expected = platform::Currency{0};
      break;
    case FieldType::Double:
      expected = 0.0;
      break;
    default:
      break;
  }
  std::string text = field.name + " " + type;
  if (field.defaultValue == expected) return text;
  return text + (field.defaultValue.IsNull() ? " null" : " other default");
}

std::string Describe(const platform::IndexDefinition& index) {
  std::string text = index.name + ":";
  for (const auto& field : index.fields) text += " " + field;
  return text + (index.primary ? " primary" : index.unique ? " unique" : "");
}

TableDefinition Table(DataFile file, const std::string& name) {
  for (const auto& table : suite::TablesOf(file)) {
    if (table.name == name) return table;
  }
  ADD_FAILURE() << "no table " << name;
  return {};
}

std::vector<std::string> Fields(DataFile file, const std::string& table) {
  std::vector<std::string> texts;
  for (const auto& field : Table(file, table).fields) texts.push_back(Describe(field));
  return texts;
}

/// The indexes that programs name; those for speed alone are left out.
std::vector<std::string> Indexes(DataFile file, const std::string& table) {
  std::vector<std::string> texts;
  for (const auto& index : Table(file, table).indexes) {
    if (index.name[0] != 'x') texts.push_back(Describe(index));
  }
  return texts;
}

std::vector<std::string> SpeedIndexes(DataFile file, const std::string& table) {
  std::vector<std::string> texts;
  for (const auto& index : Table(file, table).indexes) {
    if (index.name[0] != 'x') continue;
    EXPECT_FALSE(index.unique) << index.name;
    std::string fields;
    for (const auto& field : index.fields) fields += (fields.empty() ? "" : ",") + field;
    texts.push_back(fields);
  }
  std::sort(texts.begin(), texts.end());
  return texts;
}

std::vector<std::string> Tables(DataFile file) {
  std::vector<std::string> names;
  for (const auto& table : suite::TablesOf(file)) names.push_back(table.name);
  std::sort(names.begin(), names.end());
  return names;
}

using List = std::vector<std::string>;

TEST(CompanySchema, TablesOfEachFile) {
  EXPECT_EQ(Tables(DataFile::Dat), (List{"AR", "Company", "Rights"}));
  EXPECT_EQ(Tables(DataFile::Customer),
            (List{"Addresses",  "CUReports",  "CreditCardTypes", "CustCodes",   "CustCreditCards", "CustLaborRates",
                  "Customers",  "DataCodes",  "Keywords",        "Locations",   "Lookups",         "MaterialSalesRateCodes",
                  "PhoneTypes", "Phones",     "SuperCustomers",  "TaxEntities", "TaxGrid",         "TaxTypes",
                  "Terms",      "UserStartup"}));
  EXPECT_EQ(Tables(DataFile::Ledger), (List{"AccountingPeriod", "Accounts", "Departments", "GL"}));
  EXPECT_EQ(Tables(DataFile::Transactions), (List{"Transactions"}));
  EXPECT_EQ(Tables(DataFile::FlatRate), (List{"FRDeptTax"}));
  EXPECT_EQ(Tables(DataFile::Temporary),
            (List{"CU_AssignDataCodes", "CU_AssignKeywords", "CU_AssignTaxes", "CustLabelTempRpt", "Customers"}));
}

TEST(CompanySchema, FileNames) {
  EXPECT_EQ(suite::FileName(DataFile::Dat), "dat.zdb");
  EXPECT_EQ(suite::FileName(DataFile::Customer), "customer.zdb");
  EXPECT_EQ(suite::FileName(DataFile::Ledger), "GL.zdb");
  EXPECT_EQ(suite::FileName(DataFile::Transactions), "artrans.zdb");
  EXPECT_EQ(suite::FileName(DataFile::FlatRate), "flatrate.zdb");
  EXPECT_EQ(suite::TemporaryFileName(12), "orvTemp12.zdb");
}

TEST(CompanySchema, Dat) {
  EXPECT_EQ(Fields(DataFile::Dat, "Company"),
            (List{"CompID LONG", "AccountingEntity BYTE", "BeginningMonth SHORT", "CompName TEXT(40)", "Addr1 TEXT(40)", "Addr2 TEXT(40)",
                  "City TEXT(25)", "State TEXT(2)", "Zip TEXT(10)", "Country TEXT(30)", "Phone TEXT(10)", "Fax TEXT(10)", "Owner TEXT(40)",
                  "FIN TEXT(11)"}));
  EXPECT_EQ(Indexes(DataFile::Dat, "Company"), (List{"CompID: CompID primary"}));
  EXPECT_EQ(Fields(DataFile::Dat, "Rights"), (List{"Program TEXT(10)", "UserNum LONG", "Mask TEXT(80)"}));
  EXPECT_EQ(Indexes(DataFile::Dat, "Rights"), (List{"Program: Program UserNum primary"}));
  EXPECT_EQ(Fields(DataFile::Dat, "AR"), (List{"CompID LONG", "PayTerms LONG"}));
  EXPECT_EQ(Indexes(DataFile::Dat, "AR"), (List{"CompID: CompID primary"}));
}

const List kCustomerFields = {"AcctNum COUNTER",
                              "LastName TEXT(30)",
                              "FirstName TEXT(15)",
                              "Title TEXT(5)",
                              "Addr1 TEXT(30)",
                              "Addr2 TEXT(30)",
                              "City TEXT(25)",
                              "State TEXT(2)",
                              "Zip TEXT(10)",
                              "Country TEXT(30)",
                              "Terms LONG null",
                              "Status SHORT",
                              "NonBillable BOOLEAN",
                              "Comments MEMO",
                              "TaxID TEXT(15)",
                              "ExemptExpireDate DATE",
                              "AgeMethod BOOLEAN null",
                              "OmitFinanceCharge BOOLEAN null",
                              "Creditlimit CURRENCY",
                              "CreditHold BOOLEAN",
                              "EMail TEXT(40)",
                              "WebSite TEXT(40)",
                              "MapCode TEXT(20)",
                              "SalesRate TEXT(1)",
                              "SalesRatePer DOUBLE",
                              "LaborRateType TEXT(1)",
                              "LaborRate CURRENCY",
                              "TaxBasisA LONG",
                              "TaxBasisB LONG",
                              "TaxBasisC LONG",
                              "TaxBasisD LONG",
                              "CurrFinanceCharge CURRENCY",
                              "CurrBalance CURRENCY",
                              "PaidThisMonth CURRENCY",
                              "PaidThisYear CURRENCY",
                              "PaidLastYear CURRENCY",
                              "PaidToDate CURRENCY",
                              "EntryDate DATE",
                              "LastTrans DATE",
                              "LastOrdDate DATE",
                              "LastStateDate DATE",
                              "LastPayDate DATE",
                              "DefaultBillTo LONG",
                              "DefaultBillAddress LONG",
                              "DefaultShipAddress LONG",
                              "DefaultPhoneNumber LONG",
                              "DefaultCreditCard LONG",
                              "Latitude LONG",
                              "Longitude LONG",
                              "CustomerID TEXT(20)"};

TEST(CompanySchema, Customers) {
  EXPECT_EQ(Fields(DataFile::Customer, "Customers"), kCustomerFields);
  EXPECT_EQ(Indexes(DataFile::Customer, "Customers"), (List{"ByAcct: AcctNum primary", "Zip: Zip", "CustomersMapCode: MapCode"}));
  EXPECT_EQ(SpeedIndexes(DataFile::Customer, "Customers"), (List{"City", "FirstName", "LastName", "NonBillable,LastName"}));
  EXPECT_EQ(Fields(DataFile::Temporary, "Customers"), kCustomerFields);
}

TEST(CompanySchema, SubRecords) {
  constexpr auto kFile = DataFile::Customer;
  EXPECT_EQ(Fields(kFile, "Phones"),
            (List{"RecordID COUNTER", "AcctNum LONG", "Area TEXT(3)", "Phone TEXT(7)", "Ext TEXT(5)", "Type TEXT(1)", "Comment TEXT(20)"}));
  EXPECT_EQ(Indexes(kFile, "Phones"), (List{"PrimaryKey: RecordID primary", "Type: Type"}));
  EXPECT_EQ(Fields(kFile, "Addresses"),
            (List{"addressID COUNTER", "Customer LONG", "Addr1 TEXT(30)", "Addr2 TEXT(30)", "City TEXT(25)", "State TEXT(2)",
                  "Zip TEXT(10)", "Country TEXT(30)", "Comment TEXT(30)", "ActiveMonthLow SHORT", "ActiveMonthHigh SHORT"}));
  EXPECT_EQ(Indexes(kFile, "Addresses"), (List{"PrimaryKey: addressID primary"}));
  EXPECT_EQ(Fields(kFile, "CustCreditCards"),
            (List{"CreditCardID COUNTER", "AcctNum LONG", "CCType TEXT(1)", "CCNumber TEXT(30)", "CCHolder TEXT(30)", "CCMonth TEXT(2)",
                  "CCYear TEXT(4)", "CCLimit CURRENCY", "CCComment TEXT(30)"}));
  EXPECT_EQ(Indexes(kFile, "CustCreditCards"), (List{"PrimaryKey: CreditCardID primary", "CCType: CCType"}));
  EXPECT_EQ(Fields(kFile, "CustLaborRates"), (List{"AcctNum LONG", "Dept TEXT(3)", "Adjustment DOUBLE"}));
  EXPECT_EQ(Indexes(kFile, "CustLaborRates"), (List{"PrimaryKey: AcctNum Dept primary"}));
  EXPECT_EQ(Fields(kFile, "CustCodes"), (List{"AcctNum LONG", "CustCodes SHORT"}));
  EXPECT_EQ(Indexes(kFile, "CustCodes"), (List{"CustCodes: CustCodes", "AcctCode: AcctNum CustCodes unique"}));
  EXPECT_EQ(Fields(kFile, "Lookups"), (List{"AcctNum LONG", "Text TEXT(20)"}));
  EXPECT_EQ(Indexes(kFile, "Lookups"), (List{"ByWord: Text", "ByAcct: AcctNum Text unique"}));
  EXPECT_EQ(Fields(kFile, "SuperCustomers"), (List{"Primary LONG", "Subordinate LONG"}));
}

TEST(CompanySchema, SpeedIndexes) {
  constexpr auto kFile = DataFile::Customer;
  EXPECT_EQ(SpeedIndexes(kFile, "Phones"), (List{"AcctNum", "Area,AcctNum"}));
  EXPECT_EQ(SpeedIndexes(kFile, "Addresses"), (List{"Customer"}));
  EXPECT_EQ(SpeedIndexes(kFile, "CustCreditCards"), (List{"AcctNum"}));
  EXPECT_EQ(SpeedIndexes(kFile, "CustCodes"), (List{"CustCodes,AcctNum"}));
  EXPECT_EQ(SpeedIndexes(kFile, "Lookups"), (List{"Text,AcctNum"}));
  EXPECT_EQ(SpeedIndexes(kFile, "SuperCustomers"), (List{"Primary", "Subordinate"}));
  EXPECT_EQ(SpeedIndexes(DataFile::Transactions, "Transactions"), (List{"AcctNum", "AltInvNo", "InvChkCredNo"}));
}

TEST(CompanySchema, CodeTables) {
  constexpr auto kFile = DataFile::Customer;
  EXPECT_EQ(Fields(kFile, "PhoneTypes"), (List{"Type TEXT(1)", "TypeDescription TEXT(20)"}));
  EXPECT_EQ(Indexes(kFile, "PhoneTypes"), (List{"PrimaryKey: Type primary"}));
  EXPECT_EQ(Fields(kFile, "CreditCardTypes"), (List{"CreditCardType TEXT(1)", "CreditCardName TEXT(30)", "BankCharge DOUBLE"}));
  EXPECT_EQ(Indexes(kFile, "CreditCardTypes"), (List{"PrimaryKey: CreditCardType primary"}));
  EXPECT_EQ(Fields(kFile, "DataCodes"), (List{"Code SHORT", "Description TEXT(30)"}));
  EXPECT_EQ(Indexes(kFile, "DataCodes"), (List{"PrimaryKey: Code primary"}));
  EXPECT_EQ(Fields(kFile, "Keywords"), (List{"Keyword TEXT(20)"}));
  EXPECT_EQ(Indexes(kFile, "Keywords"), (List{"PrimaryKey: Keyword primary"}));
  EXPECT_EQ(Fields(kFile, "Terms"), (List{"Terms LONG", "Message TEXT(30)"}));
  EXPECT_EQ(Fields(kFile, "MaterialSalesRateCodes"), (List{"SalesRate TEXT(1)", "RateDescription TEXT(20)"}));
  EXPECT_EQ(Fields(kFile, "Locations"), (List{"RecordID COUNTER", "MapCode TEXT(20)", "Location TEXT(24)"}));
  EXPECT_EQ(Indexes(kFile, "Locations"), (List{"PrimaryKey: RecordID primary", "MapCode: MapCode"}));
}

TEST(CompanySchema, TaxTables) {
  constexpr auto kFile = DataFile::Customer;
  EXPECT_EQ(Fields(kFile, "TaxTypes"), (List{"TaxType COUNTER", "TypeDescription TEXT(30)", "TypeCode TEXT(1)"}));
  EXPECT_EQ(Indexes(kFile, "TaxTypes"), (List{"PrimaryKey: TaxType primary"}));
  EXPECT_EQ(Fields(kFile, "TaxEntities"), (List{"TaxEntity COUNTER", "EntityDescription TEXT(30)"}));
  EXPECT_EQ(Indexes(kFile, "TaxEntities"), (List{"PrimaryKey: TaxEntity primary"}));
  EXPECT_EQ(Fields(kFile, "TaxGrid"), (List{"TaxID COUNTER", "Description TEXT(25)", "TaxType LONG null", "TaxEntity LONG null",
                                            "TaxCode TEXT(20)", "Mat DOUBLE", "Lab DOUBLE", "Oth DOUBLE", "GLMat TEXT(8)", "GLLab TEXT(8)",
                                            "GLOth TEXT(8)", "Limit CURRENCY", "LimitTransType TEXT(1)", "Comment TEXT(50)"}));
  EXPECT_EQ(Indexes(kFile, "TaxGrid"), (List{"Primary: TaxID primary", "TaxType: TaxType", "TaxEntity: TaxEntity"}));
}

TEST(CompanySchema, OptionsAndReports) {
  constexpr auto kFile = DataFile::Customer;
  EXPECT_EQ(Fields(kFile, "UserStartup"),
            (List{"UserNum LONG", "StartGrid BOOLEAN", "QueryTab SHORT", "QueryField SHORT", "AddPhone BOOLEAN null"}));
  EXPECT_EQ(Fields(kFile, "CUReports"),
            (List{"Sequence LONG", "Description TEXT(50)", "DefaultDescription TEXT(50)", "Name TEXT(30)", "Type TEXT(20)",
                  "PrintMedia TEXT(40)", "DataFiles0 TEXT(30)", "DataFiles1 TEXT(30)", "DataFiles2 TEXT(30)", "DataFiles3 TEXT(30)",
                  "DataFiles4 TEXT(30)", "DataFiles5 TEXT(30)", "DataFiles6 TEXT(30)", "DataFiles7 TEXT(30)", "CustomerTable LONG",
                  "SelectionFormula TEXT(255)", "CustomerPageBreak BOOLEAN", "CustomerSelection BOOLEAN"}));
}

TEST(CompanySchema, OtherFiles) {
  EXPECT_EQ(Fields(DataFile::Ledger, "Departments"),
            (List{"DeptNumber TEXT(3)", "DeptDescription TEXT(30)", "DefaultLaborRate CURRENCY null"}));
  EXPECT_EQ(Indexes(DataFile::Ledger, "Departments"), (List{"PrimaryKey: DeptNumber primary"}));
  EXPECT_EQ(Fields(DataFile::Ledger, "GL"), (List{"Year SHORT", "Account TEXT(5)", "DeptNumber TEXT(3)"}));
  EXPECT_EQ(Indexes(DataFile::Ledger, "GL"), (List{"PrimaryKey: Year Account DeptNumber primary"}));
  EXPECT_EQ(Fields(DataFile::Ledger, "Accounts"), (List{"AccountNumber TEXT(5)", "AccountType TEXT(1)", "AccountDescription TEXT(40)"}));
  EXPECT_EQ(Indexes(DataFile::Ledger, "Accounts"), (List{"AccountNumber: AccountNumber primary"}));
  EXPECT_EQ(Fields(DataFile::Ledger, "AccountingPeriod"), (List{"Year SHORT null"}));
  EXPECT_EQ(Fields(DataFile::Transactions, "Transactions"),
            (List{"AcctNum LONG", "TranType TEXT(1)", "InvChkCredNo TEXT(15)", "AltInvNo LONG"}));
  EXPECT_EQ(Fields(DataFile::FlatRate, "FRDeptTax"), (List{"FRTaxID LONG", "TaxID LONG"}));
}

TEST(CompanySchema, WorkTables) {
  constexpr auto kFile = DataFile::Temporary;
  EXPECT_EQ(Fields(kFile, "CU_AssignTaxes"), (List{"Instance LONG", "TaxID LONG", "Assign BOOLEAN", "Description TEXT(25)",
                                                   "TypeDescription TEXT(30)", "EntityDescription TEXT(30)"}));
  EXPECT_EQ(Fields(kFile, "CU_AssignDataCodes"), (List{"Instance LONG", "Assign BOOLEAN", "Code SHORT", "Description TEXT(30)"}));
  EXPECT_EQ(Indexes(kFile, "CU_AssignDataCodes"), (List{"InstanceCode: Instance Code unique"}));
  EXPECT_EQ(Fields(kFile, "CU_AssignKeywords"), (List{"Instance LONG", "Assign BOOLEAN", "Keyword TEXT(20)"}));
  EXPECT_EQ(Indexes(kFile, "CU_AssignKeywords"), (List{"InstanceKeyword: Instance Keyword unique"}));
  EXPECT_EQ(Fields(kFile, "CustLabelTempRpt"), (List{"AcctNum LONG", "Name TEXT(60)", "Address1 TEXT(50)", "Address2 TEXT(50)",
                                                     "Address3 TEXT(50)", "City TEXT(25)", "State TEXT(2)", "Zip TEXT(10)"}));
}

}  // namespace
