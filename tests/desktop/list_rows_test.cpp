#include "desktop/list/list_rows.h"

#include <gtest/gtest.h>

#include "desktop/support/fake_rows.h"
#include "platform/values/error.h"

namespace {

using desktop::ListRows;
using desktop_test::FakeTable;

constexpr std::int64_t kFiveMillion = 5'000'000;

struct Held : testing::Test {
  void Make(std::int64_t count) {
    table.rows = count;
    recordset = desktop_test::MakeFakeRecordset(table, "T");
  }
  platform::Bookmark Mark(std::int64_t row) const { return {1, std::to_string(row)}; }
  std::int32_t NumberAt(std::int64_t ordinal) { return rows.At(ordinal)->row.cells.at(0).As<std::int32_t>(); }

  FakeTable table;
  std::shared_ptr<platform::Recordset> recordset;
  ListRows rows{[this] { return recordset ? &recordset->Window() : nullptr; }};
};

TEST_F(Held, AJumpIsOneCallAndAFewRows) {
  Make(kFiveMillion);
  ASSERT_TRUE(rows.Need(2'500'000, 40));
  EXPECT_EQ(table.fetches, 1);
  EXPECT_LE(table.rowsFetched, 200);
  EXPECT_EQ(NumberAt(2'500'000), 2'500'001);
  EXPECT_EQ(NumberAt(2'500'039), 2'500'040);
}

// A query has its first rows soon; what lies behind them may be a look at millions.
TEST_F(Held, TheFirstPictureAsksForNoMoreThanItShows) {
  Make(kFiveMillion);
  ASSERT_TRUE(rows.Need(0, 40));
  EXPECT_EQ(table.rowsFetched, 40);
  ASSERT_TRUE(rows.Need(5, 40));
  EXPECT_EQ(NumberAt(44), 45);
}

TEST_F(Held, RowsInTheWindowCostNothing) {
  Make(1000);
  rows.Need(0, 40);
  rows.Need(1, 40);
  const int before = table.fetches;
  for (int first = 0; first < 40; ++first) EXPECT_TRUE(rows.Need(first, 40));
  EXPECT_EQ(table.fetches, before);
}

TEST_F(Held, ScrollingNeverHoldsMoreThanTheWindow) {
  Make(kFiveMillion);
  for (std::int64_t first = 0; first < 20'000; first += 3) {
    ASSERT_TRUE(rows.Need(first, 40));
    ASSERT_LE(rows.Held(), ListRows::kMost);
    ASSERT_EQ(NumberAt(first), first + 1);
  }
  for (std::int64_t first = 20'000; first > 10'000; first -= 7) {
    ASSERT_TRUE(rows.Need(first, 40));
    ASSERT_LE(rows.Held(), ListRows::kMost);
    ASSERT_EQ(NumberAt(first + 39), first + 40);
  }
}

TEST_F(Held, TheEndIsReadFromTheEnd) {
  Make(kFiveMillion);
  ASSERT_TRUE(rows.Need(kFiveMillion - 30, 40));
  EXPECT_EQ(NumberAt(kFiveMillion - 1), kFiveMillion);
  EXPECT_EQ(rows.At(kFiveMillion), nullptr);
}

TEST_F(Held, ARowIsFoundWithItsNeighbours) {
  Make(kFiveMillion);
  EXPECT_EQ(rows.Find(Mark(777'777), 30), 777'777);
  EXPECT_EQ(NumberAt(777'777), 777'778);
  EXPECT_NE(rows.At(777'750), nullptr);
  EXPECT_NE(rows.At(777'800), nullptr);
}

TEST_F(Held, WhileTheEngineCountsPlacesAreGuessedAndThenPutRight) {
  table.counted = false;
  table.slicesToCount = 1;
  table.estimate = 4'000'000;
  Make(kFiveMillion);
  EXPECT_EQ(rows.Count(), 4'000'000);
  const auto guess = rows.Find(Mark(100'000), 30);
  ASSERT_TRUE(guess);
  EXPECT_EQ(NumberAt(*guess), 100'001);
  recordset->Window().IdleSlice();
  const std::int64_t moved = rows.Settle();
  EXPECT_EQ(*guess + moved, 100'000);
  EXPECT_EQ(rows.Count(), kFiveMillion);
  EXPECT_EQ(NumberAt(100'000), 100'001);
}

TEST_F(Held, AnEstimateThatIsTooHighEndsWhereTheRowsEnd) {
  table.counted = false;
  table.slicesToCount = 99;
  table.estimate = 500;
  Make(100);
  rows.Need(60, 40);
  EXPECT_EQ(rows.Count(), 100);
}

TEST_F(Held, FailuresStayInside) {
  Make(1000);
  table.broken = true;
  EXPECT_FALSE(rows.Need(0, 40));
  EXPECT_EQ(rows.At(0), nullptr);
  EXPECT_EQ(rows.Find(Mark(5), 10), std::nullopt);
  recordset.reset();
  EXPECT_FALSE(rows.Need(0, 40));
}

TEST_F(Held, UnreadableRowsHaveNoCells) {
  table.unreadable = {3};
  Make(10);
  rows.Need(0, 10);
  EXPECT_FALSE(rows.At(3)->Readable());
  EXPECT_TRUE(rows.At(4)->Readable());
}

TEST_F(Held, OneRowIsReadAgain) {
  Make(10);
  rows.Need(0, 10);
  table.edits[{4, 1}] = "Changed";
  rows.Reread(Mark(4));
  EXPECT_EQ(rows.At(4)->row.cells.at(1).As<std::string>(), "Changed");
}

}  // namespace
