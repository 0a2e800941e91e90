#include <gtest/gtest.h>

#include "unit/apps/suitefiles/program_runner.h"

namespace {

namespace fs = std::filesystem;

const std::vector<std::string> kFilled = {"Customers", "Phones",   "Addresses",      "CustCreditCards", "CustLaborRates",
                                          "CustCodes", "Lookups",  "SuperCustomers", "DataCodes",       "Keywords",
                                          "Locations", "TaxTypes", "TaxEntities",    "TaxGrid"};

class Demo : public testing::Test {
 protected:
  Outcome Make(const std::string& where, const std::string& count, const std::string& seed) {
    return RunSuitefiles({"demo", folder / where, "--company", "1", "--customers", count, "--seed", seed});
  }
  std::string Customer(const std::string& where) const { return folder / (where + "/data/orv1/customer.zdb"); }
  TemporaryFolder folder;
};

TEST_F(Demo, EqualSeedsGiveEqualRows) {
  ASSERT_EQ(Make("a", "1500", "5").status, 0);
  ASSERT_EQ(Make("b", "1500", "5").status, 0);
  ASSERT_EQ(Make("c", "1500", "6").status, 0);
  for (const auto& table : kFilled) {
    const auto rows = Select(Customer("a"), table);
    EXPECT_FALSE(rows.empty()) << table;
    EXPECT_EQ(rows, Select(Customer("b"), table)) << table;
  }
  EXPECT_NE(Select(Customer("a"), "Customers"), Select(Customer("c"), "Customers"));
  EXPECT_EQ(Select(folder / "a/data/orv1/artrans.zdb", "Transactions"), Select(folder / "b/data/orv1/artrans.zdb", "Transactions"));
}

TEST_F(Demo, NothingIsWrongWithIt) {
  ASSERT_EQ(Make("a", "3000", "1").status, 0);
  const auto check = RunSuitefiles({"check", folder / "a"});
  EXPECT_EQ(check.status, 0) << check.out << check.err;
  EXPECT_EQ(Select(Customer("a"), "SELECT Count(*) AS N FROM Customers"), "3000\n");
  EXPECT_EQ(Select(Customer("a"), "SELECT Max(AcctNum) AS N FROM Customers"), "3000\n");
  EXPECT_EQ(Select(folder / "a/dat.zdb", "SELECT CompID, PayTerms FROM AR"), "1\t4\n");
}

TEST_F(Demo, FillsACompanyThatIsNewAndKeepsItsName) {
  ASSERT_EQ(RunSuitefiles({"create", folder / "a", "--company", "1", "--name", "Ours"}).status, 0);
  const auto outcome = Make("a", "50", "1");
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(Select(Customer("a"), "SELECT Count(*) AS N FROM Customers"), "50\n");
  EXPECT_EQ(Select(folder / "a/dat.zdb", "SELECT CompName FROM Company"), "Ours\n");
  EXPECT_EQ(RunSuitefiles({"check", folder / "a"}).status, 0);
}

TEST_F(Demo, RefusesACompanyInUse) {
  ASSERT_EQ(RunSuitefiles({"create", folder / "a", "--company", "1"}).status, 0);
  Execute(Customer("a"), "INSERT INTO Keywords (Keyword) VALUES ('Ours')");
  const auto outcome = Make("a", "50", "1");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("Keywords"), std::string::npos) << outcome.err;
  EXPECT_EQ(Select(Customer("a"), "SELECT Count(*) AS N FROM Customers"), "0\n");
  EXPECT_EQ(Select(Customer("a"), "Keywords"), "Ours\n");
}

TEST_F(Demo, WithoutCustomersItHasTheCodes) {
  ASSERT_EQ(Make("a", "0", "1").status, 0);
  EXPECT_EQ(Select(Customer("a"), "Customers"), "");
  EXPECT_NE(Select(Customer("a"), "TaxGrid"), "");
}

TEST_F(Demo, ANewCustomerGetsTheNextNumber) {
  ASSERT_EQ(Make("a", "20", "1").status, 0);
  Execute(Customer("a"), "INSERT INTO Customers (LastName) VALUES ('Next')");
  EXPECT_EQ(Select(Customer("a"), "SELECT AcctNum FROM Customers WHERE LastName='Next'"), "21\n");
}

TEST_F(Demo, DatesEndAtTheGivenDay) {
  ASSERT_EQ(RunSuitefiles({"demo", folder / "a", "--company", "1", "--customers", "500", "--date", "2004-02-29"}).status, 0);
  EXPECT_EQ(Select(Customer("a"), "SELECT AcctNum FROM Customers WHERE EntryDate>#2/29/2004# OR LastTrans>#2/29/2004#"), "");
  EXPECT_EQ(Select(folder / "a/data/orv1/GL.zdb", "AccountingPeriod"), "2004\n");
  for (const char* wrong : {"2004-02-30", "04-02-29", "2004/02/29", "today"}) {
    EXPECT_EQ(RunSuitefiles({"demo", folder / "b", "--company", "1", "--customers", "5", "--date", wrong}).status, 2) << wrong;
  }
  EXPECT_FALSE(fs::exists(folder / "b"));
}

}  // namespace
