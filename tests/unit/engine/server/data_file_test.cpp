// What tools do with a file of a server: made, filled, compared, linked, dropped; the same calls as for files.
#include "engine/data_file.h"

#include "engine/engine.h"
#include "platform/data/data.h"
#include "support/temporary_folder.h"
#include "unit/engine/server/server_test.h"

namespace {

using engine::BulkWriter;
using engine::FileLink;
using platform::FieldType;
using platform::Null;
using platform::TableDefinition;
using platform::Value;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<TableDefinition> Tables() {
  return {{"People",
           {Field("ID", FieldType::Counter), TextField("Name", 10), Field("Flag", FieldType::Boolean), Field("Paid", FieldType::Currency),
            Field("Rate", FieldType::Double), Field("Born", FieldType::Date), Field("Note", FieldType::Memo), Field("Kind", FieldType::Byte, Value(std::uint8_t{3}))},
           {{"PrimaryKey", {"ID"}, true, true}, {"ByName", {"Name"}, false, false}}},
          {"Codes", {TextField("Code", 2)}, {{"PrimaryKey", {"Code"}, true, true}}}};
}
const std::vector<std::string> kNames{"Name"};
const std::vector<std::string> kNumbered{"ID", "Name"};

class DataFiles : public ServerTest {
 protected:
  DataFiles() { engine::CreateDataFile(File(), Tables()); }
  std::string File() const { return Path("customer.zdb"); }
  static void Add(BulkWriter& writer, const std::vector<Value>& row) { writer.Add(row); }
  std::string People(const std::string& what = "count(*)") const { return Other("SELECT " + what + " FROM orv1_customer.\"People\""); }
};

TEST_F(DataFiles, AreThereOrNot) {
  EXPECT_TRUE(engine::DataFileExists(File()));
  EXPECT_FALSE(engine::DataFileExists(Path("GL.zdb")));
  EXPECT_EQ(ErrorOf([&] { engine::CreateDataFile(File(), Tables()); }), 3204);
  engine::RemoveDataFile(File());
  EXPECT_FALSE(engine::DataFileExists(File()));
}

TEST_F(DataFiles, TakeRowsOfEveryKind) {
  const std::vector<std::string> fields{"ID", "Name", "Flag", "Paid", "Rate", "Born", "Note"};
  const auto writer = engine::OpenBulkWriter(File(), "people", fields);
  const std::string hard = "tab\tback\\slash\r\nline \xC3\xA9";
  Add(*writer, {Value(std::int32_t{7}), Value("Ann"), Value(true), Value(platform::Currency{-12'345}), Value(0.1), Value(platform::Date{36'191}), Value(hard)});
  Add(*writer, {Value(std::int32_t{9}), Value(Null), Value(false), Value(Null), Value(-1e300), Value(Null), Value("\\N")});
  writer->Finish();
  engine::postgres::PostgresStore store(Short());
  const auto file = store.Open(File(), File());
  engine::Query rows(store, R"(SELECT "ID", "Name", "Flag", "Paid", "Rate", "Born", "Note", "Kind" FROM "orv1_customer"."People" ORDER BY 1)");
  ASSERT_TRUE(rows.Step());
  EXPECT_EQ(rows.Int(2), -1);
  EXPECT_EQ(rows.Int(3), -12'345);
  EXPECT_EQ(rows.Read(4, FieldType::Double).As<double>(), 0.1);
  EXPECT_EQ(rows.Read(5, FieldType::Date).As<platform::Date>().serial, 36'191);
  EXPECT_EQ(rows.Text(6), hard);
  EXPECT_EQ(rows.Int(7), 3);
  ASSERT_TRUE(rows.Step());
  EXPECT_TRUE(rows.IsNull(1));
  EXPECT_EQ(rows.Read(4, FieldType::Double).As<double>(), -1e300);
  EXPECT_EQ(rows.Text(6), "\\N");
  EXPECT_FALSE(rows.Step());
}

TEST_F(DataFiles, KeepTheirIndexesAndNumbersBehindRows) {
  {
    const auto writer = engine::OpenBulkWriter(File(), "People", kNumbered);
    Add(*writer, {Value(std::int32_t{41}), Value("Ann")});
    writer->Finish();
  }
  EXPECT_THAT(engine::CheckDataFile(File(), Tables()), IsEmpty());
  EXPECT_EQ(engine::LastNumberOf(File(), "People"), 41);
  const auto writer = engine::OpenBulkWriter(File(), "People", kNames);
  Add(*writer, {Value("Bob")});
  writer->Finish();
  EXPECT_EQ(People("max(\"ID\")"), "42\n");
}

TEST_F(DataFiles, KeepNothingOfAWriterThatIsGivenUpOrFails) {
  {
    const auto writer = engine::OpenBulkWriter(File(), "People", kNames);
    Add(*writer, {Value("Ann")});
  }
  EXPECT_EQ(People(), "0\n");
  const std::vector<std::string> code{"Code"};
  {
    const auto writer = engine::OpenBulkWriter(File(), "Codes", code);
    Add(*writer, {Value("aa")});
    Add(*writer, {Value("AA")});
    EXPECT_EQ(ErrorOf([&] { writer->Finish(); }), 3022);
  }
  EXPECT_THAT(engine::CheckDataFile(File(), Tables()), IsEmpty());
  EXPECT_EQ(ErrorOf([&] { Add(*engine::OpenBulkWriter(File(), "Codes", code), {Value("long")}); }), 3163);
}

TEST_F(DataFiles, AreSeenWhenTheyAreWhole) {
  const std::string path = Path("GL.zdb");
  {
    const auto made = engine::MakeDataFile(path, Tables());
    const auto writer = made->Fill("People", kNumbered);
    Add(*writer, {Value(std::int32_t{3}), Value("Ann")});
    writer->Finish();
    EXPECT_FALSE(engine::DataFileExists(path));
  }
  EXPECT_FALSE(engine::DataFileExists(path));
  const auto made = engine::MakeDataFile(path, Tables());
  const auto writer = made->Fill("People", kNumbered);
  Add(*writer, {Value(std::int32_t{3}), Value("Ann")});
  writer->Finish();
  made->RaiseNumber("People", 90);
  made->Finish();
  EXPECT_THAT(engine::CheckDataFile(path, Tables()), IsEmpty());
  EXPECT_EQ(engine::LastNumberOf(path, "People"), 90);
  EXPECT_EQ(engine::LastNumberOf(path, "Codes"), 0);
  EXPECT_EQ(Other("SELECT \"Name\" FROM orv1_gl.\"People\""), "Ann\n");
  EXPECT_EQ(ErrorOf([&] { engine::MakeDataFile(path, Tables()); }), 3204);
}

TEST_F(DataFiles, BesideThemFilesAreMadeTheSameWay) {
  const TemporaryFolder folder;
  const std::string path = folder / "x.zdb";
  const auto made = engine::MakeDataFile(path, Tables());
  const auto writer = made->Fill("People", kNumbered);
  Add(*writer, {Value(std::int32_t{3}), Value("Ann")});
  writer->Finish();
  EXPECT_FALSE(engine::DataFileExists(path));
  made->RaiseNumber("people", 90);
  made->Finish();
  EXPECT_THAT(engine::CheckDataFile(path, Tables()), IsEmpty());
  EXPECT_EQ(engine::LastNumberOf(path, "People"), 90);
  EXPECT_EQ(engine::LastNumberOf(path, "Codes"), 0);
  EXPECT_EQ(ErrorOf([&] { engine::MakeDataFile(path, Tables()); }), 3204);
}

TEST_F(DataFiles, TellWhatIsWrongWithThem) {
  Other("DROP INDEX orv1_customer.\"People.ByName\"");
  Other("ALTER TABLE orv1_customer.\"Codes\" ADD more integer");
  Other("DROP TABLE orv1_customer.\"Codes\"");
  EXPECT_THAT(engine::CheckDataFile(File(), Tables()), ElementsAre("Table People has no index ByName.", "Table Codes is missing."));
  EXPECT_THAT(engine::CheckDataFile(Path("GL.zdb"), Tables()), ElementsAre(HasSubstr("Couldn't find file")));
}

TEST_F(DataFiles, HaveLinksThatCanBePointedElsewhere) {
  engine::CreateDataFile(Path("GL.zdb"), Tables());
  Other("INSERT INTO orv1_customer.\"~links\" (name, path, source) VALUES ('Departments', '{folder}/old.zdb', 'Departments')");
  ASSERT_EQ(engine::LinksOf(File()).size(), 1U);
  EXPECT_EQ(engine::LinksOf(File())[0].path, Path("old.zdb"));
  const std::vector<FileLink> links{{"departments", Path("GL.zdb"), "Codes"}};
  engine::PointLinks(File(), links);
  EXPECT_EQ(Other("SELECT path || ' ' || source FROM orv1_customer.\"~links\""), "{folder}/GL.zdb Codes\n");
}

TEST_F(DataFiles, LoseTablesAndLinks) {
  Other("INSERT INTO orv1_customer.\"~links\" (name, path, source) VALUES ('Departments', '{folder}/old.zdb', 'Departments')");
  engine::DropTable(File(), "departments");
  engine::DropTable(File(), "codes");
  EXPECT_THAT(engine::LinksOf(File()), IsEmpty());
  EXPECT_EQ(ErrorOf([&] { engine::DropTable(File(), "Codes"); }), 3011);
  EXPECT_THAT(engine::CheckDataFile(File(), Tables()), ElementsAre("Table Codes is missing."));
}

TEST_F(DataFiles, AreNamedToTheServersOwnTools) {
  EXPECT_THAT(engine::ServerToolWords("postgresql://one:5433,it's/suite/orv1/Customer.zdb"),
              ElementsAre("--dbname=host='one,it\\'s' port='5433,' dbname='suite'", "--schema=\"orv1_customer\""));
}

// ---- whole files locked

TEST_F(DataFiles, CanBeLockedWholeByWhoWrites) {
  engine::EngineOptions whole;
  whole.lockWholeFiles = true;
  const auto holder = engine::MakeEngine(whole);
  const auto desk = holder->CreateWorkspace("Other", "Admin", "", 2);
  const auto held = desk->OpenDatabase(File());
  desk->BeginTrans();
  held->Execute("INSERT INTO Codes ( Code ) VALUES ('aa')", platform::dbFailOnError);

  engine::EngineOptions quick;
  quick.lockWait = 150;
  const auto mine = engine::MakeEngine(quick);
  const auto database = mine->WorkspaceAt(0)->OpenDatabase(File());
  const std::string add = "INSERT INTO People ( Name ) VALUES ('Ann')";
  EXPECT_EQ(ErrorOf([&] { database->Execute(add, platform::dbFailOnError); }), 3218);
  EXPECT_TRUE(database->OpenRecordset("SELECT * FROM Codes")->Eof());
  desk->CommitTrans();
  database->Execute(add, platform::dbFailOnError);
  EXPECT_EQ(People(), "1\n");
  EXPECT_FALSE(database->OpenRecordset("SELECT * FROM Codes")->Eof());
}

// ---- a schema of an older version

TableDefinition OldPeople() {
  return {"People", {Field("ID", FieldType::Counter), TextField("Name", 10), TextField("City", 10)}, {{"PrimaryKey", {"ID"}, true, true}}};
}
std::vector<TableDefinition> NewTables() {
  TableDefinition table = OldPeople();
  table.fields.push_back(TextField("Nick", 10));
  table.fields.push_back(Field("Visits", FieldType::Long, Value(std::int32_t{7})));
  table.indexes.push_back({"ByNick", {"Nick"}, false, false});
  table.indexes.push_back({"ByCity", {"City", "Name"}, false, false});
  return {table, {"Codes", {TextField("Code", 2)}, {{"PrimaryKey", {"Code"}, true, true}}}};
}

class UpgradedSchemas : public ServerTest {
 protected:
  UpgradedSchemas() {
    engine::CreateDataFile(File(), old_);
    Other(R"(INSERT INTO orv1_customer."People" ("Name", "City") VALUES ('Reed', 'Ely'), ('Hale', 'duluth'), ('Zoe', 'Ely'))");
    Other(R"(DELETE FROM orv1_customer."People" WHERE "Name" = 'Zoe')");
  }
  std::string File() const { return Path("customer.zdb"); }
  std::string Copy() const { return Path("customer_before.zdb"); }
  std::vector<std::string> Upgrade(const std::vector<TableDefinition>& expected) const {
    return engine::UpgradeDataFile(File(), expected, Copy(), {});
  }

  const std::vector<TableDefinition> old_{OldPeople()};
};

TEST_F(UpgradedSchemas, GetWhatIsLackingAndKeepWhatIsThere) {
  EXPECT_THAT(Upgrade(NewTables()),
              ElementsAre("Table People has got the field Nick.", "Table People has got the field Visits.",
                          "Table People has got the index ByNick.", "Table People has got the index ByCity.", "Table Codes was made."));
  EXPECT_THAT(engine::CheckDataFile(File(), NewTables()), IsEmpty());
  EXPECT_EQ(Other(R"(SELECT "Name", "Nick", "Visits" FROM orv1_customer."People" ORDER BY "ID")"), "Reed||7\nHale||7\n");
  const auto made = engine::MakeEngine();
  const auto rows = made->WorkspaceAt(0)->OpenDatabase(File())->OpenRecordset("SELECT Name FROM People WHERE City > 'a' ORDER BY City");
  EXPECT_EQ(rows->Field(0), Value("Hale")) << "the new index has the text order";
}

TEST_F(UpgradedSchemas, AreKeptAsTheyWere) {
  Other(R"(INSERT INTO orv1_customer."~links" (name, path, source) VALUES ('Departments', 'GL.zdb', 'Departments'))");
  Upgrade(NewTables());
  EXPECT_THAT(engine::CheckDataFile(Copy(), old_), IsEmpty());
  EXPECT_EQ(Other(R"(SELECT "ID", "Name", "City" FROM orv1_customer_before."People" ORDER BY 1)"), "1|Reed|Ely\n2|Hale|duluth\n");
  EXPECT_EQ(engine::LastNumberOf(Copy(), "People"), 3);
  EXPECT_EQ(engine::LinksOf(Copy()).size(), 1U);
}

TEST_F(UpgradedSchemas, ASecondTimeThereIsNothingToDo) {
  Upgrade(NewTables());
  EXPECT_THAT(engine::UpgradeDataFile(File(), NewTables(), Path("second.zdb"), {}), IsEmpty());
  EXPECT_FALSE(engine::DataFileExists(Path("second.zdb")));
}

TEST_F(UpgradedSchemas, WhatCannotBeAddedLeavesAllAsItWas) {
  auto key = NewTables();
  key[0].fields.push_back(TextField("Code", 3));
  key[0].indexes[0].fields.push_back("Code");
  EXPECT_EQ(ErrorOf([&] { Upgrade(key); }), 3057);
  auto unique = NewTables();
  unique[0].indexes.push_back({"OneVisit", {"Visits"}, true, false});
  EXPECT_EQ(ErrorOf([&] { Upgrade(unique); }), 3022);
  EXPECT_EQ(ErrorOf([&] { engine::UpgradeDataFile(File(), NewTables(), File(), {}); }), 3204);
  EXPECT_FALSE(engine::DataFileExists(Copy()));
  EXPECT_THAT(engine::CheckDataFile(File(), old_), IsEmpty());
}

// An open list doesn't stand in the way and goes on; who is in the midst of a transaction does.
TEST_F(UpgradedSchemas, WaitForTransactionsAlone) {
  engine::EngineOptions options;
  options.askOthers = true;
  const auto made = engine::MakeEngine(options);
  const auto people = made->WorkspaceAt(0)->OpenDatabase(File())->OpenRecordset("SELECT * FROM People ORDER BY ID");
  EXPECT_FALSE(Upgrade(NewTables()).empty());
  people->MoveNext();
  EXPECT_EQ(people->Field("Name"), Value("Hale"));
  made->WorkspaceAt(0)->OpenDatabase(File())->Execute("UPDATE People SET Visits = 8 WHERE ID = 1", platform::dbFailOnError);
  EXPECT_EQ(Other(R"(SELECT "Visits" FROM orv1_customer."People" WHERE "ID" = 1)"), "8\n");
}

}  // namespace
