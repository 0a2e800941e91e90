// The list as windows look at it: pages by number and by row, counts, numbers of rows. No cursor moves.
#include "unit/engine/support/office.h"

namespace {

using platform::Bookmark;
using platform::ListRow;
using platform::RecordsetRef;
using testing::ElementsAre;
using testing::IsEmpty;

class Windows : public DynasetRules {
 protected:
  RecordsetRef List(const std::string& order = "ORDER BY Name") { return Dynaset("SELECT * FROM People " + order); }
  static std::vector<std::string> Names(const std::vector<ListRow>& rows) {
    std::vector<std::string> names;
    for (const ListRow& row : rows) names.push_back(row.cells.empty() ? "-" : TextOf(row.cells[1]));
    return names;
  }
  static void WorkIdly(platform::RowWindow& window) {
    for (int slices = 0; window.IdleSlice(); ++slices) ASSERT_LT(slices, 10'000);
  }
  // "n0000" ... added in a scattered order.
  void AddMany(int count) {
    std::vector<std::string> names;
    for (int i = 0; i < count; ++i) names.push_back(NameOf(static_cast<int>(static_cast<long long>(i) * 7919 % count)));
    AddPeople(names);
  }
  static std::string NameOf(int number) {
    std::string digits = std::to_string(number);
    return "n" + std::string(5 - digits.size(), '0') + digits;
  }
};

TEST_P(Windows, PagesByNumber) {
  AddPeople({"d", "b", "a", "c", "e"});
  auto rows = List();
  auto& window = rows->Window();
  EXPECT_THAT(Names(window.RowsAt(0, 2)), ElementsAre("a", "b"));
  EXPECT_THAT(Names(window.RowsAt(3, 5)), ElementsAre("d", "e"));
  EXPECT_THAT(Names(window.RowsAt(5, 5)), IsEmpty());
  EXPECT_THAT(Names(window.LastRows(2)), ElementsAre("d", "e"));
  EXPECT_EQ(rows->Field("Name"), "a");
}

TEST_P(Windows, PagesByRow) {
  AddPeople({"d", "b", "a", "c", "e"});
  auto rows = List("ORDER BY Name DESC");
  auto& window = rows->Window();
  const Bookmark c = window.RowsAt(2, 1).at(0).bookmark;
  EXPECT_THAT(Names(window.RowsAfter(c, 5)), ElementsAre("b", "a"));
  EXPECT_THAT(Names(window.RowsAfter(c, 1)), ElementsAre("b"));
  EXPECT_THAT(Names(window.RowsBefore(c, 5)), ElementsAre("e", "d"));
  EXPECT_THAT(Names(window.RowsBefore(c, 1)), ElementsAre("d"));
  EXPECT_EQ(window.OrdinalOf(c), 2);

  const auto around = window.Around(c, 1);
  ASSERT_TRUE(around);
  EXPECT_THAT(Names(around->rows), ElementsAre("d", "c", "b"));
  EXPECT_EQ(around->before, 1U);
  EXPECT_THAT(Names(window.Around(c, 9)->rows), ElementsAre("e", "d", "c", "b", "a"));
  EXPECT_EQ(window.Around(c, 9)->ordinal, 2) << "near the start it is known without counting";
  EXPECT_EQ(TextOf(window.RowOf(c)->cells[1]), "c");
  rows->SetBookmark(c);
  EXPECT_EQ(rows->Field("Name"), "c");
}

TEST_P(Windows, CountIsExactAfterIdleWork) {
  AddMany(1000);
  for (const char* order : {"", "ORDER BY Name", "ORDER BY City", "WHERE Name > 'n' ORDER BY Name"}) {
    auto rows = List(order);
    auto& window = rows->Window();
    EXPECT_GT(window.Count(), 0) << order;
    WorkIdly(window);
    EXPECT_TRUE(window.CountIsExact()) << order;
    EXPECT_EQ(window.Count(), 1000) << order;
  }
}

TEST_P(Windows, NumbersAndRowsAgreeEverywhere) {
  constexpr int kRows = 600;
  AddMany(kRows);
  for (const bool idle : {false, true}) {
    for (const bool descending : {false, true}) {
      auto rows = List(descending ? "ORDER BY Name DESC" : "ORDER BY Name");
      auto& window = rows->Window();
      if (idle) WorkIdly(window);
      for (const int ordinal : {0, 1, 255, 256, 257, 511, 512, kRows - 2, kRows - 1}) {
        const auto page = window.RowsAt(ordinal, 3);
        ASSERT_FALSE(page.empty());
        EXPECT_EQ(TextOf(page[0].cells[1]), NameOf(descending ? kRows - 1 - ordinal : ordinal));
        EXPECT_EQ(window.OrdinalOf(page[0].bookmark), ordinal);
        const auto around = window.Around(page[0].bookmark, 2);
        ASSERT_TRUE(around);
        EXPECT_EQ(around->before, static_cast<std::size_t>(std::min(ordinal, 2)));
        EXPECT_EQ(around->rows.size(), around->before + 1 + static_cast<std::size_t>(std::min(kRows - 1 - ordinal, 2)));
        EXPECT_EQ(around->rows.at(around->before).bookmark, page[0].bookmark);
        if (idle || ordinal < 2) {
          EXPECT_EQ(around->ordinal, ordinal);
        }
        EXPECT_EQ(page.size(), static_cast<std::size_t>(std::min(3, kRows - ordinal)));
      }
      EXPECT_THAT(window.RowsAt(kRows, 1), IsEmpty());
    }
  }
}

TEST_P(Windows, ScrollingThroughAllPages) {
  AddMany(700);
  auto rows = List();
  auto& window = rows->Window();
  std::vector<std::string> seen = Names(window.RowsAt(0, 50));
  Bookmark last = window.RowsAt(49, 1).at(0).bookmark;
  while (true) {
    const auto page = window.RowsAfter(last, 50);
    if (page.empty()) break;
    for (const std::string& name : Names(page)) seen.push_back(name);
    last = page.back().bookmark;
  }
  ASSERT_EQ(seen.size(), 700u);
  for (int i = 0; i < 700; ++i) EXPECT_EQ(seen[static_cast<std::size_t>(i)], NameOf(i));
}

TEST_P(Windows, OwnDeletesLeaveTheList) {
  AddPeople({"a", "b", "c"});
  auto rows = List();
  auto& window = rows->Window();
  WorkIdly(window);
  rows->MoveNext();
  const Bookmark b = rows->Bookmark();
  rows->Delete();
  EXPECT_EQ(window.Count(), 2);
  EXPECT_THAT(Names(window.RowsAt(0, 5)), ElementsAre("a", "c"));
  EXPECT_FALSE(window.RowOf(b));
  EXPECT_FALSE(window.Around(b, 1));
  EXPECT_FALSE(window.OrdinalOf(b));
}

TEST_P(Windows, EditedAndAddedRowsKeepTheirNumbers) {
  AddPeople({"a", "b", "c", "d"});
  auto rows = List();
  auto& window = rows->Window();
  WorkIdly(window);
  rows->MoveNext();
  rows->Edit();
  rows->SetField("Name", "z");
  rows->Update();
  rows->AddNew();
  rows->SetField("Name", "aa");
  rows->Update();
  WorkIdly(window);
  EXPECT_EQ(window.Count(), 5);
  EXPECT_THAT(Names(window.RowsAt(0, 9)), ElementsAre("a", "z", "c", "d", "aa"));
  for (int i = 0; i < 5; ++i) {
    const auto row = window.RowsAt(i, 1);
    ASSERT_EQ(row.size(), 1u);
    EXPECT_EQ(window.OrdinalOf(row[0].bookmark), i);
  }
  EXPECT_THAT(Names(window.RowsBefore(rows->LastModified(), 2)), ElementsAre("c", "d"));
}

TEST_P(Windows, WritesOfOthersNeverBreakTheList) {
  AddMany(600);
  auto rows = List();
  auto& window = rows->Window();
  WorkIdly(window);
  const Bookmark gone = window.RowsAt(10, 1).at(0).bookmark;
  auto elsewhere = NewEngine();
  elsewhere->OpenControlDatabase(Path("office.zdb"))->Execute("DELETE * FROM People WHERE Name='n00010'");
  const auto page = window.RowsAt(9, 3);
  ASSERT_EQ(page.size(), 3u);
  if (GetParam() == 0) {
    EXPECT_THAT(Names(page), ElementsAre("n00009", "n00011", "n00012"));
    EXPECT_FALSE(window.RowOf(gone));
  } else {
    EXPECT_THAT(Names(page), ElementsAre("n00009", "-", "n00011"));
  }
  WorkIdly(window);
  EXPECT_TRUE(window.CountIsExact());
}

TEST_P(Windows, ForeignBookmarksAreRefused) {
  AddPeople({"a"});
  auto rows = List();
  auto other = List();
  EXPECT_EQ(ErrorOf([&] { rows->Window().RowOf(other->Bookmark()); }), 3159);
}

INSTANTIATE_TEST_SUITE_P(Strategies, Windows, testing::Values(20'000, 0),
                         [](const auto& rows) { return rows.param == 0 ? "Paged" : "Held"; });

}  // namespace
