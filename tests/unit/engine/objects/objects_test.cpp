// Workspaces, databases, their collections, links and action statements.
#include "unit/engine/support/office.h"

namespace {

using platform::RecordsetType;
using platform::TableDef;
using testing::ElementsAre;
using testing::HasSubstr;

class Objects : public OfficeTest {
 protected:
  platform::WorkspaceRef NewWorkspace(const std::string& name = "w") {
    auto workspace = engine_->CreateWorkspace(name, "Admin", "", 2);
    engine_->AppendWorkspace(workspace);
    return workspace;
  }
  void Link(const std::string& name = "Departments") {
    TableDef link = db_->CreateTableDef(name);
    link.Connect = ";DATABASE=" + Path("ledger.zdb");
    link.SourceTableName = "Departments";
    db_->AppendTableDef(link);
  }
  int LinkError(const std::string& name, const std::string& connect, const std::string& source) {
    return ErrorOf([&] { db_->AppendTableDef(TableDef{name, connect, source}); });
  }
};

// ---- collections

TEST_F(Objects, TheDefaultWorkspaceIsAlwaysThere) {
  EXPECT_EQ(engine_->WorkspaceCount(), 1);
  EXPECT_EQ(engine_->WorkspaceAt(0)->Name(), "#Default Workspace#");
  engine_->WorkspaceAt(0)->Close();
  EXPECT_EQ(engine_->WorkspaceCount(), 1);
  EXPECT_EQ(ErrorOf([&] { engine_->WorkspaceAt(1); }), 3265);
}

TEST_F(Objects, AWorkspaceJoinsTheCollectionWhenAppended) {
  auto workspace = engine_->CreateWorkspace("w", "Admin", "", 2);
  EXPECT_EQ(engine_->WorkspaceCount(), 1);
  engine_->AppendWorkspace(workspace);
  EXPECT_EQ(engine_->WorkspaceCount(), 2);
  NewWorkspace("w");  // a name may come twice
  EXPECT_EQ(engine_->WorkspaceCount(), 3);
  EXPECT_TRUE(engine_->WorkspaceAt(1) == workspace);
}

TEST_F(Objects, ClosingAWorkspaceClosesWhatItOpened) {
  auto workspace = NewWorkspace();
  auto database = workspace->OpenDatabase(Path("office.zdb"));
  auto rows = database->OpenRecordset("People");
  EXPECT_EQ(workspace->DatabaseCount(), 1);
  EXPECT_EQ(database->RecordsetCount(), 1);
  EXPECT_TRUE(database->RecordsetAt(0) == rows);
  workspace->Close();
  EXPECT_EQ(engine_->WorkspaceCount(), 1);
  EXPECT_EQ(ErrorOf([&] { workspace->Name(); }), 3420);
  EXPECT_EQ(ErrorOf([&] { database->Name(); }), 3420);
  EXPECT_EQ(ErrorOf([&] { rows->MoveFirst(); }), 3420);
}

TEST_F(Objects, TheShutdownWalk) {
  auto workspace = NewWorkspace();
  for (int i = 0; i < 2; ++i) {
    auto database = workspace->OpenDatabase(Path("office.zdb"));
    database->OpenRecordset("People");
    database->OpenRecordset("Kinds");
  }
  while (workspace->DatabaseCount() > 0) {
    auto database = workspace->DatabaseAt(0);
    while (database->RecordsetCount() > 0) {
      database->RecordsetAt(0)->Close();
      database->RefreshRecordsets();
    }
    database->Close();
    workspace->RefreshDatabases();
  }
  workspace->Close();
  engine_->RefreshWorkspaces();
  EXPECT_EQ(engine_->WorkspaceCount(), 1);
  EXPECT_GT(db_->TableDefCount(), 0);  // a data control's database is nobody's member
}

TEST_F(Objects, AVariableNeverSet) {
  platform::DatabaseRef none;
  EXPECT_EQ(ErrorOf([&] { none->Name(); }), 91);
}

TEST_F(Objects, FilesThatCannotBeOpened) {
  auto workspace = NewWorkspace();
  EXPECT_EQ(ErrorOf([&] { workspace->OpenDatabase(Path("none.zdb")); }), 3024);
  EXPECT_EQ(ErrorOf([&] { workspace->OpenDatabase(Path("none/x.zdb")); }), 3044);
  EXPECT_EQ(workspace->DatabaseCount(), 0);
}

TEST_F(Objects, PathsOfTheProgramsOwnStyle) {
  engine::EngineOptions options;
  options.hostPath = [&](std::string_view path) { return path.starts_with("C:\\") ? Path(std::string(path.substr(3))) : std::string(); };
  auto engine = engine::MakeEngine(options);
  auto database = engine->OpenControlDatabase("C:\\office.zdb");
  EXPECT_EQ(database->Name(), "C:\\office.zdb");
  EXPECT_EQ(ErrorOf([&] { engine->OpenControlDatabase("D:\\office.zdb"); }), 3044);
}

// ---- what OpenRecordset opens

TEST_F(Objects, KindsByDefault) {
  Link();
  EXPECT_EQ(db_->OpenRecordset("people")->Type(), RecordsetType::Table);
  EXPECT_EQ(db_->OpenRecordset("Departments")->Type(), RecordsetType::Dynaset);
  EXPECT_EQ(db_->OpenRecordset("SELECT * FROM People")->Type(), RecordsetType::Dynaset);
  EXPECT_EQ(db_->OpenRecordset("People", RecordsetType::Dynaset)->Type(), RecordsetType::Dynaset);
}

TEST_F(Objects, SourcesThatCannotBeOpened) {
  Link();
  EXPECT_EQ(ErrorOf([&] { db_->OpenRecordset("SELECT * FROM People", RecordsetType::Table); }), 3011);
  EXPECT_EQ(ErrorOf([&] { db_->OpenRecordset("Departments", RecordsetType::Table); }), 3219);
  EXPECT_EQ(ErrorOf([&] { db_->OpenRecordset("Nobody"); }), 3011);
  EXPECT_EQ(ErrorOf([&] { db_->OpenRecordset("SELECT * FROM Nobody"); }), 3078);
  EXPECT_EQ(ErrorOf([&] { db_->OpenRecordset("SELECT Nope FROM People"); }), 3061);
  EXPECT_EQ(ErrorOf([&] { db_->OpenRecordset("SELECT * FROM [~info]"); }), 3078);
  EXPECT_EQ(db_->RecordsetCount(), 0);
}

// ---- transactions

TEST_F(Objects, TheDefaultWorkspaceOnlyCounts) {
  auto workspace = engine_->WorkspaceAt(0);
  EXPECT_EQ(ErrorOf([&] { workspace->CommitTrans(); }), 3034);
  EXPECT_EQ(ErrorOf([&] { workspace->Rollback(); }), 3034);
  for (int i = 0; i < 5; ++i) workspace->BeginTrans();
  EXPECT_EQ(ErrorOf([&] { workspace->BeginTrans(); }), 3003);
  db_->Execute("INSERT INTO People (Name) VALUES ('a')");
  for (int i = 0; i < 5; ++i) workspace->Rollback();
  EXPECT_EQ(ErrorOf([&] { workspace->Rollback(); }), 3034);
  EXPECT_EQ(Table("People")->RecordCount(), 1);
}

TEST_F(Objects, OtherWorkspacesUndo) {
  auto workspace = NewWorkspace();
  auto database = workspace->OpenDatabase(Path("office.zdb"));
  auto rows = database->OpenRecordset("People");
  workspace->BeginTrans();
  database->Execute("INSERT INTO People (Name) VALUES ('a')");
  workspace->BeginTrans();
  database->Execute("INSERT INTO People (Name) VALUES ('b')");
  EXPECT_EQ(rows->RecordCount(), 2);
  workspace->Rollback();
  EXPECT_EQ(rows->RecordCount(), 1);
  workspace->CommitTrans();
  EXPECT_EQ(rows->RecordCount(), 1);
  EXPECT_EQ(ErrorOf([&] { workspace->CommitTrans(); }), 3034);
  workspace->BeginTrans();
  database->Execute("DELETE * FROM People");
  workspace->Close();
  EXPECT_EQ(Table("People")->RecordCount(), 1);
}

// ---- links

TEST_F(Objects, TablesAndLinksAreListed) {
  const int tables = db_->TableDefCount();
  Link();
  EXPECT_EQ(db_->TableDefCount(), tables + 1);
  EXPECT_EQ(db_->TableDefAt(0).Name, "People");
  EXPECT_EQ(db_->TableDefAt(0).Connect, "");
  EXPECT_EQ(db_->TableDefAt(0).SourceTableName, "");
  const TableDef link = db_->TableDefAt(tables);
  EXPECT_EQ(link.Name, "Departments");
  EXPECT_EQ(link.Connect, ";DATABASE=" + Path("ledger.zdb"));
  EXPECT_EQ(link.SourceTableName, "Departments");
  EXPECT_EQ(ErrorOf([&] { db_->TableDefAt(tables + 1); }), 3265);
  Restart();
  EXPECT_EQ(db_->TableDefCount(), tables + 1);
}

TEST_F(Objects, LinksThatCannotBeMade) {
  const std::string ledger = ";DATABASE=" + Path("ledger.zdb");
  std::ofstream(Path("text.zdb")) << std::string(3000, 'x');
  EXPECT_EQ(LinkError("L", ";DATABASE=" + Path("none.zdb"), "Departments"), 3024);
  EXPECT_EQ(LinkError("L", ";DATABASE=" + Path("none/x.zdb"), "Departments"), 3044);
  EXPECT_EQ(LinkError("L", ";DATABASE=" + Path("text.zdb"), "Departments"), 3343);
  EXPECT_EQ(LinkError("L", ledger, "Nobody"), 3011);
  EXPECT_EQ(LinkError("people", ledger, "Departments"), 3012);
  Link("DEPARTMENTS");
  EXPECT_EQ(LinkError("Departments", ledger, "Departments"), 3012);
}

TEST_F(Objects, ALinkInItsFilesFolderIsReadUnderEachNameOfTheFolder) {
  Link();
  std::filesystem::create_directory_symlink(folder_, Path("other"));
  auto seen = engine_->OpenControlDatabase(Path("other/office.zdb"));
  const TableDef link = seen->TableDefAt(seen->TableDefCount() - 1);
  EXPECT_EQ(link.Name, "Departments");
  EXPECT_EQ(link.Connect, ";DATABASE=" + Path("other/ledger.zdb"));
  EXPECT_EQ(db_->TableDefAt(db_->TableDefCount() - 1).Connect, ";DATABASE=" + Path("ledger.zdb"));
}

TEST_F(Objects, ACopiedFolderReadsItsOwnFiles) {
  Link();
  db_->Execute("INSERT INTO Departments (DeptNumber) VALUES ('001')");
  std::filesystem::create_directory(Path("copy"));
  for (const char* file : {"office.zdb", "ledger.zdb"}) engine::BackupDataFile(Path(file), Path(std::string("copy/") + file));
  db_->Execute("UPDATE Departments SET DeptName = 'live'");
  const auto engine = NewEngine();
  auto copy = engine->OpenControlDatabase(Path("copy/office.zdb"));
  EXPECT_TRUE(copy->OpenRecordset("SELECT DeptName FROM Departments")->Field(0).IsNull());
  copy->Execute("DELETE * FROM Departments");
  EXPECT_EQ(db_->OpenRecordset("SELECT DeptName FROM Departments")->Field(0), "live");
}

TEST_F(Objects, ALinkToAnotherFolderKeepsItsPath) {
  std::filesystem::create_directory(Path("books"));
  std::filesystem::copy_file(Path("ledger.zdb"), Path("books/ledger.zdb"));
  db_->AppendTableDef(TableDef{"Departments", ";DATABASE=" + Path("books/ledger.zdb"), "Departments"});
  std::filesystem::create_directory_symlink(folder_, Path("other"));
  auto seen = engine_->OpenControlDatabase(Path("other/office.zdb"));
  EXPECT_EQ(seen->TableDefAt(seen->TableDefCount() - 1).Connect, ";DATABASE=" + Path("books/ledger.zdb"));
}

// Two programs that start at the same moment both find no link.
TEST_F(Objects, ALinkThatAnotherProgramHasJustMadeIsMade) {
  const auto other = NewEngine();
  auto its = other->OpenControlDatabase(Path("office.zdb"));
  const int tables = db_->TableDefCount();
  EXPECT_EQ(its->TableDefCount(), tables);
  const TableDef link{"Departments", ";DATABASE=" + Path("ledger.zdb"), "Departments"};
  its->AppendTableDef(link);
  EXPECT_EQ(ErrorOf([&] { db_->AppendTableDef(link); }), 0);
  EXPECT_EQ(db_->TableDefCount(), tables + 1);
  EXPECT_EQ(ErrorOf([&] { db_->AppendTableDef(link); }), 3012) << "it was there when the tables were looked through";
  EXPECT_EQ(ErrorOf([&] { its->AppendTableDef(link); }), 3012) << "it is its own";
}

TEST_F(Objects, ALinkThatAnotherProgramHasJustMadeElsewhereIsAnother) {
  std::filesystem::create_directory(Path("books"));
  std::filesystem::copy_file(Path("ledger.zdb"), Path("books/ledger.zdb"));
  const auto other = NewEngine();
  auto its = other->OpenControlDatabase(Path("office.zdb"));
  db_->TableDefCount();
  its->AppendTableDef(TableDef{"Departments", ";DATABASE=" + Path("books/ledger.zdb"), "Departments"});
  EXPECT_EQ(LinkError("Departments", ";DATABASE=" + Path("ledger.zdb"), "Departments"), 3012);
}

TEST_F(Objects, ALinkReadsAndWritesTheOtherFile) {
  Link("Dept");
  auto elsewhere = engine_->OpenControlDatabase(Path("ledger.zdb"));
  elsewhere->Execute("INSERT INTO Departments (DeptNumber, DeptName) VALUES ('001', 'Shop')");
  db_->Execute("INSERT INTO Rates (ID, Dept, Adjustment) VALUES (1, '001', 10)");
  auto rows = Dynaset("SELECT Rates.Dept, Dept.DeptName FROM Rates INNER JOIN Dept ON Rates.Dept = Dept.DeptNumber");
  EXPECT_EQ(rows->Field("DeptName"), "Shop");
  rows->Edit();
  rows->SetField("DeptName", "Store");
  rows->Update();
  auto direct = elsewhere->OpenRecordset("Departments");
  EXPECT_EQ(direct->Field("DeptName"), "Store");
}

TEST_F(Objects, ALinkWhoseFileIsGone) {
  Link();
  Restart();
  std::filesystem::rename(Path("ledger.zdb"), Path("moved.zdb"));
  Restart();
  EXPECT_EQ(ErrorOf([&] { db_->OpenRecordset("Departments"); }), 3024);
  EXPECT_EQ(ErrorOf([&] { Dynaset("SELECT * FROM Departments"); }), 3024);
  EXPECT_EQ(Table("People")->RecordCount(), 0);
}

// ---- files

TEST_F(Objects, ManyFilesOneAfterTheOther) {
  const std::vector<platform::TableDefinition> tables{{"T", {TextField("A", 5)}, {}}};
  for (int i = 0; i < 25; ++i) {
    const std::string path = Path("f" + std::to_string(i) + ".zdb");
    engine::CreateDataFile(path, tables);
    auto database = engine_->OpenControlDatabase(path);
    database->Execute("INSERT INTO T (A) VALUES ('x')");
    database->Close();
  }
  EXPECT_EQ(Table("People")->RecordCount(), 0);
}

}  // namespace
