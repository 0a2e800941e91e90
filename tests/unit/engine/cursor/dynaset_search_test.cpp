// Searching in dynasets, with all keys held and with pages of an index.
#include "unit/engine/support/office.h"

namespace {

using platform::RecordsetRef;
using platform::RecordsetType;
using platform::Value;
using testing::ElementsAre;
using testing::IsEmpty;

class Searches : public DynasetRules {};

TEST_P(Searches, FindFirstAndNextOnTheOrderColumn) {
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

TEST_P(Searches, FindDownwards) {
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

TEST_P(Searches, FindByTheRowKey) {
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

TEST_P(Searches, FindByTheRowKeyRespectsTheFilter) {
  AddPerson("a", "x", 1);
  AddPerson("b", "y", 1);
  auto rows = Dynaset("SELECT * FROM People WHERE City = 'x' ORDER BY Name");
  rows->FindFirst("[ID]=2");
  EXPECT_TRUE(rows->NoMatch());
  rows->FindFirst("[ID]=1");
  EXPECT_FALSE(rows->NoMatch());
}

TEST_P(Searches, FindOnOtherColumns) {
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

// The list stands in the order of its row keys; the names have an index of their own, in the text order whatever the case.
TEST_P(Searches, FindByAnotherIndexThanTheLists) {
  AddPeople({"Smith", "Jones", "smile", "Zoe", "SMITH", "\xC5\x9Amigly"});
  for (const char* order : {"", " ORDER BY ID DESC"}) {
    auto rows = Dynaset(std::string("SELECT * FROM People") + order);
    std::vector<int> found;
    for (rows->FindFirst("[Name] Like 'smi*'"); !rows->NoMatch(); rows->FindNext("[Name] Like 'smi*'"))
      found.push_back(rows->Field("ID").As<std::int32_t>());
    std::ranges::sort(found);
    EXPECT_THAT(found, ElementsAre(1, 3, 5)) << order;
    rows->FindFirst("[Name] = 'smith'");
    EXPECT_FALSE(rows->NoMatch());
  }
}

// Beyond the rows that are looked at one by one, all hits come from one pass.
TEST_P(Searches, FindRareRowsFarAway) {
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

TEST_P(Searches, FindInAnEmptyList) {
  auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  rows->FindFirst("[ID]=1");
  EXPECT_TRUE(rows->NoMatch());
  rows->FindNext("[Name] Like 'a*'");
  EXPECT_TRUE(rows->NoMatch());
}

TEST_P(Searches, FindThatRaisesLeavesEverything) {
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

TEST_P(Searches, FindNextFromTheEnds) {
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

TEST_P(Searches, FindSeesChangedRows) {
  AddPeople({"a", "b", "c"});
  auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  rows->FindFirst("[City]='here'");
  EXPECT_TRUE(rows->NoMatch());
  auto elsewhere = NewEngine();
  elsewhere->OpenControlDatabase(Path("office.zdb"))->Execute("UPDATE People SET City='here' WHERE Name='b'");
  rows->FindFirst("[City]='here'");
  EXPECT_EQ(rows->Field("Name"), "b");
}

// Nothing stands before the first row, or behind the last: that is no place from which the list would begin anew.
TEST_P(Searches, WhatIsFoundAtAnEndIsThatEnd) {
  AddPeople({"a", "b", "c"});
  for (const std::string statement : {"SELECT * FROM People ORDER BY Name", "SELECT * FROM People ORDER BY Name DESC", "SELECT * FROM People WHERE ID > 0 ORDER BY Name"}) {
    SCOPED_TRACE(statement);
    const bool down = statement.ends_with("DESC");
    auto rows = Dynaset(statement);
    rows->Edit();
    rows->SetField("Age", Value(std::int16_t{7}));
    rows->Update();  // what was read before is worth nothing now
    rows->FindFirst(down ? "[ID]=3" : "[ID]=1");
    rows->MovePrevious();
    EXPECT_TRUE(rows->Bof());
    EXPECT_FALSE(rows->Eof());
    EXPECT_TRUE(rows->HasRows());
    rows->MoveFirst();
    EXPECT_EQ(rows->Field("Name"), down ? "c" : "a");
    rows->FindFirst(down ? "[ID]=1" : "[ID]=3");
    EXPECT_THAT(rows->Window().RowsAfter(rows->Bookmark(), 5), IsEmpty());
    rows->MoveNext();
    EXPECT_TRUE(rows->Eof());
    rows->MoveLast();
    EXPECT_EQ(rows->Field("Name"), down ? "a" : "c");
    EXPECT_EQ(rows->RecordCount(), 3);
  }
}

INSTANTIATE_TEST_SUITE_P(Strategies, Searches, testing::Values(20'000, 0),
                         [](const auto& rows) { return rows.param == 0 ? "Paged" : "Held"; });

// The filter and the search hold the same column: what is found is in both.
TEST_P(Searches, FindWithinWhatTheFilterTakesOfTheSameColumn) {
  AddPeople({"Smith", "Jones", "Smart", "Smit", "Zoe", "SMITH", "Adam"});
  for (const bool down : {false, true}) {
    auto rows = Dynaset(std::string("SELECT * FROM People WHERE Name Like 'Smi*' ORDER BY Name") + (down ? " DESC" : ""));
    const auto allThat = [&](const std::string& criterion) {
      std::vector<int> found;
      for (rows->FindFirst(criterion); !rows->NoMatch(); rows->FindNext(criterion)) found.push_back(rows->Field("ID").As<std::int32_t>());
      if (down) std::ranges::reverse(found);
      return found;
    };
    EXPECT_THAT(allThat("[Name] Like 'S*'"), ElementsAre(4, 1, 6));
    EXPECT_THAT(allThat("[Name] Like 'smith*'"), ElementsAre(1, 6));
    EXPECT_THAT(allThat("[Name] Like 'Sma*'"), IsEmpty());
    EXPECT_THAT(allThat("[Name] Like 'A*'"), IsEmpty());
    EXPECT_THAT(allThat("[Name] Like 'Z*'"), IsEmpty());
    EXPECT_THAT(allThat("[Name] = 'Jones'"), IsEmpty());
  }
}

// A row of the list that was changed here stays in it, and is found by what it is now.
TEST_P(Searches, FindAnOwnRowThatTheFilterWouldNotTakeAnyMore) {
  AddPeople({"Smith", "Smit", "Zoe"});
  auto rows = Dynaset("SELECT * FROM People WHERE Name Like 'Smi*' ORDER BY Name");
  rows->FindFirst("[ID] = 2");
  rows->Edit();
  rows->SetField("Name", Value("Adam"));
  rows->Update();
  rows->FindFirst("[Name] Like 'A*'");
  EXPECT_FALSE(rows->NoMatch());
  EXPECT_EQ(rows->Field("ID"), 2);
  rows->FindFirst("[Name] Like 'Z*'");
  EXPECT_TRUE(rows->NoMatch());
}

}  // namespace
