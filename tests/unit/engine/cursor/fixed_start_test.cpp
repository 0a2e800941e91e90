#include "unit/engine/support/office.h"

// Lists of one owner's rows in the order of a field that an index has behind the owner's: the index gives the order.
namespace {

using platform::Value;

constexpr int kDepartments = 400;
constexpr int kOfFew = 5;  // rows of the owner 9

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
    for (int i = kOfFew; i > 0; --i) rows.push_back({Value(9), Value(Dept(i * 10)), Value(0.5)});
    AddRows("Rates", {"ID", "Dept", "Adjustment"}, rows);
  }

  static std::vector<std::string> AllDepartments() {
    std::vector<std::string> all;
    for (int i = 0; i < kDepartments; ++i) all.push_back(Dept(i));
    return all;
  }
  /// The five rows of one owner among the many, which are known whole from the first look.
  platform::RecordsetRef Few(const std::string& order = " ORDER BY Dept") { return Dynaset("SELECT * FROM Rates WHERE ID=9" + order); }
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
  EXPECT_EQ(Texts(Dynaset("SELECT * FROM Rates WHERE ID<9 ORDER BY Dept"), "Dept"), thrice);
}

TEST_P(FixedStart, AWindowShowsTheMiddleAndTheEnd) {
  const auto rows = Dynaset("SELECT Dept FROM Rates WHERE ID=7 ORDER BY Dept");
  while (rows->Window().IdleSlice()) {
  }
  EXPECT_EQ(rows->Window().Count(), kDepartments);
  EXPECT_EQ(TextOf(rows->Window().RowsAt(150, 1).at(0).cells.at(0)), "150");
  EXPECT_EQ(TextOf(rows->Window().LastRows(2).at(1).cells.at(0)), "399");
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
  rows->SetField("ID", 10);  // the filter would not take it any more
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

using testing::ElementsAre;

TEST_P(FixedStart, AFewRowsComeInTheirOrder) {
  EXPECT_THAT(Texts(Few(), "Dept"), ElementsAre("010", "020", "030", "040", "050"));
  EXPECT_THAT(Texts(Few(" ORDER BY Dept DESC"), "Dept"), ElementsAre("050", "040", "030", "020", "010"));
  EXPECT_THAT(Texts(Few(""), "Dept"), ElementsAre("050", "040", "030", "020", "010")) << "as they were entered";
  EXPECT_EQ(Dynaset("SELECT * FROM Rates WHERE ID=11")->RecordCount(), 0);
}

TEST_P(FixedStart, AmongAFewRowsEveryMoveAndSearchFinds) {
  const auto rows = Few();
  rows->MoveLast();
  EXPECT_EQ(rows->RecordCount(), kOfFew);
  EXPECT_EQ(TextOf(rows->Field("Dept")), "050");
  rows->FindFirst("[Dept]>='025'");
  EXPECT_EQ(TextOf(rows->Field("Dept")), "030");
  rows->FindNext("[Adjustment]=0.5");
  EXPECT_EQ(TextOf(rows->Field("Dept")), "040");
  EXPECT_EQ(rows->Window().Count(), kOfFew);
  EXPECT_EQ(rows->Window().RowsAfter(rows->Bookmark(), 10).size(), 1U);
}

TEST_P(FixedStart, OwnChangesOfAFewRowsStay) {
  const auto rows = Few();
  rows->MoveNext();
  rows->Edit();
  rows->SetField("Dept", "zzz");
  rows->Update();
  rows->AddNew();
  rows->SetField("ID", 9);
  rows->SetField("Dept", "005");
  rows->Update();
  rows->FindFirst("[Dept]='040'");
  rows->Delete();
  EXPECT_EQ(rows->Window().Count(), kOfFew);
  EXPECT_THAT(Texts(Few(), "Dept"), ElementsAre("005", "010", "030", "050", "zzz"));
  rows->MoveFirst();
  rows->MoveNext();
  EXPECT_EQ(TextOf(rows->Field("Dept")), "zzz");
}

TEST_P(FixedStart, AFewRowsThatOthersChangeShowIt) {
  const auto rows = Few();
  const auto elsewhere = NewEngine();
  const auto other = elsewhere->OpenControlDatabase(Path("office.zdb"));
  other->Execute("UPDATE Rates SET Adjustment=2 WHERE ID=9 AND Dept='020'");
  other->Execute("DELETE * FROM Rates WHERE ID=9 AND Dept='030'");
  EXPECT_THAT(Texts(rows, "Dept"), ElementsAre("010", "020", "040", "050"));
  rows->FindFirst("[Adjustment]=2");
  EXPECT_EQ(TextOf(rows->Field("Dept")), "020");
}

TEST_P(FixedStart, WhetherThereIsARowIsKnownBeforeAndAfterTheLast) {
  const auto rows = Few();
  EXPECT_TRUE(rows->HasRows());
  rows->MoveLast();
  EXPECT_TRUE(rows->HasRows());
  for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) rows->Delete();
  EXPECT_FALSE(rows->HasRows());
  EXPECT_EQ(rows->RecordCount(), 0);
  EXPECT_TRUE(Table("Rates")->HasRows());
  EXPECT_FALSE(Table("Words")->HasRows());
  const auto all = Dynaset("SELECT * FROM People ORDER BY Name");
  EXPECT_FALSE(all->HasRows());
  AddPeople({"Ames", "Bell"});
  const auto people = Dynaset("SELECT * FROM People ORDER BY Name");
  people->MoveLast();
  people->Delete();
  EXPECT_TRUE(people->HasRows());
  people->MoveFirst();
  people->Delete();
  EXPECT_FALSE(people->HasRows());
}

}  // namespace
