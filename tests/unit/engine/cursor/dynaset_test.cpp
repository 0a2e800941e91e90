// Dynasets: order, own new rows and changed keys, with all keys held and with pages of an index.
#include "unit/engine/support/office.h"

namespace {

using platform::RecordsetRef;
using platform::RecordsetType;
using platform::Value;
using testing::ElementsAre;
using testing::IsEmpty;

class Dynasets : public DynasetRules {};

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

TEST_P(Dynasets, ListsOfCodesAreSettledAtOpeningWhateverTheThreshold) {
  AddRows("Kinds", {"Kind", "Title"}, {{Value("H"), Value("Home")}});
  engine::EngineOptions options;
  options.exactRows = GetParam();
  options.codeTables = {"Kinds"};
  auto engine = office_files::NewEngine(options);
  auto rows = engine->OpenControlDatabase(Path("office.zdb"))->OpenRecordset("SELECT * FROM Kinds ORDER BY Kind", RecordsetType::Dynaset);
  auto elsewhere = NewEngine();
  elsewhere->OpenControlDatabase(Path("office.zdb"))->Execute("INSERT INTO Kinds (Kind, Title) VALUES ('W', 'Work')");
  EXPECT_THAT(Texts(rows, "Title"), ElementsAre("Home"));
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

// ---- what only lists whose keys are held promise: pages of an index take others' rows up and leave them out as they find them

class HeldDynasets : public OfficeTest {};

// Which rows a short list has is settled before anybody has looked at it.
TEST_F(HeldDynasets, RowsAddedByOthersComeWithAnotherOpening) {
  AddPeople({"a", "c"});
  for (const char* source : {"SELECT * FROM People ORDER BY Name", "SELECT * FROM People", "SELECT * FROM People ORDER BY City",
                             "SELECT * FROM People WHERE Name<>'x' ORDER BY Name DESC"}) {
    auto rows = Dynaset(source);
    auto elsewhere = NewEngine();
    elsewhere->OpenControlDatabase(Path("office.zdb"))->Execute("INSERT INTO People (Name, City) VALUES ('b', 'new')");
    EXPECT_THAT(Texts(rows, "City"), testing::Not(testing::Contains("new"))) << source;
    EXPECT_EQ(rows->RecordCount(), 2) << source;
    EXPECT_THAT(Texts(Dynaset(source), "City"), testing::Contains("new")) << source;
    elsewhere->OpenControlDatabase(Path("office.zdb"))->Execute("DELETE * FROM People WHERE Name='b'");
  }
}

// A list is not emptied by being looked at: a row counts until somebody comes to it.
TEST_F(HeldDynasets, RowsDeletedByOthersCountUntilTheyAreVisited) {
  AddPeople({"a", "b"});
  auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  auto elsewhere = NewEngine();
  elsewhere->OpenControlDatabase(Path("office.zdb"))->Execute("DELETE * FROM People");
  EXPECT_EQ(rows->Window().RowsAt(0, 9).size(), 2U);
  EXPECT_TRUE(rows->HasRows());
  EXPECT_EQ(rows->Field("Name"), "a") << "the row that was read stays readable";
  EXPECT_EQ(rows->RecordCount(), 2);
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof());
  EXPECT_EQ(rows->RecordCount(), 1);
  rows->MoveFirst();
  EXPECT_FALSE(rows->HasRows());
}

INSTANTIATE_TEST_SUITE_P(Strategies, Dynasets, testing::Values(20'000, 0),
                         [](const auto& rows) { return rows.param == 0 ? "Paged" : "Held"; });

}  // namespace
