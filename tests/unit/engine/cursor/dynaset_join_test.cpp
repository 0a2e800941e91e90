// Dynasets of several tables, and those that can't be written.
#include "unit/engine/support/office.h"

namespace {

using platform::RecordsetRef;
using platform::RecordsetType;
using platform::Value;
using testing::ElementsAre;
using testing::IsEmpty;

class JoinedLists : public DynasetRules {
 protected:
  void AddPhone(int id, const std::string& kind, const std::string& number) {
    auto phones = Table("Phones");
    phones->AddNew();
    phones->SetField("ID", id);
    phones->SetField("Kind", kind);
    phones->SetField("Number", number);
    phones->Update();
    phones->Close();
  }
  void AddKind(const std::string& kind, const std::string& title) {
    auto kinds = Table("Kinds");
    kinds->AddNew();
    kinds->SetField("Kind", kind);
    kinds->SetField("Title", title);
    kinds->Update();
    kinds->Close();
  }
  void AddPhones() {
    AddKind("H", "Home");
    AddKind("W", "Work");
    AddPhone(1, "W", "30");
    AddPhone(1, "H", "10");
    AddPhone(2, "H", "20");
    AddPhone(1, "X", "99");  // of no kind
  }
  static constexpr const char* phoneList =
      "SELECT Phones.RecordID, Phones.ID, Phones.Number, Phones.Kind, Kinds.Title FROM Kinds INNER JOIN Phones ON Kinds.Kind = Phones.Kind "
      "WHERE (ID=1) ORDER BY Number;";
};

// ---- joins

TEST_P(JoinedLists, JoinedListShowsBothTables) {
  AddPhones();
  auto rows = Dynaset(phoneList);
  EXPECT_TRUE(rows->Updatable());
  EXPECT_EQ(rows->Fields()[4].sourceTable, "Kinds");
  EXPECT_THAT(Texts(rows, "Number"), ElementsAre("10", "30"));
  EXPECT_THAT(Texts(rows, "Title"), ElementsAre("Home", "Work"));
}

TEST_P(JoinedLists, EditsReachTheTableThatOwnsTheField) {
  AddPhones();
  auto rows = Dynaset(phoneList);
  rows->Edit();
  rows->SetField("Title", "House");
  rows->SetField("Number", "11");
  rows->Update();
  EXPECT_EQ(rows->Field("Title"), "House");
  EXPECT_THAT(Texts(Dynaset("Kinds"), "Title"), ElementsAre("House", "Work"));
  EXPECT_THAT(Texts(Dynaset("Phones"), "Number"), ElementsAre("30", "11", "20", "99"));
}

TEST_P(JoinedLists, FailedEditOfTwoTablesWritesNeither) {
  AddPhones();
  auto rows =
      Dynaset("SELECT Phones.Number, Kinds.Kind, Kinds.Title FROM Kinds INNER JOIN Phones ON Kinds.Kind = Phones.Kind ORDER BY Number");
  rows->Edit();
  rows->SetField("Number", "77");
  rows->SetField("Kind", "W");
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), 3022);
  EXPECT_EQ(rows->Mode(), platform::EditMode::Edit);
  EXPECT_THAT(Texts(Dynaset("Phones"), "Number"), ElementsAre("30", "10", "20", "99"));
}

TEST_P(JoinedLists, DeleteTakesTheManySide) {
  AddPhones();
  auto rows = Dynaset(phoneList);
  rows->Delete();
  EXPECT_THAT(Texts(Dynaset("Phones"), "Number"), ElementsAre("30", "20", "99"));
  EXPECT_THAT(Texts(Dynaset("Kinds"), "Kind"), ElementsAre("H", "W"));
  EXPECT_EQ(rows->RecordCount(), 1);
}

TEST_P(JoinedLists, NewRowOfAJoinMeetsItsPartner) {
  AddPhones();
  auto rows = Dynaset(phoneList);
  rows->AddNew();
  rows->SetField("ID", 1);
  rows->SetField("Kind", "W");
  rows->SetField("Number", "05");
  rows->Update();
  rows->SetBookmark(rows->LastModified());
  EXPECT_EQ(rows->Field("Title"), "Work");
  EXPECT_THAT(Texts(rows, "Number"), ElementsAre("10", "30", "05"));
}

TEST_P(JoinedLists, FindInAJoin) {
  AddPhones();
  auto rows = Dynaset(phoneList);
  rows->FindFirst("[Title] Like 'Wo*'");
  EXPECT_EQ(rows->Field("Number"), "30");
  rows->FindFirst("[RecordID]=2");
  EXPECT_EQ(rows->Field("Number"), "10");
  rows->FindFirst("[RecordID]=3");  // a phone of somebody else
  EXPECT_TRUE(rows->NoMatch());
}

TEST_P(JoinedLists, OuterJoinShowsRowsWithoutPartner) {
  AddPhones();
  auto rows = Dynaset("SELECT Phones.Number, Kinds.Title FROM Kinds RIGHT JOIN Phones ON Kinds.Kind = Phones.Kind ORDER BY Number");
  EXPECT_THAT(Texts(rows, "Title"), ElementsAre("Home", "Home", "Work", "Null"));
  rows->MoveLast();
  rows->Edit();
  EXPECT_EQ(ErrorOf([&] { rows->SetField("Title", "x"); }), 3164);
  rows->SetField("Number", "98");
  rows->Update();
  EXPECT_EQ(rows->Field("Number"), "98");
}

TEST_P(JoinedLists, ComputedColumnsAreRead) {
  AddPerson("a", "x", 20);
  auto rows = Dynaset("SELECT Name, [Age]+1 AS [Next Age] FROM People ORDER BY [Age]+1");
  EXPECT_EQ(TextOf(rows->Field("Next Age")), "21");
  EXPECT_FALSE(rows->Fields()[1].updatable);
  rows->Edit();
  EXPECT_EQ(ErrorOf([&] { rows->SetField("Next Age", 3); }), 3164);
  rows->FindFirst("[Next Age]=21");
  EXPECT_FALSE(rows->NoMatch());
}

// ---- rows that can't be written

TEST_P(JoinedLists, ATableThatAnotherProgramTookAway) {
  AddPeople({"b", "a"});
  auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  office_files::DropTable(Path("office.zdb"), "People");
  const std::string sentence =
      "The Microsoft Jet database engine cannot find the input table or query 'People'.  Make sure it exists and that its name is spelled "
      "correctly.";
  EXPECT_EQ(rows->Field("Name"), "a") << "the current row stays readable";
  EXPECT_EQ(DescriptionOf([&] { rows->MoveLast(); }), sentence);
  EXPECT_EQ(DescriptionOf([&] { rows->Edit(); }), sentence);
  EXPECT_EQ(ErrorOf([&] { rows->FindFirst("[Name]='b'"); }), 3078);
  EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), 3078);
  EXPECT_EQ(ErrorOf([&] { rows->AddNew(); }), 3078);
}

TEST_P(JoinedLists, AggregatesAreReadOnly) {
  AddPeople({"b", "a", "C"});
  auto rows = Dynaset("SELECT Max([Name]) AS Last FROM People");
  EXPECT_FALSE(rows->Updatable());
  EXPECT_EQ(rows->Field("Last"), "C");
  EXPECT_EQ(rows->RecordCount(), 1);
  EXPECT_EQ(ErrorOf([&] { rows->Edit(); }), 3027);
  EXPECT_EQ(ErrorOf([&] { rows->AddNew(); }), 3027);
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof());
}

TEST_P(JoinedLists, DistinctValues) {
  AddPerson("a", "x", 2);
  AddPerson("b", "y", 1);
  AddPerson("c", "X", 2);
  auto rows = Dynaset("SELECT DISTINCT City FROM People ORDER BY City");
  EXPECT_THAT(Texts(rows, "City"), ElementsAre("x", "y"));
  EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), 3027);
  rows->FindFirst("[City]='y'");
  EXPECT_FALSE(rows->NoMatch());
  EXPECT_EQ(rows->Field("City"), "y");
}

TEST_P(JoinedLists, SnapshotsRefuseWrites) {
  AddPeople({"a"});
  auto rows = db_->OpenRecordset("SELECT * FROM People", RecordsetType::Snapshot);
  EXPECT_FALSE(rows->Updatable());
  EXPECT_EQ(rows->Type(), RecordsetType::Snapshot);
  EXPECT_EQ(ErrorOf([&] { rows->Edit(); }), 3251);
  EXPECT_EQ(ErrorOf([&] { rows->AddNew(); }), 3251);
  EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), 3251);
}

INSTANTIATE_TEST_SUITE_P(Strategies, JoinedLists, testing::Values(20'000, 0),
                         [](const auto& rows) { return rows.param == 0 ? "Paged" : "Held"; });

}  // namespace
