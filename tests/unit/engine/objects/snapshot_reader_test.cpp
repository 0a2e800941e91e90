// Rows read once, of one state of their files.
#include "platform/data/row_stream.h"

#include <optional>

#include "unit/engine/support/office.h"

namespace {

using platform::RowStream;

class SnapshotReading : public OfficeTest {
 protected:
  SnapshotReading() : reader_(engine::MakeSnapshotReader(Options())) {}

  static engine::EngineOptions Options() {
    engine::EngineOptions options;
    options.lockWait = 150;
    return options;
  }
  std::unique_ptr<RowStream> Rows(const std::string& select) { return reader_->OpenRows(Path("office.zdb"), select); }
  /// The first column of all rows that are left.
  static std::vector<std::string> Rest(RowStream& rows) {
    std::vector<std::string> texts;
    while (rows.Next()) texts.push_back(TextOf(rows.Row().front()));
    return texts;
  }
  void Elsewhere(const std::string& file, const std::string& sql) {
    NewEngine()->OpenControlDatabase(Path(file))->Execute(sql, platform::dbFailOnError);
  }

  std::unique_ptr<platform::SnapshotReader> reader_;
};

TEST_F(SnapshotReading, GivesTheRowsInTheirOrder) {
  AddPeople({"Smith", "adams", "Zoe", "\u00c1dam"});
  EXPECT_THAT(Rest(*Rows("SELECT Name FROM People ORDER BY Name")), testing::ElementsAre("\u00c1dam", "adams", "Smith", "Zoe"));
  EXPECT_THAT(Rest(*Rows("SELECT Name FROM People ORDER BY Name DESC")), testing::ElementsAre("Zoe", "Smith", "adams", "\u00c1dam"));
  EXPECT_THAT(Rest(*Rows("SELECT Name FROM People WHERE Name > 'b' ORDER BY ID DESC")), testing::ElementsAre("Zoe", "Smith"));
  EXPECT_THAT(Rest(*Rows("People")), testing::ElementsAre("1", "2", "3", "4"));
}

// Equal keys stand in the order of their rows, in the direction of the last key.
TEST_F(SnapshotReading, EqualKeysHaveOneOrder) {
  AddPeople({"b", "a", "b", "a", "B"});
  EXPECT_THAT(Rest(*Rows("SELECT ID FROM People ORDER BY Name")), testing::ElementsAre("2", "4", "1", "3", "5"));
  EXPECT_THAT(Rest(*Rows("SELECT ID FROM People ORDER BY Name DESC")), testing::ElementsAre("5", "3", "1", "4", "2"));
  EXPECT_THAT(Rest(*Rows("SELECT ID FROM People ORDER BY City")), testing::ElementsAre("1", "2", "3", "4", "5"));
}

TEST_F(SnapshotReading, OrdersOfSeveralKeysAndOfJoins) {
  AddPeople({"b", "a", "b"});
  AddRows("Phones", {"ID", "Kind", "Number"}, {{1, "W", "20"}, {1, "H", "10"}, {3, "H", "05"}});
  EXPECT_THAT(Rest(*Rows("SELECT Phones.Number FROM People LEFT JOIN Phones ON Phones.ID = People.ID ORDER BY People.Name, Phones.Number")),
              testing::ElementsAre("Null", "05", "10", "20"));
  EXPECT_THAT(Rest(*Rows("SELECT ID FROM People ORDER BY Name, ID DESC")), testing::ElementsAre("2", "3", "1"));
  EXPECT_THAT(
      Rest(*Rows("SELECT Phones.Number FROM People INNER JOIN Phones ON Phones.ID = People.ID ORDER BY People.Name DESC, Phones.Kind")),
      testing::ElementsAre("10", "05", "20"));
  EXPECT_THAT(Rest(*Rows("SELECT DISTINCT Name FROM People ORDER BY Name")), testing::ElementsAre("a", "b"));
}

TEST_F(SnapshotReading, KeepsOneStateOfAllFiles) {
  AddPeople({"a", "b", "c"});
  office_files::AddRows(Path("ledger.zdb"), "Departments", {"DeptNumber", "DeptName"}, {{"1", "one"}, {"2", "two"}, {"3", "three"}});
  auto rows = Rows("SELECT d.DeptName FROM People LEFT JOIN '" + Path("ledger.zdb") +
                   "'.Departments AS d ON d.DeptNumber = Format(People.ID,'0') ORDER BY ID");
  ASSERT_TRUE(rows->Next());
  Elsewhere("ledger.zdb", "UPDATE Departments SET DeptName = 'changed'");
  Elsewhere("office.zdb", "DELETE FROM People WHERE ID = 3");
  EXPECT_EQ(rows->Count(), 3);
  EXPECT_THAT(Rest(*rows), testing::ElementsAre("two", "three"));
  rows.reset();
  EXPECT_THAT(Rest(*Rows("SELECT ID FROM People")), testing::ElementsAre("1", "2"));
}

// Who writes is not kept waiting by an open stream.
TEST_F(SnapshotReading, NobodyIsKeptFromWriting) {
  AddPeople({"a", "b"});
  auto rows = Rows("SELECT Name FROM People");
  ASSERT_TRUE(rows->Next());
  AddPerson("c", "", 1);
  AddPeople({"d"});
  EXPECT_EQ(db_->OpenRecordset("People")->RecordCount(), 4);
  EXPECT_THAT(Rest(*rows), testing::ElementsAre("b"));
}

TEST_F(SnapshotReading, TellsFieldsAndCounts) {
  AddPeople({"a", "b"});
  auto rows = Rows("SELECT Name, Balance FROM People WHERE ID > 1");
  ASSERT_EQ(rows->Fields().size(), 2u);
  EXPECT_EQ(rows->Fields()[1].name, "Balance");
  EXPECT_EQ(rows->Fields()[1].type, platform::FieldType::Currency);
  EXPECT_EQ(rows->Count(), 1);
  ASSERT_TRUE(rows->Next());
  EXPECT_FALSE(rows->Next());
  EXPECT_FALSE(rows->Next());
  EXPECT_EQ(Rows("SELECT Count(*) AS n FROM People")->Count(), 1);
}

TEST_F(SnapshotReading, AsksWhetherToGoOn) {
  AddPeople(std::vector<std::string>(30'000, "x"));
  int asked = 0;
  reader_->OnWait([&] {
    ++asked;
    return true;
  });
  EXPECT_EQ(Rest(*Rows("SELECT ID FROM People ORDER BY City, Age")).size(), 30'000u);
  EXPECT_GT(asked, 3);
  reader_->OnWait([&] { return false; });
  EXPECT_EQ(ErrorOf([&] { Rest(*Rows("SELECT ID FROM People ORDER BY City, Age")); }), platform::kReadingStopped);
  EXPECT_EQ(ErrorOf([&] { Rest(*Rows("SELECT ID FROM People WHERE City = 'nowhere'")); }), platform::kReadingStopped);
  reader_->OnWait({});
  EXPECT_EQ(Rest(*Rows("SELECT ID FROM People")).size(), 30'000u);
}

TEST_F(SnapshotReading, FindsTablesAndLinks) {
  platform::TableDef link = db_->CreateTableDef("Depts");
  link.Connect = ";DATABASE=" + Path("ledger.zdb");
  link.SourceTableName = "Departments";
  db_->AppendTableDef(link);
  EXPECT_EQ(reader_->FindTable(Path("office.zdb"), "people")->name, "People");
  EXPECT_EQ(reader_->FindTable(Path("office.zdb"), "Depts")->fields.size(), 3u);
  EXPECT_FALSE(reader_->FindTable(Path("office.zdb"), "Nothing"));
  EXPECT_EQ(ErrorOf([&] { reader_->FindTable(Path("nothing.zdb"), "People"); }), 3024);
}

TEST_F(SnapshotReading, RaisesTheEnginesErrors) {
  EXPECT_EQ(ErrorOf([&] { Rows("SELECT Nothing FROM People"); }), 3061);
  EXPECT_EQ(ErrorOf([&] { Rows("SELECT * FROM Nothing"); }), 3078);
  EXPECT_EQ(ErrorOf([&] { Rows("DELETE FROM People"); }), 3219);
  EXPECT_EQ(ErrorOf([&] { Rows("SELECT Name FROM People ORDER BY Note"); }), 3117);
  AddPeople({"a"});
  EXPECT_THAT(Rest(*Rows("SELECT Name FROM People")), testing::ElementsAre("a"));
}

}  // namespace
