#include <gtest/gtest.h>
#include <signal.h>

#include "unit/suite/program_runner.h"

namespace {

namespace fs = std::filesystem;

TEST(Backup, CopiesEveryCompany) {
  const TemporaryFolder folder;
  ASSERT_EQ(RunSuitefiles({"demo", folder / "a", "--company", "1", "--customers", "300"}).status, 0);
  ASSERT_EQ(RunSuitefiles({"create", folder / "a", "--company", "2"}).status, 0);
  folder.Write("a/orv2.ini", "[Databases]\n");
  const auto outcome = RunSuitefiles({"backup", folder / "a", folder / "copy"});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "9 files copied to " + (folder / "copy") + ".\n");
  EXPECT_EQ(RunSuitefiles({"check", folder / "copy"}).status, 0);
  EXPECT_EQ(Select(folder / "copy/data/orv1/customer.zdb", "Customers"), Select(folder / "a/data/orv1/customer.zdb", "Customers"));
  EXPECT_EQ(ReadAll(folder / "copy/orv2.ini.saved"), "[Databases]\n");
}

TEST(Backup, TakesFilesFromWhereTheSettingsSay) {
  const TemporaryFolder folder;
  ASSERT_EQ(RunSuitefiles({"create", folder / "a", "--company", "1"}).status, 0);
  fs::create_directories(folder / "elsewhere");
  fs::rename(folder / "a/data/orv1/customer.zdb", folder / "elsewhere/c.zdb");
  folder.Write("a/orv1.ini", "[Databases]\ncustomer.zdb Path=" + (folder / "elsewhere/c.zdb") + "\n");
  ASSERT_EQ(RunSuitefiles({"backup", folder / "a", folder / "copy"}).status, 0);
  EXPECT_EQ(RunSuitefiles({"check", folder / "copy"}).status, 0);
}

TEST(Backup, WritesOverNothing) {
  const TemporaryFolder folder;
  ASSERT_EQ(RunSuitefiles({"create", folder / "a", "--company", "1"}).status, 0);
  folder.Write("copy/mine", "x");
  const auto outcome = RunSuitefiles({"backup", folder / "a", folder / "copy"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("not empty"), std::string::npos) << outcome.err;
  EXPECT_EQ(ReadAll(folder / "copy/mine"), "x");
  EXPECT_FALSE(fs::exists(folder / "copy/dat.zdb"));
}

TEST(Backup, AMissingFolderLeavesNoTarget) {
  const TemporaryFolder folder;
  EXPECT_EQ(RunSuitefiles({"backup", folder / "missing", folder / "copy"}).status, 1);
  EXPECT_TRUE(fs::is_empty(folder.Path()));
}

// Another process adds pairs of rows, each pair in one statement; a copy taken meanwhile never holds half a pair.
TEST(Backup, ACopyShowsOneMoment) {
  const TemporaryFolder folder;
  ASSERT_EQ(RunSuitefiles({"demo", folder / "a", "--company", "1", "--customers", "3000"}).status, 0);
  const std::string customer = folder / "a/data/orv1/customer.zdb";
  Execute(customer, "INSERT INTO DataCodes (Code, Description) VALUES (501, 'pair')");
  Execute(customer, "INSERT INTO DataCodes (Code, Description) VALUES (502, 'pair')");
  const pid_t writer = ::fork();
  ASSERT_GE(writer, 0);
  if (writer == 0) {
    for (int i = 10'000;; ++i) {
      const std::string row = "INSERT INTO CustCodes (AcctNum, CustCodes) SELECT " + std::to_string(i) +
                              " AS AcctNum, Code AS CustCodes FROM DataCodes WHERE Description='pair'";
      RunSuitefiles({"sql", customer, row});
    }
  }
  for (int i = 0; i < 4; ++i) {
    const std::string target = folder / ("copy" + std::to_string(i));
    ASSERT_EQ(RunSuitefiles({"backup", folder / "a", target}).status, 0);
    const std::string copy = target + "/data/orv1/customer.zdb";
    EXPECT_EQ(Select(copy, "SELECT Count(*) AS N FROM CustCodes WHERE CustCodes=501"),
              Select(copy, "SELECT Count(*) AS N FROM CustCodes WHERE CustCodes=502"));
  }
  ::kill(writer, SIGKILL);
  int status = 0;
  ::waitpid(writer, &status, 0);
  EXPECT_NE(Select(customer, "SELECT Count(*) AS N FROM CustCodes WHERE CustCodes=501"), "0\n") << "the writer wrote nothing";
}

}  // namespace
