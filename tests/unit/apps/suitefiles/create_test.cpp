#include <gtest/gtest.h>

#include "engine/data_file.h"
#include "suite/company_schema.h"
#include "unit/apps/suitefiles/program_runner.h"

namespace {

namespace fs = std::filesystem;

TEST(Suitefiles, HelpAndVersion) {
  for (const std::vector<std::string>& words : {std::vector<std::string>{"--help"}, {"help"}, {"-h"}}) {
    const auto outcome = RunSuitefiles(words);
    EXPECT_EQ(outcome.status, 0);
    for (const char* command : {"create", "demo", "temp", "check", "backup", "copy", "relink", "upgrade", "sql"}) {
      EXPECT_NE(outcome.out.find(std::string("suitefiles ") + command), std::string::npos) << command;
    }
  }
  for (const char* command : {"create", "demo", "temp", "check", "backup", "copy", "relink", "upgrade", "sql"}) {
    EXPECT_EQ(RunSuitefiles({command, "--help"}).status, 0);
    EXPECT_TRUE(RunSuitefiles({"help", command}).out.starts_with(std::string("suitefiles ") + command));
  }
  EXPECT_TRUE(RunSuitefiles({"--version"}).out.starts_with("suitefiles "));
}

TEST(Suitefiles, WrongWordsAreRefused) {
  for (const std::vector<std::string>& words : {std::vector<std::string>{},
                                                {"what"},
                                                {"create"},
                                                {"create", "x"},
                                                {"create", "x", "--company", "0"},
                                                {"create", "x", "--company", "one"},
                                                {"create", "x", "y", "--company", "1"},
                                                {"create", "", "--company", "1"},
                                                {"temp", "x"},
                                                {"demo", "x", "--company", "1"},
                                                {"sql", "x"},
                                                {"help", "what"},
                                                {"relink"},
                                                {"upgrade"},
                                                {"copy", "x", "--company", "1"},
                                                {"copy", "x", "y"},
                                                {"backup", "x"}}) {
    const auto outcome = RunSuitefiles(words);
    EXPECT_EQ(outcome.status, 2) << (words.empty() ? "" : words[0]);
    EXPECT_TRUE(outcome.err.starts_with("suitefiles: ")) << outcome.err;
    EXPECT_EQ(outcome.out, "");
  }
}

TEST(Create, CompanyNumbersGoAsFarAsTheirField) {
  const TemporaryFolder folder;
  EXPECT_EQ(RunSuitefiles({"create", folder / "new", "--company", "2147483648"}).status, 2);
  ASSERT_EQ(RunSuitefiles({"create", folder / "new", "--company", "2147483647"}).status, 0);
  EXPECT_EQ(RunSuitefiles({"check", folder / "new"}).status, 0);
  EXPECT_EQ(RunSuitefiles({"sql", folder / "new/dat.zdb", "SELECT CompID FROM Company", "--no-header"}).out, "2147483647\n");
}

TEST(Create, MakesEveryFileWithItsTables) {
  const TemporaryFolder folder;
  const auto outcome = RunSuitefiles({"create", folder / "new", "--company", "3", "--name", "Müller & Sons", "--year", "2004"});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  const std::string company = folder / "new/data/orv3/";
  EXPECT_TRUE(engine::CheckDataFile(folder / "new/dat.zdb", suite::TablesOf(suite::DataFile::Dat)).empty());
  for (const auto file : suite::kCompanyFiles) {
    EXPECT_TRUE(engine::CheckDataFile(company + suite::FileName(file), suite::TablesOf(file)).empty()) << suite::FileName(file);
  }
  EXPECT_EQ(Select(folder / "new/dat.zdb", "SELECT CompID, CompName, BeginningMonth, AccountingEntity FROM Company"),
            "3\tMüller & Sons\t1\t0\n");
  EXPECT_EQ(Select(company + "GL.zdb", "AccountingPeriod"), "2004\n");
  EXPECT_EQ(RunSuitefiles({"check", folder / "new"}).status, 0);
}

TEST(Create, BuiltInRows) {
  const TemporaryFolder folder;
  ASSERT_EQ(RunSuitefiles({"create", folder.Path(), "--company", "1", "--year", "2004"}).status, 0);
  const std::string customer = folder / "data/orv1/customer.zdb";
  EXPECT_EQ(Select(customer, "SELECT Type FROM PhoneTypes ORDER BY Type"), "C\nF\nH\nP\nW\n");
  EXPECT_EQ(Select(customer, "SELECT CreditCardType FROM CreditCardTypes ORDER BY CreditCardType"), "A\nC\nD\nM\nV\n");
  EXPECT_EQ(Select(customer, "SELECT SalesRate, RateDescription FROM MaterialSalesRateCodes"),
            "A\tAverage Cost\nB\tBase Cost\nR\tResidential\nT\tTrade\nL\tList\n");
  EXPECT_EQ(
      Select(customer, "SELECT Name FROM CUReports ORDER BY Sequence"),
      "ARCusDet.Rpt\nARCusPho.Rpt\nARAltAdr.Rpt\nARCustCC.Rpt\nARLabRat.Rpt\nARCusCod.Rpt\nARCustKW.Rpt\nARML5161.RPT\nARML5260."
      "RPT\nARFL5166.RPT\nARCusLst.Rpt\nARCusDir.Rpt\nARCusBal.Rpt\nARCusHld.Rpt\nARCusPay.Rpt\nARCusNew.Rpt\nARCusIna.Rpt\nARCusExm.Rpt\n"
      "ARCusCCX.Rpt\nARCusTyp.Rpt\nARCusKey.Rpt\nARCusMap.Rpt\nARCusZip.Rpt\nARCusDpt.Rpt\nARCusPar.Rpt\n");
  EXPECT_EQ(Select(customer, "SELECT DataFiles0, DataFiles1, DataFiles2, DataFiles3 FROM CUReports WHERE Name='ARLabRat.Rpt'"),
            "customer.zdb\tcustomer.zdb\tGL.zdb\t\n");
  EXPECT_EQ(Select(customer, "SELECT DISTINCT DataFiles0 FROM CUReports WHERE Name Like 'AR?L5*'"), "ORVTEMP.ZDB\n");
  EXPECT_EQ(Select(customer, "SELECT Count(*) AS N FROM Terms WHERE Terms > 0"), "7\n");
  EXPECT_EQ(Select(customer, "SELECT Count(*) AS N FROM Customers"), "0\n");
  const std::string ledger = folder / "data/orv1/GL.zdb";
  EXPECT_EQ(Select(ledger, "SELECT Count(*) AS N FROM Departments"), "10\n");
  EXPECT_EQ(Select(ledger,
                   "SELECT GL.Account FROM GL INNER JOIN Accounts ON GL.Account = Accounts.AccountNumber WHERE GL.Year=2004 AND "
                   "GL.DeptNumber='000' AND Accounts.AccountType='L' AND GL.Account='22000'"),
            "22000\n");
}

TEST(Create, ASecondCompanySharesDat) {
  const TemporaryFolder folder;
  ASSERT_EQ(RunSuitefiles({"create", folder.Path(), "--company", "1"}).status, 0);
  ASSERT_EQ(RunSuitefiles({"create", folder.Path(), "--company", "2"}).status, 0);
  EXPECT_EQ(Select(folder / "dat.zdb", "SELECT CompID, CompName FROM Company ORDER BY CompID"), "1\tCompany 1\n2\tCompany 2\n");
}

TEST(Create, ChangesNothingThatIsThere) {
  const TemporaryFolder folder;
  ASSERT_EQ(RunSuitefiles({"create", folder.Path(), "--company", "1"}).status, 0);
  const std::string customer = folder / "data/orv1/customer.zdb";
  Execute(customer, "INSERT INTO Customers (LastName) VALUES ('Kept')");
  const auto again = RunSuitefiles({"create", folder.Path(), "--company", "1", "--name", "Other"});
  EXPECT_EQ(again.status, 1);
  EXPECT_NE(again.err.find("already exists"), std::string::npos) << again.err;
  EXPECT_EQ(Select(customer, "SELECT LastName FROM Customers"), "Kept\n");
  EXPECT_EQ(Select(folder / "dat.zdb", "SELECT CompName FROM Company"), "Company 1\n");
}

TEST(Create, KeepsARowOfTheCompanyThatIsThere) {
  const TemporaryFolder folder;
  ASSERT_EQ(RunSuitefiles({"create", folder.Path(), "--company", "1", "--name", "First"}).status, 0);
  fs::remove_all(folder / "data/orv1");
  const auto outcome = RunSuitefiles({"create", folder.Path(), "--company", "1", "--name", "Second"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.out.find("unchanged"), std::string::npos);
  EXPECT_EQ(Select(folder / "dat.zdb", "SELECT CompName FROM Company"), "First\n");
}

// Where programs will look for them, dat.zdb too.
TEST(Create, FollowsTheSettingsFile) {
  const TemporaryFolder folder;
  folder.Write("a/orv3.ini", "[Databases]\nGL.zdb Path=" + folder / "books/ledger.zdb\nDefault Path=" + folder / "books/\n");
  folder.Write("books/notes.txt", "kept");
  const auto outcome = RunSuitefiles({"create", folder / "a", "--company", "3", "--name", "Third"});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "Company 3 made in " + folder / "books/customer.zdb.\n27 files of the library added.\n");
  EXPECT_EQ(Select(folder / "books/dat.zdb", "SELECT CompID, CompName FROM Company"), "3\tThird\n");
  for (const char* file : {"customer.zdb", "artrans.zdb", "ledger.zdb", "flatrate.zdb"}) EXPECT_TRUE(fs::exists(folder / "books/" + file));
  EXPECT_FALSE(fs::exists(folder / "a/data")) << "nothing in the usual place";
  EXPECT_FALSE(fs::exists(folder / "a/dat.zdb"));
  const auto check = RunSuitefiles({"check", folder / "a"});
  EXPECT_EQ(check.status, 0) << check.out;
  std::size_t entries = 0;
  for (const auto& entry : fs::directory_iterator(folder / "books")) entries += entry.exists() ? 1U : 0U;
  EXPECT_EQ(entries, 6U) << "five files and the notes, nothing unfinished";

  EXPECT_EQ(RunSuitefiles({"create", folder / "a", "--company", "3"}).status, 1);
  const auto demo = RunSuitefiles({"demo", folder / "a", "--company", "3", "--customers", "20"});
  EXPECT_EQ(demo.status, 0) << demo.err;
  EXPECT_EQ(Select(folder / "books/dat.zdb", "SELECT PayTerms FROM AR"), "4\n");
}

TEST(Create, APlaceThatIsTakenStopsItAndNothingStays) {
  const TemporaryFolder folder;
  folder.Write("a/orv3.ini", "[Databases]\nDefault Path=" + folder / "books/\n");
  folder.Write("books/flatrate.zdb", "mine");
  const auto outcome = RunSuitefiles({"create", folder / "a", "--company", "3"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find(folder / "books/flatrate.zdb already exists"), std::string::npos) << outcome.err;
  std::size_t entries = 0;
  for (const auto& entry : fs::directory_iterator(folder / "books")) entries += entry.exists() ? 1U : 0U;
  EXPECT_EQ(entries, 1U);
}

TEST(Create, AForeignDatFileStopsItAndNothingStays) {
  const TemporaryFolder folder;
  folder.Write("dat.zdb", std::string(8192, 'x'));
  const auto outcome = RunSuitefiles({"create", folder.Path(), "--company", "1"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_FALSE(fs::exists(folder / "data/orv1"));
  EXPECT_TRUE(fs::is_empty(folder / "data"));
  EXPECT_EQ(ReadAll(folder / "dat.zdb"), std::string(8192, 'x'));
}

TEST(Temp, MakesTheWorkTablesOnce) {
  const TemporaryFolder folder;
  ASSERT_EQ(RunSuitefiles({"temp", folder.Path(), "--user", "12"}).status, 0);
  const std::string file = folder / "orvTEMP/orvTemp12.zdb";
  EXPECT_TRUE(engine::CheckDataFile(file, suite::TablesOf(suite::DataFile::Temporary)).empty());
  Execute(file, "INSERT INTO CU_AssignKeywords (Instance, Assign, Keyword) VALUES (1, True, 'x')");
  const auto again = RunSuitefiles({"temp", folder.Path(), "--user", "12"});
  EXPECT_EQ(again.status, 0);
  EXPECT_NE(again.out.find("unchanged"), std::string::npos);
  EXPECT_EQ(Select(file, "SELECT Keyword FROM CU_AssignKeywords"), "x\n");
}

}  // namespace
