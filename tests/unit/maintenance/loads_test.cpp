#include "maintenance/assignment_tab.h"
#include "maintenance/tabs/data_codes.h"
#include "support/controls.h"
#include "support/main_screen_test.h"

// Loads of the assignment lists that no click reaches: their tabs are closed without customers.
namespace {

using orcussch::frmCustMain;
using orcussch::LoadEntries;
using orcussch::NextDataCode;
namespace tab = orcussch::tab;
using platform::Value;

std::vector<std::string> Shown(const platform::Grid& grid, int column) {
  std::vector<std::string> texts;
  const int field = grid.FieldIndexOf(column);
  for (const platform::ListRow& row : grid.Data()->Window()->RowsAt(0, 100))
    texts.push_back(grid.ShownText(column, row.cells[static_cast<std::size_t>(field)]));
  return texts;
}

TEST_F(MainScreenTest, WithoutCustomersAllTypesAreUnticked) {
  AddRows(CustomerFile(), "DataCodes", {"Code", "Description"}, {{std::int16_t{1}, "Old"}, {std::int16_t{2}, "New"}});
  AddRows(CustomerFile(), "CustCodes", {"AcctNum", "CustCodes"}, {{0, std::int16_t{1}}});
  Serve([&](frmCustMain& screen) {
    LoadEntries(screen, tab::CustomerTypes);
    screen.SQLData(5);
    EXPECT_THAT(Shown(screen.grid[5], 1), testing::ElementsAre("New", "Old"));
    EXPECT_THAT(Shown(screen.grid[5], 0), testing::ElementsAre("False", "False"));
  });
  EXPECT_THAT(Reports(), testing::IsEmpty());
}

TEST_F(MainScreenTest, WithoutCustomersAllKeyWordsAreUnticked) {
  AddRows(CustomerFile(), "Keywords", {"Keyword"}, {{"pool"}, {"boiler"}});
  Serve([&](frmCustMain& screen) {
    LoadEntries(screen, tab::KeyWords);
    screen.SQLData(6);
    EXPECT_THAT(Shown(screen.grid[6], 1), testing::ElementsAre("boiler", "pool"));
    EXPECT_THAT(Shown(screen.grid[6], 0), testing::ElementsAre("False", "False"));
  });
  EXPECT_THAT(Reports(), testing::IsEmpty());
}

TEST_F(MainScreenTest, WithoutCustomersNoTaxIsTicked) {
  AddRows(CustomerFile(), "TaxGrid", {"TaxID", "Description"}, {{1, "County"}});
  Serve([&](frmCustMain& screen) {
    screen.LoadTaxBasis(true);
    EXPECT_THAT(Shown(GridOf(screen, "grdTaxBasis"), 0), testing::ElementsAre("False"));
    EXPECT_THAT(Shown(GridOf(screen, "grdTaxBasis"), 1), testing::ElementsAre("County"));
  });
  EXPECT_THAT(Reports(), testing::IsEmpty());
}

TEST_F(MainScreenTest, StatementOfAListWithoutCustomersAsksForAccountZero) {
  Serve([&](frmCustMain& screen) {
    screen.SQLData(2);
    EXPECT_EQ(screen.data[2].RecordSource(), "Select * From Addresses WHERE (Customer=0) ORDER BY Addr1;");
  });
}

TEST_F(MainScreenTest, NextTypeCode) {
  const auto next = [this] {
    std::int16_t code = 0;
    Serve([&](frmCustMain&) { code = NextDataCode(); });
    return code;
  };
  EXPECT_EQ(next(), 1) << "no types at all";
  AddRows(CustomerFile(), "DataCodes", {"Code", "Description"}, {{std::int16_t{-1}, "a"}, {std::int16_t{0}, "b"}});
  EXPECT_EQ(next(), 1) << "none above zero";
  AddRows(CustomerFile(), "DataCodes", {"Code", "Description"}, {{std::int16_t{7}, "c"}, {std::int16_t{3}, "d"}});
  EXPECT_EQ(next(), 8) << "behind the highest";
  EXPECT_THAT(Reports(), testing::IsEmpty());
}

TEST_F(MainScreenTest, NextTypeCodeBeyondTheGreatestIsReported) {
  AddRows(CustomerFile(), "DataCodes", {"Code", "Description"}, {{std::int16_t{32767}, "last"}});
  Serve([](frmCustMain&) { EXPECT_EQ(NextDataCode(), 0); });
  ASSERT_EQ(log->records.size(), 1U);
  EXPECT_EQ(log->records[0].module, "frmCustMain.NextDataCode");
  EXPECT_EQ(log->records[0].number, 6);
}

}  // namespace
