#include <gtest/gtest.h>

#include "engine/data_file.h"
#include "suite/company_schema.h"
#include "unit/apps/suitefiles/program_runner.h"

namespace {

namespace fs = std::filesystem;

class Check : public testing::Test {
 protected:
  Check() {
    if (RunSuitefiles({"demo", folder.Path(), "--company", "1", "--customers", "60"}).status != 0) throw std::runtime_error("no company");
    customer = folder / "data/orv1/customer.zdb";
    ledger = folder / "data/orv1/GL.zdb";
  }
  /// Expects this sentence, and nothing else, to be said.
  void ExpectFinding(const std::string& sentence) {
    const auto outcome = RunSuitefiles({"check", folder.Path()});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "company 1: " + sentence + "\n") << outcome.err;
  }
  TemporaryFolder folder;
  std::string customer;
  std::string ledger;
};

TEST_F(Check, SaysHowManyFilesAreRight) {
  ASSERT_EQ(RunSuitefiles({"temp", folder.Path(), "--user", "1"}).status, 0);
  const auto outcome = RunSuitefiles({"check", folder.Path()});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "6 files, nothing wrong.\n");
}

TEST_F(Check, RowsWithoutACustomer) {
  Execute(customer, "INSERT INTO Phones (RecordID, AcctNum, Area, Phone, Type) VALUES (777, 999, '612', '5551234', 'H')");
  ExpectFinding("1 row of Phones name a customer that does not exist (RecordID 777).");
}

TEST_F(Check, ParentsWithoutACustomer) {
  Execute(customer, "INSERT INTO SuperCustomers ([Primary], Subordinate) VALUES (999, 1)");
  ExpectFinding("1 row of SuperCustomers name a customer that does not exist (Primary 999).");
}

TEST_F(Check, OwnParent) {
  Execute(customer, "INSERT INTO SuperCustomers ([Primary], Subordinate) VALUES (7, 7)");
  ExpectFinding("1 row of SuperCustomers are their own parent (Primary 7).");
}

TEST_F(Check, UnknownCodes) {
  Execute(customer, "UPDATE Customers SET Terms=99 WHERE AcctNum<=7");
  ExpectFinding("7 rows of Customers have terms that do not exist (AcctNum 1, 2, 3, 4, 5, ...).");
}

TEST_F(Check, ADefaultPhoneOfSomebodyElse) {
  Execute(customer, "INSERT INTO Customers (LastName, LaborRateType, DefaultPhoneNumber) VALUES ('X', 'N', 1)");
  ExpectFinding("1 row of Customers have a default phone that is none of their own (AcctNum 61).");
}

TEST_F(Check, UnknownTaxRate) {
  Execute(customer, "UPDATE Customers SET TaxBasisC=500 WHERE AcctNum=4");
  ExpectFinding("1 row of Customers have a TaxBasisC that is no tax rate (AcctNum 4).");
}

TEST_F(Check, ValuesOutOfRange) {
  Execute(customer, "UPDATE Customers SET Status=3 WHERE AcctNum=4");
  ExpectFinding("1 row of Customers are neither active nor inactive nor prospects (AcctNum 4).");
}

TEST_F(Check, ReferencesToOtherFiles) {
  Execute(customer, "INSERT INTO CustLaborRates (AcctNum, Dept, Adjustment) VALUES (9, '777', 1)");
  ExpectFinding("1 row of CustLaborRates name a department that does not exist (AcctNum 9).");
}

TEST_F(Check, TaxAccounts) {
  Execute(customer, "UPDATE TaxGrid SET GLOth='40000000' WHERE TaxID=1");
  ExpectFinding("1 row of TaxGrid name an account that is no liability account (TaxID 1).");
}

TEST_F(Check, TransactionsAndPriceBook) {
  Execute(folder / "data/orv1/artrans.zdb",
          "INSERT INTO Transactions (AcctNum, TranType, InvChkCredNo, AltInvNo) VALUES (5000, 'I', '1', 1)");
  ExpectFinding("1 row of Transactions name a customer that does not exist (AcctNum 5000).");
  Execute(folder / "data/orv1/artrans.zdb", "DELETE FROM Transactions WHERE AcctNum=5000");
  Execute(folder / "data/orv1/flatrate.zdb", "INSERT INTO FRDeptTax (FRTaxID, TaxID) VALUES (1, 88)");
  ExpectFinding("1 row of FRDeptTax name a tax rate that does not exist (TaxID 88).");
}

TEST_F(Check, AUserTwice) {
  for (int i = 0; i < 2; ++i) Execute(customer, "INSERT INTO UserStartup (UserNum) VALUES (12)");
  ExpectFinding("1 row of UserStartup repeat a user who has a row already (UserNum 12).");
}

TEST_F(Check, CompanyRows) {
  Execute(folder / "dat.zdb", "UPDATE Company SET BeginningMonth=13");
  const auto outcome = RunSuitefiles({"check", folder.Path()});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, folder / "dat.zdb: Company 1 has a first month that is not one of 1 to 12.\n");
}

TEST_F(Check, AMissingFile) {
  fs::remove(ledger);
  const auto outcome = RunSuitefiles({"check", folder.Path()});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.out.find(ledger), std::string::npos) << outcome.out;
}

TEST_F(Check, ADamagedFile) {
  std::string bytes = ReadAll(customer);
  for (std::size_t at = 4096; at + 2048 < bytes.size(); at += 4096) bytes.replace(at + 8, 64, 64, '\xAA');
  folder.Write("data/orv1/customer.zdb", bytes);
  const auto outcome = RunSuitefiles({"check", folder.Path()});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.out.find(customer), std::string::npos) << outcome.out;
}

TEST_F(Check, MissingTablesAndFields) {
  fs::remove(ledger);
  auto tables = suite::TablesOf(suite::DataFile::Ledger);
  tables.erase(tables.begin());
  tables[0].fields.pop_back();
  tables[0].indexes.clear();
  engine::CreateDataFile(ledger, tables);
  const auto outcome = RunSuitefiles({"check", folder.Path()});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.out.find("Departments"), std::string::npos) << outcome.out;
  EXPECT_NE(outcome.out.find("DeptNumber"), std::string::npos) << outcome.out;
  EXPECT_NE(outcome.out.find("what their rows refer to was not looked at"), std::string::npos) << outcome.out;
}

TEST_F(Check, FollowsTheSettingsFile) {
  fs::create_directories(folder / "elsewhere");
  fs::rename(customer, folder / "elsewhere/c.zdb");
  EXPECT_EQ(RunSuitefiles({"check", folder.Path()}).status, 1);
  folder.Write("orv1.ini", "[Databases]\ncustomer.zdb Path=" + (folder / "elsewhere/c.zdb") + "\n");
  EXPECT_EQ(RunSuitefiles({"check", folder.Path()}).status, 0);
}

TEST_F(Check, FindsTheDatFileByTheSettings) {
  fs::create_directories(folder / "elsewhere");
  fs::rename(folder / "dat.zdb", folder / "elsewhere/dat.zdb");
  EXPECT_EQ(RunSuitefiles({"check", folder.Path()}).status, 1);
  folder.Write("orv1.ini", "[Databases]\ndat.zdb Path=" + folder / "elsewhere/dat.zdb\n");
  const auto outcome = RunSuitefiles({"check", folder.Path()});
  EXPECT_EQ(outcome.status, 0) << outcome.out;
  EXPECT_EQ(outcome.out, "5 files, nothing wrong.\n");
  Execute(folder / "elsewhere/dat.zdb", "DELETE FROM Company");
  ExpectFinding("It has no row in " + folder / "elsewhere/dat.zdb.");
}

TEST_F(Check, AFolderWithoutData) {
  const TemporaryFolder empty;
  const auto outcome = RunSuitefiles({"check", empty.Path()});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.out.find("dat.zdb"), std::string::npos) << outcome.out << outcome.err;
}

}  // namespace
