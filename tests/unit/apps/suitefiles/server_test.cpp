// The commands on a company that lies on a server, and companies on their way there and back.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/data_file.h"
#include "support/test_server.h"
#include "unit/apps/suitefiles/program_runner.h"

namespace {

using testing::HasSubstr;

class SuitefilesOnServer : public testing::Test {
 protected:
  SuitefilesOnServer() : server_(TestServer::Shared()) {
    static int number = 0;
    database_ = "office" + std::to_string(++number);
    server_.CreateDatabase(database_);
    ::setenv("PGUSER", "office", 1);
  }
  ~SuitefilesOnServer() override { server_.DropDatabase(database_); }
  /// What a settings file names as the place of company 1.
  std::string Place() const { return server_.PathOf(database_) + "orv1/"; }
  std::string Ask(const std::string& sql) const { return server_.Run(database_, sql); }

  TestServer& server_;
  std::string database_;
  TemporaryFolder folder_;
};

TEST_F(SuitefilesOnServer, MakesAndChecksACompany) {
  const auto made = RunSuitefiles({"create", Place(), "--company", "1", "--year", "2004"});
  ASSERT_EQ(made.status, 0) << made.err;
  EXPECT_EQ(Ask("SELECT string_agg(nspname, ' ' ORDER BY nspname) FROM pg_namespace WHERE nspname LIKE 'orv1%'"),
            "orv1_artrans orv1_customer orv1_dat orv1_flatrate orv1_gl\n");
  const auto checked = RunSuitefiles({"check", Place()});
  EXPECT_EQ(checked.status, 0) << checked.err << checked.out;
  EXPECT_THAT(checked.out, HasSubstr("5 files, nothing wrong."));
  EXPECT_EQ(Select(Place() + "GL.zdb", "AccountingPeriod"), "2004\n");
  const auto again = RunSuitefiles({"create", Place(), "--company", "1"});
  EXPECT_EQ(again.status, 1);
  EXPECT_THAT(again.err, HasSubstr("already exists; nothing was changed"));
  EXPECT_EQ(RunSuitefiles({"check", Place()}).status, 0);
}

TEST_F(SuitefilesOnServer, FindsTheCompanyByItsSettings) {
  folder_.Write("suite/orv1.ini", "[Databases]\nDefault Path=" + Place() + "\n");
  ASSERT_EQ(RunSuitefiles({"create", folder_ / "suite", "--company", "1"}).status, 0);
  EXPECT_EQ(Ask("SELECT count(*) FROM orv1_customer.\"PhoneTypes\" HAVING count(*) > 0").empty(), false);
  EXPECT_FALSE(std::filesystem::exists(folder_ / "suite/data"));
  EXPECT_FALSE(std::filesystem::exists(folder_ / "suite/dat.zdb"));
  EXPECT_EQ(RunSuitefiles({"check", folder_ / "suite"}).status, 0);
}

TEST_F(SuitefilesOnServer, LeavesNothingOfACompanyThatCannotBeMade) {
  Ask("CREATE SCHEMA orv1_flatrate");
  EXPECT_EQ(RunSuitefiles({"create", Place(), "--company", "1"}).status, 1);
  EXPECT_EQ(Ask("SELECT string_agg(nspname, ' ' ORDER BY nspname) FROM pg_namespace WHERE nspname LIKE 'orv1%'"), "orv1_flatrate\n");
}

// It is this desk's own, where the programs of who asks for it look.
TEST_F(SuitefilesOnServer, TemporaryFilesStayOnTheDesk) {
  const char* const before = std::getenv("XDG_STATE_HOME");
  const std::string kept = before == nullptr ? "" : before;
  ::setenv("XDG_STATE_HOME", (folder_ / "state").c_str(), 1);
  const auto outcome = RunSuitefiles({"temp", Place(), "--user", "1"});
  before == nullptr ? ::unsetenv("XDG_STATE_HOME") : ::setenv("XDG_STATE_HOME", kept.c_str(), 1);
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, (folder_ / "state/orcussch/orvTEMP/orvTemp1.zdb") + " made.\n");
  EXPECT_TRUE(std::filesystem::exists(folder_ / "state/orcussch/orvTEMP/orvTemp1.zdb"));
}

TEST_F(SuitefilesOnServer, UpgradesACompanyOfAnOlderVersion) {
  ASSERT_EQ(RunSuitefiles({"create", Place(), "--company", "1"}).status, 0);
  Ask("ALTER TABLE orv1_customer.\"Customers\" DROP COLUMN \"Comments\"");
  Ask("DROP TABLE orv1_customer.\"CustCreditCards\"");
  ASSERT_EQ(RunSuitefiles({"check", Place()}).status, 1) << "as it is before";
  const auto outcome = RunSuitefiles({"upgrade", Place()});
  const std::string customer = Place() + "customer.zdb: ";
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, customer + "Table Customers has got the field Comments.\n" + customer + "Table CustCreditCards was made.\n" +
                             customer + "As it was it is kept as " + Place() + "customer_before_upgrade.zdb.\n5 files, 1 upgraded.\n");
  EXPECT_EQ(RunSuitefiles({"check", Place()}).status, 0);
  EXPECT_EQ(RunSuitefiles({"upgrade", Place()}).out, "5 files, 0 upgraded.\n");
  Ask("DROP TABLE orv1_customer.\"CustCreditCards\"");
  EXPECT_THAT(RunSuitefiles({"upgrade", Place()}).out, HasSubstr("kept as " + Place() + "customer_before_upgrade_2.zdb."));
}

TEST_F(SuitefilesOnServer, CopiesACompanyThereAndBack) {
  ASSERT_EQ(RunSuitefiles({"demo", folder_ / "a", "--company", "1", "--customers", "300"}).status, 0);
  // The highest number was given to a row that is gone: no other row ever gets it.
  Execute(folder_ / "a/data/orv1/customer.zdb", "INSERT INTO Customers (AcctNum, LastName) VALUES (301, 'Gone')");
  Execute(folder_ / "a/data/orv1/customer.zdb", "DELETE FROM Customers WHERE AcctNum=301");
  const auto there = RunSuitefiles({"copy", folder_ / "a", Place(), "--company", "1"});
  ASSERT_EQ(there.status, 0) << there.err;
  EXPECT_THAT(there.out, HasSubstr("customer.zdb: "));
  EXPECT_THAT(there.out, HasSubstr("copied; counts and sums agree."));
  EXPECT_EQ(Ask("SELECT count(*) FROM orv1_customer.\"Customers\""), "300\n");
  EXPECT_EQ(engine::LastNumberOf(Place() + "customer.zdb", "Customers"), 301);
  EXPECT_EQ(RunSuitefiles({"check", Place()}).status, 0);

  const auto back = RunSuitefiles({"copy", Place(), folder_ / "b", "--company", "1"});
  ASSERT_EQ(back.status, 0) << back.err;
  EXPECT_EQ(engine::LastNumberOf(folder_ / "b/data/orv1/customer.zdb", "Customers"), 301);
  EXPECT_EQ(RunSuitefiles({"check", folder_ / "b"}).status, 0);
  for (const char* table : {"Customers", "Phones", "Addresses", "Lookups", "TaxGrid"})
    EXPECT_EQ(Select(folder_ / "a/data/orv1/customer.zdb", table), Select(folder_ / "b/data/orv1/customer.zdb", table)) << table;
}

TEST_F(SuitefilesOnServer, ACopyThatWasStoppedGoesOn) {
  ASSERT_EQ(RunSuitefiles({"create", folder_ / "a", "--company", "1"}).status, 0);
  ASSERT_EQ(RunSuitefiles({"copy", folder_ / "a", Place(), "--company", "1"}).status, 0);
  Ask("DROP SCHEMA orv1_customer CASCADE");
  const auto again = RunSuitefiles({"copy", folder_ / "a", Place(), "--company", "1"});
  EXPECT_EQ(again.status, 0) << again.err;
  EXPECT_THAT(again.out, HasSubstr("GL.zdb: "));
  EXPECT_THAT(again.out, HasSubstr("was there already and holds the same"));
  EXPECT_EQ(RunSuitefiles({"check", Place()}).status, 0);
}

TEST_F(SuitefilesOnServer, ACopyIsHeldAgainstWhatWasRead) {
  ASSERT_EQ(RunSuitefiles({"create", folder_ / "a", "--company", "1"}).status, 0);
  ASSERT_EQ(RunSuitefiles({"copy", folder_ / "a", Place(), "--company", "1"}).status, 0);
  Ask("UPDATE orv1_customer.\"PhoneTypes\" SET \"TypeDescription\" = \"TypeDescription\" || 'x' WHERE \"Type\" = 'H'");
  Ask("DELETE FROM orv1_gl.\"Departments\" WHERE \"DeptNumber\" = (SELECT max(\"DeptNumber\") FROM orv1_gl.\"Departments\")");
  const auto again = RunSuitefiles({"copy", folder_ / "a", Place(), "--company", "1"});
  EXPECT_EQ(again.status, 1);
  EXPECT_THAT(again.err, HasSubstr("Field TypeDescription of table PhoneTypes holds other values."));
  EXPECT_THAT(again.err, HasSubstr("Table Departments has 9 rows instead of 10."));
  EXPECT_THAT(again.err, HasSubstr("was there already and holds something else; it is unchanged."));
}

TEST_F(SuitefilesOnServer, BacksUpByTheServersOwnTool) {
  folder_.Write("suite/orv1.ini", "[Databases]\nDefault Path=" + Place() + "\n");
  ASSERT_EQ(RunSuitefiles({"create", folder_ / "suite", "--company", "1"}).status, 0);
  const auto outcome = RunSuitefiles({"backup", folder_ / "suite", folder_ / "copy"});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  for (const char* file : {"dat.zdb.dump", "data/orv1/customer.zdb.dump", "data/orv1/GL.zdb.dump", "data/orv1/artrans.zdb.dump", "data/orv1/flatrate.zdb.dump"})
    EXPECT_GT(std::filesystem::file_size(folder_ / "copy" + ("/" + std::string(file))), 1000U) << file;
  EXPECT_TRUE(std::filesystem::exists(folder_ / "copy/orv1.ini.saved"));
  EXPECT_THAT(outcome.out, HasSubstr("5 data files copied"));
}

}  // namespace
