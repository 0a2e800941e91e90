#include "unit/engine/support/office.h"

// Lists of one owner's rows in the order of a field that an index has behind the owner's: the index gives the order.
namespace {

using platform::Value;

constexpr int kDepartments = 300;

std::string Dept(int number) {
  const std::string digits = std::to_string(number);
  return std::string(3 - digits.size(), '0') + digits;
}

/// The same with the strategies for short lists and for long ones.
class FixedStart : public OfficeTest, public testing::WithParamInterface<int> {
 protected:
  FixedStart() : OfficeTest(GetParam()) {
    std::vector<std::vector<Value>> rows;
    for (int i = 0; i < kDepartments; ++i)
      for (const int id : {6, 7, 8}) rows.push_back({Value(id), Value(Dept(i * 7 % kDepartments)), Value(id + i / 1000.0)});
    AddRows("Rates", {"ID", "Dept", "Adjustment"}, rows);
  }

  static std::vector<std::string> AllDepartments() {
    std::vector<std::string> all;
    for (int i = 0; i < kDepartments; ++i) all.push_back(Dept(i));
    return all;
  }
};

INSTANTIATE_TEST_SUITE_P(Thresholds, FixedStart, testing::Values(0, 20'000));

TEST_P(FixedStart, RowsComeInOrderUpAndDown) {
  std::vector<std::string> all = AllDepartments();
  EXPECT_EQ(Texts(Dynaset("SELECT * FROM Rates WHERE (ID=7) ORDER BY Dept;"), "Dept"), all);
  std::ranges::reverse(all);
  EXPECT_EQ(Texts(Dynaset("SELECT * FROM Rates WHERE (ID=7) ORDER BY Dept DESC;"), "Dept"), all);
}

TEST_P(FixedStart, WithoutTheFixedStartTheOrderIsTheSame) {
  std::vector<std::string> thrice;
  for (const std::string& dept : AllDepartments()) thrice.insert(thrice.end(), 3, dept);
  EXPECT_EQ(Texts(Dynaset("SELECT * FROM Rates WHERE ID>0 ORDER BY Dept"), "Dept"), thrice);
}

TEST_P(FixedStart, AWindowShowsTheMiddleAndTheEnd) {
  const auto rows = Dynaset("SELECT Dept FROM Rates WHERE ID=7 ORDER BY Dept");
  while (rows->Window().IdleSlice()) {
  }
  EXPECT_EQ(rows->Window().Count(), kDepartments);
  EXPECT_EQ(TextOf(rows->Window().RowsAt(150, 1).at(0).cells.at(0)), "150");
  EXPECT_EQ(TextOf(rows->Window().LastRows(2).at(1).cells.at(0)), "299");
}

TEST_P(FixedStart, SearchingFindsTheOwnersRowAlone) {
  const auto rows = Dynaset("SELECT * FROM Rates WHERE ID=7 ORDER BY Dept");
  rows->FindFirst("[Dept]>='200'");
  ASSERT_FALSE(rows->NoMatch());
  EXPECT_EQ(TextOf(rows->Field("Dept")), "200");
  EXPECT_EQ(TextOf(rows->Field("ID")), "7");
  rows->MovePrevious();
  EXPECT_EQ(TextOf(rows->Field("Dept")), "199");
  rows->FindFirst("[Dept]='xyz'");
  EXPECT_TRUE(rows->NoMatch());
}

TEST_P(FixedStart, OwnChangesKeepARowInItsPlace) {
  const auto rows = Dynaset("SELECT * FROM Rates WHERE ID=7 ORDER BY Dept");
  rows->FindFirst("[Dept]='002'");
  rows->Edit();
  rows->SetField("ID", 9);  // the filter would not take it any more
  rows->Update();
  rows->MoveNext();
  rows->Edit();
  rows->SetField("Dept", "zzz");  // the order would put it last
  rows->Update();
  auto all = AllDepartments();
  all[3] = "zzz";
  EXPECT_EQ(Texts(rows, "Dept"), all);
  EXPECT_EQ(Texts(Dynaset("SELECT * FROM Rates WHERE ID=7 ORDER BY Dept"), "Dept").back(), "zzz");
}

}  // namespace
