#include <gtest/gtest.h>

#include "unit/apps/suitefiles/program_runner.h"

namespace {

class Sql : public testing::Test {
 protected:
  Sql() {
    if (RunSuitefiles({"create", folder.Path(), "--company", "1"}).status != 0) throw std::runtime_error("no company");
    file = folder / "data/orv1/customer.zdb";
  }
  TemporaryFolder folder;
  std::string file;
};

TEST_F(Sql, PrintsNamesAndRows) {
  EXPECT_EQ(
      RunSuitefiles({"sql", file, "SELECT Type, TypeDescription AS [What it is] FROM PhoneTypes WHERE Type < 'H' ORDER BY Type DESC"}).out,
      "Type\tWhat it is\nF\tFax\nC\tCellular\n");
  EXPECT_EQ(RunSuitefiles({"sql", file, "Keywords"}).out, "Keyword\n");
}

TEST_F(Sql, EscapesWhatWouldBreakALine) {
  const auto outcome = RunSuitefiles({"sql", file, "-"}, "INSERT INTO Keywords (Keyword) VALUES ('a\tb\\c\r\nd')");
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(Select(file, "SELECT Keyword FROM Keywords"), "a\\tb\\\\c\\r\\nd\n");
}

TEST_F(Sql, PrintsEachKindOfValue) {
  Execute(file,
          "INSERT INTO Customers (LastName, Creditlimit, SalesRatePer, EntryDate, NonBillable, Comments) VALUES "
          "('O''Brien', -1.5, 2.25, #1/31/1999#, True, '')");
  EXPECT_EQ(Select(file, "SELECT AcctNum, LastName, Creditlimit, SalesRatePer, EntryDate, NonBillable, Comments, Terms FROM Customers"),
            "1\tO'Brien\t-1.5\t2.25\t1/31/1999\tTrue\t\t\n");
}

TEST_F(Sql, CommaSeparated) {
  Execute(file, "INSERT INTO Customers (LastName, FirstName, Addr1, Addr2) VALUES ('Smith, \"Al\"', 'Ann', '', Null)");
  EXPECT_EQ(RunSuitefiles({"sql", "--csv", file, "SELECT LastName, FirstName, Addr1, Addr2 FROM Customers"}).out,
            "LastName,FirstName,Addr1,Addr2\n\"Smith, \"\"Al\"\"\",Ann,\"\",\n");
}

TEST_F(Sql, TellsHowManyRowsWereWritten) {
  EXPECT_EQ(RunSuitefiles({"sql", file, "INSERT INTO Keywords (Keyword) SELECT TypeDescription FROM PhoneTypes"}).out, "5 rows\n");
  EXPECT_EQ(RunSuitefiles({"sql", file, "update Keywords Set Keyword='Telefax' Where Keyword='fax'"}).out, "1 row\n");
  EXPECT_EQ(RunSuitefiles({"sql", file, "Delete * From Keywords;"}).out, "5 rows\n");
}

TEST_F(Sql, ARowThatCantBeWrittenFailsOrIsSkipped) {
  Execute(file, "INSERT INTO Keywords (Keyword) VALUES ('Fax')");
  const std::string statement = "INSERT INTO Keywords (Keyword) SELECT TypeDescription FROM PhoneTypes";
  const auto strict = RunSuitefiles({"sql", file, statement});
  EXPECT_EQ(strict.status, 1);
  EXPECT_NE(strict.err.find("(error 3022)"), std::string::npos) << strict.err;
  EXPECT_EQ(Select(file, "SELECT Keyword FROM Keywords"), "Fax\n");
  EXPECT_EQ(RunSuitefiles({"sql", "--skip", file, statement}).out, "4 rows\n");
}

TEST_F(Sql, ARowThatCantBeWrittenWholeIsLeftAlone) {
  Execute(file, "INSERT INTO Customers (LastName, Creditlimit, City) VALUES ('Small', 5, 'Ely')");
  Execute(file, "INSERT INTO Customers (LastName, Creditlimit, City) VALUES ('Large', 900000000000, 'Cook')");
  EXPECT_EQ(RunSuitefiles({"sql", "--skip", file, "UPDATE Customers SET Creditlimit = Creditlimit * 2.5E3, City = 'Tower'"}).out,
            "1 row\n");
  EXPECT_EQ(Select(file, "SELECT LastName, Creditlimit, City FROM Customers ORDER BY LastName"),
            "Large\t900000000000\tCook\nSmall\t12500\tTower\n");
  // A key word has twenty characters.
  Execute(file, "INSERT INTO DataCodes (Code, Description) VALUES (1, 'short')");
  Execute(file, "INSERT INTO DataCodes (Code, Description) VALUES (2, 'a good deal longer than that')");
  EXPECT_EQ(RunSuitefiles({"sql", "--skip", file, "INSERT INTO Keywords (Keyword) SELECT Description FROM DataCodes"}).out, "1 row\n");
  EXPECT_EQ(Select(file, "SELECT Keyword FROM Keywords"), "short\n");
}

TEST_F(Sql, ErrorsAreTold) {
  const auto syntax = RunSuitefiles({"sql", file, "SELECT * FROM Customers WHERE (AcctNum=)"});
  EXPECT_EQ(syntax.status, 1);
  EXPECT_NE(syntax.err.find("(error 3075)"), std::string::npos) << syntax.err;
  const auto missing = RunSuitefiles({"sql", folder / "data/orv1/missing.zdb", "Customers"});
  EXPECT_EQ(missing.status, 1);
  EXPECT_NE(missing.err.find("(error 3024)"), std::string::npos) << missing.err;
  EXPECT_FALSE(std::filesystem::exists(folder / "data/orv1/missing.zdb"));
  EXPECT_EQ(RunSuitefiles({"sql", file, "SELECT '\xFF'"}).status, 2);
}

}  // namespace
