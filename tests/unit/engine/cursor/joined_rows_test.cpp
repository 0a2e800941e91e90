// Rows of joins after others have changed what ties their tables together. With all keys held and with pages of an index.
#include "unit/engine/support/office.h"

namespace {

using platform::RecordsetRef;
using platform::Value;
using testing::ElementsAre;

class JoinedRows : public DynasetRules {
 protected:
  void AddPhones() {
    AddRows("Kinds", {"Kind", "Title"}, {{Value("H"), Value("Home")}, {Value("W"), Value("Work")}});
    AddRows("Phones", {"ID", "Kind", "Number"},
            {{Value(1), Value("W"), Value("30")},
             {Value(1), Value("H"), Value("10")},
             {Value(2), Value("H"), Value("20")},
             {Value(1), Value("X"), Value("99")}});  // X: of no kind
  }
  static constexpr const char* phoneList =
      "SELECT Phones.RecordID, Phones.ID, Phones.Number, Phones.Kind, Kinds.Title FROM Kinds INNER JOIN Phones ON Kinds.Kind = Phones.Kind "
      "WHERE (ID=1) ORDER BY Number;";
};

TEST_P(JoinedRows, ARowOfAJoinIsFetchedWithThePartnerThatItHasNow) {
  AddPhones();
  auto rows = Dynaset(phoneList);
  db_->Execute("UPDATE Phones SET Kind='H' WHERE Number='30'");
  rows->MoveLast();
  EXPECT_EQ(rows->Field("Number"), "30");
  EXPECT_EQ(rows->Field("Kind"), "H");
  EXPECT_EQ(rows->Field("Title"), "Home") << "code and title stand for one kind";
  rows->FindFirst("[Title]='Work'");
  EXPECT_TRUE(rows->NoMatch());
  rows->MoveFirst();
  rows->FindFirst("[Title]='Home' And [Number]='30'");
  EXPECT_FALSE(rows->NoMatch());
  EXPECT_THAT(Texts(rows, "Title"), ElementsAre("Home", "Home"));
}

TEST_P(JoinedRows, AWriteOfAJoinReachesThePartnerThatTheRowHasNow) {
  AddPhones();
  auto rows = Dynaset(phoneList);
  rows->MoveLast();
  db_->Execute("UPDATE Phones SET Kind='H' WHERE Number='30'");
  rows->Edit();
  EXPECT_EQ(rows->Field("Title"), "Home");
  rows->SetField("Title", "House");
  rows->Update();
  EXPECT_EQ(rows->Field("Title"), "House");
  EXPECT_THAT(Texts(Dynaset("Kinds"), "Title"), ElementsAre("House", "Work"));
}

TEST_P(JoinedRows, ARowOfAnInnerJoinWithoutAPartnerIsGone) {
  AddPhones();
  auto rows = Dynaset(phoneList);
  rows->MoveLast();
  db_->Execute("UPDATE Phones SET Kind='X' WHERE Number='30'");
  EXPECT_EQ(rows->Field("Title"), "Work") << "readable while it is current";
  EXPECT_EQ(ErrorOf([&] { rows->Edit(); }), 3167);
  EXPECT_EQ(ErrorOf([&] { rows->Move(0); }), 3167);
  EXPECT_THAT(Texts(rows, "Number"), ElementsAre("10"));
  db_->Execute("UPDATE Phones SET Kind='W' WHERE Number='30'");
  EXPECT_THAT(Texts(Dynaset(phoneList), "Number"), ElementsAre("10", "30"));
}

TEST_P(JoinedRows, AnOwnRowThatLosesItsPartnerStaysCurrent) {
  AddPhones();
  auto rows = Dynaset(phoneList);
  rows->MoveLast();
  rows->Edit();
  rows->SetField("Kind", "X");
  rows->Update();
  EXPECT_EQ(rows->Field("Kind"), "X");
  EXPECT_TRUE(rows->Field("Title").IsNull());
  rows->MoveFirst();
  EXPECT_EQ(rows->Field("Number"), "10");
}

TEST_P(JoinedRows, AnOwnNewRowWithoutAPartnerCanBeStoodOn) {
  AddPhones();
  auto rows = Dynaset(phoneList);
  rows->AddNew();
  rows->SetField("ID", 1);
  rows->SetField("Kind", "X");
  rows->SetField("Number", "05");
  rows->Update();
  rows->SetBookmark(rows->LastModified());
  EXPECT_EQ(rows->Field("Number"), "05");
  EXPECT_TRUE(rows->Field("Title").IsNull());
}

TEST_P(JoinedRows, ARowOfAnOuterJoinFindsLosesAndChangesItsPartner) {
  AddPhones();
  auto rows =
      Dynaset("SELECT Phones.Number, Phones.Kind, Kinds.Title FROM Kinds RIGHT JOIN Phones ON Kinds.Kind = Phones.Kind ORDER BY Number");
  db_->Execute("UPDATE Phones SET Kind='W' WHERE Number='10'");
  db_->Execute("UPDATE Phones SET Kind='X' WHERE Number='20'");
  db_->Execute("UPDATE Phones SET Kind='H' WHERE Number='99'");
  EXPECT_THAT(Texts(rows, "Number"), ElementsAre("10", "20", "30", "99"));
  EXPECT_THAT(Texts(rows, "Title"), ElementsAre("Work", "Null", "Work", "Home"));
  rows->FindFirst("[Title]='Home'");
  EXPECT_EQ(rows->Field("Number"), "99");
}

TEST_P(JoinedRows, ManyRowsOfAJoinAreSearchedUnderTheirPresentPartners) {
  AddRows("Kinds", {"Kind", "Title"}, {{Value("H"), Value("Home")}, {Value("W"), Value("Work")}});
  std::vector<std::vector<Value>> phones;
  for (int i = 0; i < 3000; ++i) phones.push_back({Value(1), Value("W"), Value(std::to_string(i + 10'000))});
  AddRows("Phones", {"ID", "Kind", "Number"}, phones);
  auto rows = Dynaset(phoneList);
  db_->Execute("UPDATE Phones SET Kind='H' WHERE Number='12900'");
  rows->FindFirst("[Title]='Home'");
  ASSERT_FALSE(rows->NoMatch());
  EXPECT_EQ(rows->Field("Number"), "12900");
}

// Two rows for each of a pair that no key ties to one another: each is known by both keys.
TEST_P(JoinedRows, RowsOfAJoinWithoutAKeyAreKnownByAllTheirKeys) {
  AddPhones();
  AddRows("Words", {"ID", "Word"}, {{Value(1), Value("a")}, {Value(1), Value("b")}});
  auto rows = Dynaset("SELECT Phones.Number, Words.Word FROM Phones INNER JOIN Words ON Phones.ID = Words.ID ORDER BY Number, Word");
  EXPECT_THAT(Texts(rows, "Word"), ElementsAre("a", "b", "a", "b", "a", "b"));
  db_->Execute("UPDATE Words SET ID=7 WHERE Word='b'");
  EXPECT_THAT(Texts(rows, "Word"), ElementsAre("a", "a", "a"));
}

INSTANTIATE_TEST_SUITE_P(Strategies, JoinedRows, testing::Values(20'000, 0),
                         [](const auto& rows) { return rows.param == 0 ? "Paged" : "Held"; });

}  // namespace
