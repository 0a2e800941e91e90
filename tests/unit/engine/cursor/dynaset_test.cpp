// Dynasets: order, searching, joins, own new rows and changed keys. Each rule with all keys held and with pages of an index.
#include "unit/engine/support/office.h"

namespace {

using platform::RecordsetRef;
using platform::RecordsetType;
using platform::Value;
using testing::ElementsAre;
using testing::IsEmpty;

class Dynasets : public DynasetRules {
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

// ---- order

TEST_P(Dynasets, WithoutOrderInRowKeyOrder) {
  AddPeople({"c", "a", "b"});
  EXPECT_THAT(Texts(Dynaset("People"), "Name"), ElementsAre("c", "a", "b"));
  EXPECT_THAT(Texts(Dynaset("SELECT * FROM People"), "Name"), ElementsAre("c", "a", "b"));
}

TEST_P(Dynasets, EqualKeysStandByRowKeyInTheDirectionOfTheKey) {
  AddPeople({"b", "a", "B", "a ", "c"});
  AddPerson("", "", 1);
  auto nobody = Table("People");
  nobody->AddNew();
  nobody->Update();
  EXPECT_THAT(Texts(Dynaset("SELECT * FROM People ORDER BY Name"), "ID"), ElementsAre("7", "6", "2", "4", "1", "3", "5"));
  EXPECT_THAT(Texts(Dynaset("SELECT * FROM People ORDER BY Name DESC"), "ID"), ElementsAre("5", "3", "1", "4", "2", "6", "7"));
  EXPECT_THAT(Texts(Dynaset("SELECT * FROM People ORDER BY ID DESC"), "ID"), ElementsAre("7", "6", "5", "4", "3", "2", "1"));
}

TEST_P(Dynasets, OrderWithoutAnIndex) {
  AddPerson("a", "Paris", 30);
  AddPerson("b", "oslo", 20);
  AddPerson("c", "Oslo", 30);
  AddPerson("d", "São Paulo", 10);
  AddPerson("e", "Sao Paulo", 20);
  EXPECT_THAT(Texts(Dynaset("SELECT * FROM People ORDER BY City"), "Name"), ElementsAre("b", "c", "a", "e", "d"));
  EXPECT_THAT(Texts(Dynaset("SELECT * FROM People ORDER BY City DESC"), "Name"), ElementsAre("d", "e", "a", "c", "b"));
  EXPECT_THAT(Texts(Dynaset("SELECT * FROM People ORDER BY Age, City DESC"), "Name"), ElementsAre("d", "e", "b", "a", "c"));
  EXPECT_THAT(Texts(Dynaset("SELECT * FROM People ORDER BY Age DESC"), "Name"), ElementsAre("c", "a", "e", "b", "d"));
}

TEST_P(Dynasets, OrderWithoutAnIndexOfManyRows) {
  std::vector<std::pair<std::string, int>> expected;
  std::vector<std::vector<Value>> people;
  for (int i = 0; i < 3000; ++i) {
    const std::string city = "same start " + std::string(1, static_cast<char>('a' + i * 7 % 26));
    people.push_back({city});
    expected.emplace_back(city, i + 1);
  }
  AddRows("People", {"City"}, people);
  std::ranges::sort(expected);
  std::vector<std::string> ids;
  for (const auto& [city, id] : expected) ids.push_back(std::to_string(id));
  EXPECT_EQ(Texts(Dynaset("SELECT * FROM People ORDER BY City"), "ID"), ids);
  std::ranges::reverse(ids);
  EXPECT_EQ(Texts(Dynaset("SELECT * FROM People ORDER BY City DESC"), "ID"), ids);
}

TEST_P(Dynasets, FilterAndOrder) {
  AddPerson("d", "x", 1);
  AddPerson("c", "y", 1);
  AddPerson("b", "x", 2);
  AddPerson("a", "x", 1);
  EXPECT_THAT(Texts(Dynaset("SELECT * FROM People WHERE (City='X') ORDER BY Name"), "Name"), ElementsAre("a", "b", "d"));
  EXPECT_THAT(Texts(Dynaset("SELECT Name FROM People WHERE Age=1 ORDER BY Name DESC"), "Name"), ElementsAre("d", "c", "a"));
  EXPECT_THAT(Texts(Dynaset("SELECT * FROM People WHERE City='none' ORDER BY Name"), "Name"), IsEmpty());
}

// ---- searching

TEST_P(Dynasets, FindFirstAndNextOnTheOrderColumn) {
  AddPeople({"Smith", "Jones", "smile", "Smit", "Zoe", "SMITH"});
  auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  std::vector<int> found;
  for (rows->FindFirst("([Name] Like 'Smi*')"); !rows->NoMatch(); rows->FindNext("([Name] Like 'Smi*')"))
    found.push_back(rows->Field("ID").As<std::int32_t>());
  EXPECT_THAT(found, ElementsAre(3, 4, 1, 6));
  EXPECT_EQ(rows->Field("ID"), 6);  // no match leaves the row
  rows->FindFirst("([Name] Like 'Q*')");
  EXPECT_TRUE(rows->NoMatch());
  EXPECT_EQ(rows->Field("ID"), 6);
}

TEST_P(Dynasets, FindDownwards) {
  AddPeople({"Smith", "Jones", "smile", "Smit", "Zoe", "SMITH", "Adam"});
  auto rows = Dynaset("SELECT * FROM People ORDER BY Name DESC");
  std::vector<int> found;
  for (rows->FindFirst("[Name] Like 'smi*'"); !rows->NoMatch(); rows->FindNext("[Name] Like 'smi*'"))
    found.push_back(rows->Field("ID").As<std::int32_t>());
  EXPECT_THAT(found, ElementsAre(6, 1, 4, 3));
  rows->FindFirst("[Name] = 'JONES '");
  EXPECT_FALSE(rows->NoMatch());
  EXPECT_EQ(rows->Field("ID"), 2);
  rows->FindNext("[Name] Like 'smi*'");
  EXPECT_TRUE(rows->NoMatch());
  EXPECT_EQ(rows->Field("ID"), 2);
  rows->FindNext("[Name] Like 'A*'");
  EXPECT_EQ(rows->Field("ID"), 7);
}

TEST_P(Dynasets, FindByTheRowKey) {
  AddPeople({"c", "a", "b"});
  auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  rows->FindFirst("[ID]=3");
  EXPECT_EQ(rows->Field("Name"), "b");
  rows->FindNext("[ID]=2");  // stands before
  EXPECT_TRUE(rows->NoMatch());
  EXPECT_EQ(rows->Field("Name"), "b");
  rows->FindNext("[ID]=1");
  EXPECT_FALSE(rows->NoMatch());
  EXPECT_EQ(rows->Field("Name"), "c");
  rows->FindFirst("[ID]=9");
  EXPECT_TRUE(rows->NoMatch());
}

TEST_P(Dynasets, FindByTheRowKeyRespectsTheFilter) {
  AddPerson("a", "x", 1);
  AddPerson("b", "y", 1);
  auto rows = Dynaset("SELECT * FROM People WHERE City = 'x' ORDER BY Name");
  rows->FindFirst("[ID]=2");
  EXPECT_TRUE(rows->NoMatch());
  rows->FindFirst("[ID]=1");
  EXPECT_FALSE(rows->NoMatch());
}

TEST_P(Dynasets, FindOnOtherColumns) {
  AddPerson("d", "Oslo", 30);
  AddPerson("c", "Rome", 31);
  AddPerson("b", "Osaka", 30);
  AddPerson("a", "Rome", 30);
  auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  rows->FindFirst("[City] Like 'Os*'");
  EXPECT_EQ(rows->Field("Name"), "b");
  rows->FindNext("[City] Like 'Os*'");
  EXPECT_EQ(rows->Field("Name"), "d");
  rows->FindNext("[City] Like 'Os*'");
  EXPECT_TRUE(rows->NoMatch());
  rows->FindFirst("[Age]>30 And [City]='rome'");
  EXPECT_EQ(rows->Field("Name"), "c");
  rows->FindFirst("[Name]>='b'");
  EXPECT_EQ(rows->Field("Name"), "b");
}

// Beyond the rows that are looked at one by one, all hits come from one pass.
TEST_P(Dynasets, FindRareRowsFarAway) {
  std::vector<std::vector<Value>> people;
  for (int i = 1; i <= 4000; ++i) people.push_back({"n" + std::to_string(10000 - i), i % 1500 == 0 ? "rare" : "common"});
  AddRows("People", {"Name", "City"}, people);
  for (const char* order : {"", " ORDER BY Name", " ORDER BY Name DESC", " ORDER BY City, Name"}) {
    auto rows = Dynaset(std::string("SELECT * FROM People") + order);
    std::vector<int> found;
    for (rows->FindFirst("[City]='rare'"); !rows->NoMatch(); rows->FindNext("[City]='rare'"))
      found.push_back(rows->Field("ID").As<std::int32_t>());
    if (std::string(order).find("Name") == std::string::npos || std::string(order).find("DESC") != std::string::npos)
      EXPECT_THAT(found, ElementsAre(1500, 3000)) << order;
    else
      EXPECT_THAT(found, ElementsAre(3000, 1500)) << order;
    rows->FindFirst("[City] Like '*zz*'");
    EXPECT_TRUE(rows->NoMatch());
  }
}

TEST_P(Dynasets, FindInAnEmptyList) {
  auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  rows->FindFirst("[ID]=1");
  EXPECT_TRUE(rows->NoMatch());
  rows->FindNext("[Name] Like 'a*'");
  EXPECT_TRUE(rows->NoMatch());
}

TEST_P(Dynasets, FindThatRaisesLeavesEverything) {
  AddPeople({"a", "b"});
  auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  rows->MoveNext();
  EXPECT_EQ(ErrorOf([&] { rows->FindFirst("[Name]='O'B'"); }), 3077);
  EXPECT_EQ(ErrorOf([&] { rows->FindFirst("[Nope]=1"); }), 3070);
  EXPECT_EQ(ErrorOf([&] { rows->FindFirst("[Age]='5'"); }), 3464);
  EXPECT_EQ(ErrorOf([&] { rows->FindFirst("[Name] Like '[*'"); }), 93);
  EXPECT_FALSE(rows->NoMatch());
  EXPECT_EQ(rows->Field("Name"), "b");
}

TEST_P(Dynasets, FindNextFromTheEnds) {
  AddPeople({"a", "b"});
  auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  rows->MoveLast();
  rows->MoveNext();
  rows->FindNext("[Name]='a'");
  EXPECT_TRUE(rows->NoMatch());
  EXPECT_TRUE(rows->Eof());
  rows->MoveFirst();
  rows->MovePrevious();
  rows->FindNext("[Name]='a'");
  EXPECT_FALSE(rows->NoMatch());
  EXPECT_FALSE(rows->Bof());
}

TEST_P(Dynasets, FindSeesChangedRows) {
  AddPeople({"a", "b", "c"});
  auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  rows->FindFirst("[City]='here'");
  EXPECT_TRUE(rows->NoMatch());
  auto elsewhere = NewEngine();
  elsewhere->OpenControlDatabase(Path("office.zdb"))->Execute("UPDATE People SET City='here' WHERE Name='b'");
  rows->FindFirst("[City]='here'");
  EXPECT_EQ(rows->Field("Name"), "b");
}

// ---- own and others' changes

TEST_P(Dynasets, OwnNewRowsStandAtTheEnd) {
  AddPeople({"b", "d"});
  auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  for (const char* name : {"c", "a"}) {
    rows->AddNew();
    rows->SetField("Name", name);
    rows->Update();
  }
  EXPECT_THAT(Texts(rows, "Name"), ElementsAre("b", "d", "c", "a"));
  rows->SetBookmark(rows->LastModified());
  EXPECT_EQ(rows->Field("Name"), "a");
  rows->MovePrevious();
  EXPECT_EQ(rows->Field("Name"), "c");
  rows->MovePrevious();
  EXPECT_EQ(rows->Field("Name"), "d");
  rows->MoveLast();
  EXPECT_EQ(rows->Field("Name"), "a");
  EXPECT_EQ(rows->RecordCount(), 4);
  rows->FindFirst("[Name] Like 'a*'");
  EXPECT_FALSE(rows->NoMatch());
  EXPECT_EQ(rows->Field("ID"), 4);
  EXPECT_THAT(Texts(Dynaset("SELECT * FROM People ORDER BY Name"), "Name"), ElementsAre("a", "b", "c", "d"));
}

TEST_P(Dynasets, AnEditedRowKeepsItsPlace) {
  AddPeople({"a", "b", "c", "d"});
  auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  rows->MoveNext();
  const auto bookmark = rows->Bookmark();
  rows->Edit();
  rows->SetField("Name", "z");
  rows->Update();
  EXPECT_EQ(rows->Field("Name"), "z");
  EXPECT_TRUE(rows->Bookmark() == bookmark);
  EXPECT_THAT(Texts(rows, "Name"), ElementsAre("a", "z", "c", "d"));
  rows->SetBookmark(bookmark);
  rows->MovePrevious();
  EXPECT_EQ(rows->Field("Name"), "a");
  rows->MoveNext();
  EXPECT_EQ(rows->Field("Name"), "z");
  rows->MoveNext();
  EXPECT_EQ(rows->Field("Name"), "c");
  rows->FindFirst("[Name] Like 'z*'");
  EXPECT_FALSE(rows->NoMatch());
  rows->FindFirst("[Name] Like 'b*'");
  EXPECT_TRUE(rows->NoMatch());
  rows->MoveLast();
  EXPECT_EQ(rows->RecordCount(), 4);
}

TEST_P(Dynasets, ARowThatLeavesTheFilterStays) {
  AddPerson("a", "x", 1);
  AddPerson("b", "x", 1);
  auto rows = Dynaset("SELECT * FROM People WHERE City='x' ORDER BY Name");
  rows->Edit();
  rows->SetField("City", "y");
  rows->Update();
  EXPECT_THAT(Texts(rows, "City"), ElementsAre("y", "x"));
  rows->FindFirst("[City]='y'");
  EXPECT_FALSE(rows->NoMatch());
}

TEST_P(Dynasets, RowsThatOthersDeletedArePassedOver) {
  AddPeople({"a", "b", "c", "d"});
  auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  auto elsewhere = NewEngine();
  elsewhere->OpenControlDatabase(Path("office.zdb"))->Execute("DELETE * FROM People WHERE Name='b' Or Name='c'");
  rows->MoveNext();
  EXPECT_EQ(rows->Field("Name"), "d");
  EXPECT_EQ(rows->RecordCount(), 2);
  rows->FindFirst("[Name]='b'");
  EXPECT_TRUE(rows->NoMatch());
}

TEST_P(Dynasets, OthersChangesShowAtTheNextFetch) {
  AddPeople({"a", "b"});
  auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  auto elsewhere = NewEngine();
  auto other = elsewhere->OpenControlDatabase(Path("office.zdb"));
  other->Execute("UPDATE People SET City='new'");
  EXPECT_TRUE(rows->Field("City").IsNull());
  rows->Move(0);
  EXPECT_EQ(rows->Field("City"), "new");
  other->Execute("UPDATE People SET City='newer'");
  rows->MoveNext();
  EXPECT_EQ(rows->Field("City"), "newer");
}

// A row that somebody moves behind the rows read so far comes once all the same.
TEST_P(Dynasets, RowsMovedByOthersWhileWalking) {
  std::vector<std::string> names;
  for (int i = 0; i < 300; ++i) names.push_back("n" + std::to_string(1000 + i));
  AddPeople(names);
  auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  auto elsewhere = NewEngine();
  auto other = elsewhere->OpenControlDatabase(Path("office.zdb"));
  int seen = 0;
  for (; !rows->Eof(); rows->MoveNext()) {
    if (++seen == 10) other->Execute("UPDATE People SET Name = 'z' WHERE Name = 'n1005'");
    ASSERT_LE(seen, 301);
  }
  EXPECT_EQ(seen, GetParam() == 0 ? 301 : 300);
}

TEST_P(Dynasets, CountReachesNoneWithTheLastRow) {
  AddPeople({"a", "b"});
  auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  auto elsewhere = NewEngine();
  elsewhere->OpenControlDatabase(Path("office.zdb"))->Execute("DELETE * FROM People WHERE Name='b'");
  rows->Delete();
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof());
  EXPECT_EQ(rows->RecordCount(), 0);
}

// ---- joins

TEST_P(Dynasets, JoinedListShowsBothTables) {
  AddPhones();
  auto rows = Dynaset(phoneList);
  EXPECT_TRUE(rows->Updatable());
  EXPECT_EQ(rows->Fields()[4].sourceTable, "Kinds");
  EXPECT_THAT(Texts(rows, "Number"), ElementsAre("10", "30"));
  EXPECT_THAT(Texts(rows, "Title"), ElementsAre("Home", "Work"));
}

TEST_P(Dynasets, EditsReachTheTableThatOwnsTheField) {
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

TEST_P(Dynasets, FailedEditOfTwoTablesWritesNeither) {
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

TEST_P(Dynasets, DeleteTakesTheManySide) {
  AddPhones();
  auto rows = Dynaset(phoneList);
  rows->Delete();
  EXPECT_THAT(Texts(Dynaset("Phones"), "Number"), ElementsAre("30", "20", "99"));
  EXPECT_THAT(Texts(Dynaset("Kinds"), "Kind"), ElementsAre("H", "W"));
  EXPECT_EQ(rows->RecordCount(), 1);
}

TEST_P(Dynasets, NewRowOfAJoinMeetsItsPartner) {
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

TEST_P(Dynasets, FindInAJoin) {
  AddPhones();
  auto rows = Dynaset(phoneList);
  rows->FindFirst("[Title] Like 'Wo*'");
  EXPECT_EQ(rows->Field("Number"), "30");
  rows->FindFirst("[RecordID]=2");
  EXPECT_EQ(rows->Field("Number"), "10");
  rows->FindFirst("[RecordID]=3");  // a phone of somebody else
  EXPECT_TRUE(rows->NoMatch());
}

TEST_P(Dynasets, OuterJoinShowsRowsWithoutPartner) {
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

TEST_P(Dynasets, ComputedColumnsAreRead) {
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

TEST_P(Dynasets, ATableThatAnotherProgramTookAway) {
  AddPeople({"b", "a"});
  auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  engine::DropTable(Path("office.zdb"), "People");
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

TEST_P(Dynasets, AggregatesAreReadOnly) {
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

TEST_P(Dynasets, DistinctValues) {
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

TEST_P(Dynasets, SnapshotsRefuseWrites) {
  AddPeople({"a"});
  auto rows = db_->OpenRecordset("SELECT * FROM People", RecordsetType::Snapshot);
  EXPECT_FALSE(rows->Updatable());
  EXPECT_EQ(rows->Type(), RecordsetType::Snapshot);
  EXPECT_EQ(ErrorOf([&] { rows->Edit(); }), 3251);
  EXPECT_EQ(ErrorOf([&] { rows->AddNew(); }), 3251);
  EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), 3251);
}

INSTANTIATE_TEST_SUITE_P(Strategies, Dynasets, testing::Values(20'000, 0),
                         [](const auto& rows) { return rows.param == 0 ? "Paged" : "Held"; });

}  // namespace
