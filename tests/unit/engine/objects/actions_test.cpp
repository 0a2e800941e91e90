// Action statements, on whatever store the office lies.
#include "unit/engine/support/office.h"

namespace {

using testing::AnyOf;
using testing::ElementsAre;

class Actions : public OfficeTest {};

TEST_F(Actions, ExecuteCountsRows) {
  db_->Execute("INSERT INTO People (Name, Age) VALUES ('a', 1)");
  EXPECT_EQ(db_->RecordsAffected(), 1);
  db_->Execute("INSERT INTO People (Name, Age) VALUES ('b', 1)");
  db_->Execute("UPDATE People SET Age = 2 WHERE Age = 1");
  EXPECT_EQ(db_->RecordsAffected(), 2);
  db_->Execute("DELETE * FROM People WHERE Name = 'A'");
  EXPECT_EQ(db_->RecordsAffected(), 1);
  EXPECT_EQ(ErrorOf([&] { db_->Execute("SELECT * FROM People"); }), 3065);
  EXPECT_EQ(db_->RecordsAffected(), 0);
}

TEST_F(Actions, RowsThatBreakAKeyAreLeftOut) {
  AddPeople({"A", "B", "a", "C"});
  db_->Execute("INSERT INTO Kinds (Kind) VALUES ('b')");
  db_->Execute("INSERT INTO Kinds ( Kind, Title ) SELECT Name AS Kind, Name AS Title FROM People");
  EXPECT_EQ(db_->RecordsAffected(), 2);
  EXPECT_THAT(Texts(Dynaset("SELECT * FROM Kinds ORDER BY Kind"), "Kind"), ElementsAre("A", "b", "C"));
}

TEST_F(Actions, FailOnErrorLeavesNothing) {
  AddPeople({"A", "B", "a", "C"});
  EXPECT_EQ(ErrorOf([&] { db_->Execute("INSERT INTO Kinds ( Kind ) SELECT Name AS Kind FROM People", platform::dbFailOnError); }), 3022);
  EXPECT_EQ(Table("Kinds")->RecordCount(), 0);
  AddPerson("", "x", 1);
  db_->Execute("UPDATE People SET Name = Null WHERE City = 'x'");
  EXPECT_EQ(
      ErrorOf([&] { db_->Execute("INSERT INTO Kinds ( Kind ) SELECT Name AS Kind FROM People WHERE City='x'", platform::dbFailOnError); }),
      3058);
}

TEST_F(Actions, ValuesThatDoNotFitBecomeNull) {
  AddPeople({"A", "BB"});
  db_->Execute("INSERT INTO Phones ( ID, Kind ) SELECT Name AS ID, Name AS Kind FROM People");
  EXPECT_EQ(db_->RecordsAffected(), 2);
  auto rows = Table("Phones");
  EXPECT_TRUE(rows->Field("ID").IsNull());
  EXPECT_EQ(rows->Field("Kind"), "A");
  rows->MoveNext();
  EXPECT_TRUE(rows->Field("Kind").IsNull());
  EXPECT_EQ(ErrorOf([&] { db_->Execute("INSERT INTO Phones ( Kind ) SELECT Name AS Kind FROM People", platform::dbFailOnError); }), 3163);
  EXPECT_EQ(Table("Phones")->RecordCount(), 2);
}

TEST_F(Actions, ANumberOutOfItsRangeFailsAsSuch) {
  const auto execute = [&](const char* sql) { return ErrorOf([&] { db_->Execute(sql, platform::dbFailOnError); }); };
  EXPECT_EQ(execute("INSERT INTO People (Name, Age) VALUES ('a', 40000)"), 3349);
  EXPECT_EQ(execute("INSERT INTO People (Name, Age) VALUES ('a', '40000')"), 3349);
  EXPECT_EQ(execute("INSERT INTO People (Name, Balance) VALUES ('a', 1e20)"), 3349);
  EXPECT_EQ(execute("INSERT INTO People (Name, Age) VALUES ('a', 'forty')"), 3421);
  EXPECT_EQ(execute("INSERT INTO People (Name, Age) VALUES ('a', '')"), 3421);
  EXPECT_EQ(execute("INSERT INTO People (Name, Born) VALUES ('a', 'never')"), 3421);
  EXPECT_EQ(Table("People")->RecordCount(), 0);
  EXPECT_EQ(execute("INSERT INTO People (Name, Age) VALUES ('a', 30000)"), 0);
  EXPECT_EQ(execute("UPDATE People SET Age = Age + 10000"), 3349);
  EXPECT_EQ(Table("People")->Field("Age"), std::int16_t{30000});
}

TEST_F(Actions, StatementsAskTheProgramsClock) {
  engine::EngineOptions options;
  platform::Date now{45292.75};  // 1 January 2024, six in the evening
  options.now = [&] { return now; };
  const auto engine = office_files::NewEngine(options);
  const auto database = engine->OpenControlDatabase(Path("office.zdb"));
  AddPeople({"a"});
  const auto first = [&](const std::string& expression) {
    return database->OpenRecordset("SELECT " + expression + " FROM People")->Field(0);
  };
  EXPECT_EQ(first("Date()"), (platform::Date{45292}));
  EXPECT_EQ(first("Now()"), now);
  EXPECT_EQ(first("Time()"), (platform::Date{0.75}));
  EXPECT_EQ(first("Date() & ''"), "1/1/2024");
  database->Execute("UPDATE People SET Born = Date()");
  EXPECT_EQ(database->OpenRecordset("SELECT * FROM People WHERE Born = Date()")->RecordCount(), 1);
  now.serial += 1;
  EXPECT_EQ(database->OpenRecordset("SELECT * FROM People WHERE Born = Date()")->RecordCount(), 0);
  EXPECT_EQ(database->OpenRecordset("SELECT * FROM People WHERE Born = Date() - 1")->RecordCount(), 1);
  EXPECT_EQ(ErrorOf([&] { first("Date(1)"); }), 3075);
}

TEST_F(Actions, InsertIntoAnotherFile) {
  AddPeople({"001"});
  db_->Execute("INSERT INTO Departments ( DeptNumber, DeptName ) IN '" + Path("ledger.zdb") +
               "' SELECT Name AS DeptNumber, 'x' AS DeptName FROM People;");
  EXPECT_EQ(db_->RecordsAffected(), 1);
  EXPECT_EQ(engine_->OpenControlDatabase(Path("ledger.zdb"))->OpenRecordset("Departments")->Field("DeptNumber"), "001");
  EXPECT_EQ(ErrorOf([&] {
              db_->Execute("INSERT INTO Departments ( DeptNumber ) IN '" + Path("none.zdb") + "' SELECT Name AS DeptNumber FROM People;");
            }),
            3024);
}

TEST_F(Actions, ExplicitCountersLiftTheNext) {
  db_->Execute("INSERT INTO People (ID, Name) VALUES (50, 'a')");
  db_->Execute("INSERT INTO People (Name) VALUES ('b')");
  EXPECT_THAT(Texts(Dynaset("People"), "ID"), ElementsAre("50", "51"));
  db_->Execute("DELETE * FROM People");
  auto rows = Table("People");
  rows->AddNew();
  EXPECT_EQ(rows->Field("ID"), 52);
}

TEST_F(Actions, AStatementThatFailsLeavesTheEngineUsable) {
  EXPECT_EQ(ErrorOf([&] { db_->Execute("INSERT INTO Nobody (Name) VALUES ('a')"); }), 3078);
  EXPECT_EQ(ErrorOf([&] { db_->Execute("nonsense"); }), 3129);
  db_->Execute("INSERT INTO People (Name) VALUES ('a')");
  EXPECT_EQ(Table("People")->RecordCount(), 1);
}

// ---- rows that are left out, and those that are not

TEST_F(Actions, AListThatAsksTheClockIsLookedForEachTime) {
  AddPeople({"a"});
  for (const int exactRows : {0, 20'000}) {
    engine::EngineOptions options;
    platform::Date now{45292};
    options.now = [&] { return now; };
    options.exactRows = exactRows;
    const auto engine = office_files::NewEngine(options);
    const auto database = engine->OpenControlDatabase(Path("office.zdb"));
    database->Execute("UPDATE People SET Born = Date()");
    constexpr const char* kBornToday = "SELECT * FROM People WHERE Born = Date()";
    const auto today = database->OpenRecordset(kBornToday);
    EXPECT_EQ(today->RecordCount(), 1);
    now.serial += 1;
    EXPECT_EQ(database->OpenRecordset(kBornToday)->RecordCount(), 0) << exactRows;
  }
}

TEST_F(Actions, RowsWithoutAKeyAreLeftOut) {
  AddPeople({"A", "B", "C"});
  db_->Execute("UPDATE People SET Name = Null WHERE ID = 2");
  db_->Execute("INSERT INTO Kinds ( Kind, Title ) SELECT Name AS Kind, 'x' AS Title FROM People");
  EXPECT_EQ(db_->RecordsAffected(), 2);
  EXPECT_THAT(Texts(Dynaset("SELECT * FROM Kinds ORDER BY Kind"), "Kind"), ElementsAre("A", "C"));
}

TEST_F(Actions, OfRowsWithOneKeyTheFirstStays) {
  AddPeople({"a", "B", "A", "b", "c"});
  db_->Execute("INSERT INTO Kinds ( Kind ) SELECT Name AS Kind FROM People");
  EXPECT_EQ(db_->RecordsAffected(), 3);
  EXPECT_THAT(Texts(Dynaset("SELECT * FROM Kinds ORDER BY Kind"), "Kind"), ElementsAre("a", "B", "c"));
  db_->Execute("DELETE * FROM Kinds");
  db_->Execute("INSERT INTO Kinds ( Kind ) SELECT Name AS Kind FROM People ORDER BY ID DESC");
  EXPECT_THAT(Texts(Dynaset("SELECT * FROM Kinds ORDER BY Kind"), "Kind"), ElementsAre("A", "b", "c"));
}

TEST_F(Actions, AnUpdateLeavesOutRowsThatMeetAnothersKey) {
  AddRows("Rates", {"ID", "Dept", "Adjustment"},
          {{platform::Value(1), platform::Value("1"), platform::Value(1.0)},
           {platform::Value(2), platform::Value("1"), platform::Value(2.0)},
           {platform::Value(4), platform::Value("1"), platform::Value(4.0)}});
  // Each row meets the next one's key, which hasn't moved yet; the last ones can move.
  db_->Execute("UPDATE Rates SET ID = ID + 1");
  EXPECT_EQ(db_->RecordsAffected(), 2);
  EXPECT_THAT(Texts(Dynaset("SELECT * FROM Rates ORDER BY ID"), "ID"), ElementsAre("1", "3", "5"));
  EXPECT_EQ(ErrorOf([&] { db_->Execute("UPDATE Rates SET ID = 3", platform::dbFailOnError); }), 3022);
  EXPECT_THAT(Texts(Dynaset("SELECT * FROM Rates ORDER BY ID"), "ID"), ElementsAre("1", "3", "5"));
  db_->Execute("UPDATE Rates SET Dept = Null");
  EXPECT_EQ(db_->RecordsAffected(), 0);
  db_->Execute("UPDATE Rates SET ID = 9");
  EXPECT_EQ(db_->RecordsAffected(), 1);
}

TEST_F(Actions, AFailureInAConditionChangesNothing) {
  AddPeople({"a", "b"});
  EXPECT_EQ(ErrorOf([&] { db_->Execute("DELETE * FROM People WHERE CLng(Name) > 1"); }), 13);
  EXPECT_EQ(ErrorOf([&] { db_->Execute("UPDATE People SET Age = 1 WHERE 1/(ID-2) > 5"); }), 11);
  EXPECT_EQ(Table("People")->RecordCount(), 2);
}

// ---- what is one text

TEST_F(Actions, DistinctShowsTheFirstOfEqualTexts) {
  AddPeople({"b", "A", "B", "a ", "c"});
  EXPECT_THAT(Texts(Dynaset("SELECT DISTINCT Name FROM People ORDER BY Name"), "Name"), ElementsAre("A", "b", "c"));
  // Which of equal texts is shown in a falling order is the store's matter.
  EXPECT_THAT(Texts(Dynaset("SELECT DISTINCT Name FROM People ORDER BY Name DESC"), "Name"),
              ElementsAre("c", AnyOf("b", "B"), AnyOf("A", "a ")));
  EXPECT_THAT(Texts(Dynaset("SELECT DISTINCT Name & '' AS N FROM People ORDER BY Name & ''"), "N"), ElementsAre("A", "b", "c"));
  EXPECT_THAT(Texts(Dynaset("SELECT DISTINCT 5 AS F, UCase(Name) AS N FROM People WHERE Name < 'c' ORDER BY UCase(Name)"), "N"),
              ElementsAre("A", "B"));
  db_->Execute("INSERT INTO Kinds ( Kind, Title ) SELECT DISTINCT Name AS Kind, 'x' AS Title FROM People WHERE ID <> 4");
  EXPECT_EQ(db_->RecordsAffected(), 3);
}

TEST_F(Actions, HighestAndLowestTextsAreShownAsTheyAre) {
  AddPeople({"b", "A", "\xC3\xA9", "e", "c"});
  EXPECT_THAT(Texts(Dynaset("SELECT Max(Name) AS M, Min(Name) AS L FROM People"), "M"), ElementsAre("\xC3\xA9"));
  EXPECT_THAT(Texts(Dynaset("SELECT Max(Name) AS M, Min(Name) AS L FROM People"), "L"), ElementsAre("A"));
  auto rows = Dynaset("SELECT Max(Name) AS M FROM People");
  rows->FindFirst("M = '\xC3\x89'");
  EXPECT_FALSE(rows->NoMatch());
}

TEST_F(Actions, APatternMayComeFromAField) {
  AddPerson("abc", "A*", 1);
  AddPerson("abc", "b*", 1);
  AddPerson("b1", "[b-c]#", 1);
  EXPECT_THAT(Texts(Dynaset("SELECT * FROM People WHERE Name Like City ORDER BY ID"), "ID"), ElementsAre("1", "3"));
  db_->Execute("UPDATE People SET City = '[' WHERE ID = 2");
  EXPECT_EQ(ErrorOf([&] { Dynaset("SELECT * FROM People WHERE Name Like City")->MoveLast(); }), 93);
}

}  // namespace
