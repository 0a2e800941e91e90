#include "platform/values/convert.h"
#include "support/main_screen_test.h"

namespace {

using orcussch::frmCustMain;

TEST_F(MainScreenTest, SelectingFromAClosedListIsReportedUnderItsLiteral) {
  Serve([&](frmCustMain& screen) {
    const platform::RecordsetRef types = orcussch::dbCustomer->OpenRecordset("SELECT * FROM DataCodes");
    types->Close();
    screen.SelectAllRecords(screen.grid[5], types);
    ASSERT_EQ(log->records.size(), 1U);
    EXPECT_EQ(log->records[0].module, "frmCustMain,SelectAllRecords");
    EXPECT_EQ(log->records[0].number, 3420);
    EXPECT_FALSE(log->records[0].terminate);
    EXPECT_EQ(screen.grid[5].SelBookmarks.Count(), 0);
  });
}

TEST_F(MainScreenTest, SelectingFromAnEmptyListSelectsNothing) {
  Serve([&](frmCustMain& screen) {
    const platform::RecordsetRef types = orcussch::dbCustomer->OpenRecordset("SELECT * FROM DataCodes");
    screen.miUnselectAll.Enabled(true);
    screen.SelectAllRecords(screen.grid[5], types);
    EXPECT_EQ(screen.grid[5].SelBookmarks.Count(), 0);
    EXPECT_FALSE(screen.miUnselectAll.Enabled());
    EXPECT_EQ(app->MousePointer(), 0);
  });
  EXPECT_THAT(Reports(), testing::IsEmpty());
}

/// The walk begins on the first row wherever the list stands, and yields once a row beside the first and last yields.
TEST_F(MainScreenTest, SelectingWalksTheWholeListAndYieldsOnEachRow) {
  std::vector<std::vector<platform::Value>> rows;
  for (std::int16_t code = 1; code <= 40; ++code) rows.push_back({code, "type " + std::to_string(code)});
  AddRows(CustomerFile(), "DataCodes", {"Code", "Description"}, rows);
  Serve([&](frmCustMain& screen) {
    const platform::RecordsetRef types = orcussch::dbCustomer->OpenRecordset("SELECT * FROM DataCodes");
    types->MoveLast();
    const int before = frontEnd->yields;
    screen.SelectAllRecords(screen.grid[5], types);
    EXPECT_EQ(frontEnd->yields - before, 42);
    EXPECT_EQ(screen.grid[5].SelBookmarks.Count(), 40);
    EXPECT_EQ(platform::CLng(types->Field("Code")), 1);
    EXPECT_TRUE(screen.Toolbar1.Button("tb_UnselectAll").Enabled());
    screen.UnselectAllRecords(screen.grid[5]);
    EXPECT_EQ(screen.grid[5].SelBookmarks.Count(), 0);
  });
}

/// A long bulk command leaves the user no frozen window: twice as many rows, twice as many yields, both ways.
TEST_F(MainScreenTest, AssigningYieldsForEveryRow) {
  AddRows(CustomerFile(), "Customers", {"AcctNum", "LastName"}, {{7, "Ames"}});
  const auto addTypes = [this](std::int16_t from, std::int16_t to) {
    std::vector<std::vector<platform::Value>> rows;
    for (std::int16_t code = from; code <= to; ++code) rows.push_back({code, "type " + std::to_string(code)});
    AddRows(CustomerFile(), "DataCodes", {"Code", "Description"}, rows);
  };
  const auto yieldsOf = [this](bool assign) {
    int yields = 0;
    Serve([&](frmCustMain& screen) {
      screen.SSIndexTab1.UserClick(5);
      screen.Toolbar1.Button("tb_SelectAll").UserClick();
      yields = frontEnd->yields;
      screen.Toolbar1.Button(assign ? "tb_AssignSelected" : "tb_UnassignSelected").UserClick();
      yields = frontEnd->yields - yields;
    });
    return yields;
  };
  addTypes(1, 20);
  const int ofTwenty = yieldsOf(true);
  EXPECT_GE(ofTwenty, 20);
  EXPECT_EQ(yieldsOf(false), ofTwenty);
  addTypes(21, 40);
  EXPECT_GE(yieldsOf(true) - ofTwenty, 20);
  EXPECT_THAT(Reports(), testing::IsEmpty());
}

TEST_F(MainScreenTest, TheAnswerIsTakenFromTheFirstTabsList) {
  AddRows(CustomerFile(), "Customers", {"AcctNum", "LastName", "Zip"}, {{7, " Ames ", platform::Null}});
  Serve([&](frmCustMain& screen) {
    screen.SelectCustomer();
    EXPECT_FALSE(screen.Loaded());
  });
  EXPECT_EQ(orcussch::gSelAcctNum, 7);
  EXPECT_EQ(orcussch::gCustomerLastName, "Ames");
  EXPECT_EQ(orcussch::gCustomerZip, "");
}

}  // namespace
