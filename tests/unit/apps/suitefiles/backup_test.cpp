#include <gtest/gtest.h>
#include <signal.h>

#include "suitefiles/company/report_files.h"
#include "unit/apps/suitefiles/company_links.h"
#include "unit/apps/suitefiles/program_runner.h"

namespace {

namespace fs = std::filesystem;

/// What a backup says of a library's folder as it is delivered.
std::string LibraryLine() {
  const std::size_t delivered = suitefiles::LibraryFiles().size() + 1;  // and the record of them
  return "the library's folder: " + std::to_string(delivered) + " report files and the like copied.\n";
}

TEST(Backup, CopiesEveryCompany) {
  const TemporaryFolder folder;
  ASSERT_EQ(RunSuitefiles({"demo", folder / "a", "--company", "1", "--customers", "300"}).status, 0);
  ASSERT_EQ(RunSuitefiles({"create", folder / "a", "--company", "2"}).status, 0);
  folder.Write("a/orv2.ini", "[Databases]\n");
  const auto outcome = RunSuitefiles({"backup", folder / "a", folder / "copy"});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "dat.zdb of company 1, 2: copied from " + folder / "a/dat.zdb.\n" +
                             "company 1: customer.zdb, artrans.zdb, GL.zdb, flatrate.zdb copied.\n"
                             "company 2: customer.zdb, artrans.zdb, GL.zdb, flatrate.zdb copied.\n"
                             "company 2: its settings are kept as orv2.ini.saved.\n" +
                             LibraryLine() + "9 data files copied to " + folder / "copy.\n");
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

TEST(Backup, SaysWhatItLeaves) {
  const TemporaryFolder folder;
  for (const char* company : {"1", "2", "3"}) ASSERT_EQ(RunSuitefiles({"create", folder / "a", "--company", company}).status, 0);
  ASSERT_EQ(RunSuitefiles({"temp", folder / "a", "--user", "1"}).status, 0);
  fs::remove(folder / "a/data/orv2/flatrate.zdb");
  fs::remove_all(folder / "a/data/orv3");
  fs::copy_file(folder / "a/data/orv1/GL.zdb", folder / "a/data/orv1/GL-1999.zdb");
  const auto outcome = RunSuitefiles({"backup", folder / "a", folder / "copy"});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "dat.zdb of company 1, 2, 3: copied from " + folder / "a/dat.zdb.\n" +
                             "company 1: customer.zdb, artrans.zdb, GL.zdb, flatrate.zdb copied.\n"
                             "company 2: customer.zdb, artrans.zdb, GL.zdb copied; left: flatrate.zdb (there is no " +
                             folder / "a/data/orv2/flatrate.zdb).\ncompany 3: left, it has no files.\n" + LibraryLine() +
                             folder / "a/data/orv1/GL-1999.zdb: left, no company works with it.\n" +
                             folder / "a/orvTEMP: left, the users' temporary files.\n8 data files copied to " + folder / "copy.\n");
}

// The copy prints what the original prints.
TEST(Backup, TakesTheReportFilesAlong) {
  const TemporaryFolder folder;
  ASSERT_EQ(RunSuitefiles({"create", folder / "a", "--company", "1"}).status, 0);
  folder.Write("a/ARHead.Rpt", "report 1 part\n# our letterhead\n");
  folder.Write("a/OURS.rpt", "report 1\n");
  folder.Write("a/notes.txt", "x");
  folder.Write("secret", "x");
  fs::create_symlink(folder / "secret", folder / "a/Link.Rpt");
  fs::create_directories(folder / "a/Folder.Rpt");
  ASSERT_EQ(RunSuitefiles({"backup", folder / "a", folder / "copy"}).status, 0);
  EXPECT_EQ(ReadAll(folder / "copy/ARHead.Rpt"), "report 1 part\n# our letterhead\n");
  EXPECT_EQ(ReadAll(folder / "copy/OURS.rpt"), "report 1\n");
  EXPECT_EQ(ReadAll(folder / "copy/ARCusLst.Rpt"), ReadAll(folder / "a/ARCusLst.Rpt"));
  EXPECT_TRUE(fs::exists(folder / "copy/pushblue.bmp"));
  for (const char* left : {"notes.txt", "Link.Rpt", "Folder.Rpt"}) EXPECT_FALSE(fs::exists(folder / (std::string("copy/") + left))) << left;
  // What was changed stays known as changed, what was delivered as delivered.
  const auto upgraded = suitefiles::PutReportFiles(folder / "copy");
  EXPECT_EQ(upgraded.left, std::vector<std::string>{"ARHead.Rpt"});
  EXPECT_TRUE(upgraded.added.empty());
}

// As the programs do: by the default path of a settings file, dat.zdb too.
TEST(Backup, FindsEveryFileByTheDefaultPath) {
  const TemporaryFolder folder;
  ASSERT_EQ(RunSuitefiles({"create", folder / "a", "--company", "4", "--name", "Moved"}).status, 0);
  fs::rename(folder / "a/data/orv4", folder / "books");
  fs::rename(folder / "a/dat.zdb", folder / "books/dat.zdb");
  folder.Write("a/orv4.ini", "[Databases]\nDefault Path=" + folder / "books/\n");
  ASSERT_EQ(RunSuitefiles({"check", folder / "a"}).status, 0);
  const auto outcome = RunSuitefiles({"backup", folder / "a", folder / "copy"});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(Select(folder / "copy/dat.zdb", "SELECT CompID, CompName FROM Company"), "4\tMoved\n");
  const auto check = RunSuitefiles({"check", folder / "copy"});
  EXPECT_EQ(check.status, 0) << check.out;
  EXPECT_EQ(check.out, "5 files, nothing wrong.\n");
}

TEST(Backup, CompaniesWithADatFileOfTheirOwnKeepIt) {
  const TemporaryFolder folder;
  ASSERT_EQ(RunSuitefiles({"create", folder / "a", "--company", "1", "--name", "First"}).status, 0);
  ASSERT_EQ(RunSuitefiles({"create", folder / "b", "--company", "2", "--name", "Second"}).status, 0);
  folder.Write("a/orv2.ini", "[Databases]\nDefault Path=" + folder / "b/data/orv2/\ndat.zdb Path=" + folder / "b/dat.zdb\n");
  const auto outcome = RunSuitefiles({"backup", folder / "a", folder / "copy"});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  fs::remove_all(folder / "b");
  EXPECT_EQ(Select(folder / "copy/dat.zdb", "SELECT CompName FROM Company"), "First\n");
  EXPECT_EQ(Select(folder / "copy/data/orv2/dat.zdb", "SELECT CompName FROM Company"), "Second\n");
  const auto check = RunSuitefiles({"check", folder / "copy"});
  EXPECT_EQ(check.out, "10 files, nothing wrong.\n");
}

// Where the target can't hold open data files, nothing but finished files is written to it.
TEST(Backup, GoesThroughALocalFolder) {
  const TemporaryFolder folder;
  ASSERT_EQ(RunSuitefiles({"demo", folder / "a", "--company", "1", "--customers", "300"}).status, 0);
  MakeLinks(folder / "a/data/orv1");
  StoreFullPaths(folder / "a/data/orv1");
  fs::create_directories(folder / "local");
  EXPECT_EQ(RunSuitefiles({"backup", folder / "a", folder / "copy", "--through", folder / "none"}).status, 1);
  const auto outcome = RunSuitefiles({"backup", folder / "a", folder / "copy", "--through", folder / "local"});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_TRUE(fs::is_empty(folder / "local"));
  EXPECT_EQ(LinkOf(folder / "copy/data/orv1/customer.zdb", "Departments"), folder / "copy/data/orv1/GL.zdb");
  EXPECT_EQ(RunSuitefiles({"check", folder / "copy"}).status, 0);
  EXPECT_EQ(Select(folder / "copy/data/orv1/customer.zdb", "Customers"), Select(folder / "a/data/orv1/customer.zdb", "Customers"));
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
