// A company on a server and work files beside it, in one engine.
#include "engine/data_file.h"
#include "engine/objects/engine.h"
#include "platform/data/row_stream.h"
#include "platform/values/convert.h"
#include "support/temporary_folder.h"
#include "unit/engine/server/server_test.h"

namespace {

using platform::FieldType;
using platform::TableDefinition;

std::vector<TableDefinition> People() {
  return {{"People", {Field("ID", FieldType::Counter), TextField("Name", 10), Field("Age", FieldType::Long), Field("Paid", FieldType::Currency)},
           {{"PrimaryKey", {"ID"}, true, true}, {"ByName", {"Name"}, false, false}}}};
}
std::vector<TableDefinition> Work() {
  return {{"Work", {Field("ID", FieldType::Long), TextField("Name", 6), Field("Age", FieldType::Long), Field("Paid", FieldType::Currency)},
           {{"PrimaryKey", {"ID"}, true, true}}}};
}

class TwoStores : public ServerTest {
 protected:
  TwoStores() {
    Create("customer.zdb", People());
    engine::CreateDataFile(Temp(), Work(), true);
    engine::EngineOptions options;
    options.askOthers = true;  // other programs tell nobody of what they do
    made_ = engine::MakeEngine(options);
    workspace_ = made_->CreateWorkspace("Desk", "Admin", "", 2);
    made_->AppendWorkspace(workspace_);
  }
  std::string Temp() const { return folder_ / "temp.zdb"; }
  std::string Customer() const { return Path("customer.zdb"); }
  platform::DatabaseRef Open(const std::string& path) { return workspace_->OpenDatabase(path); }
  static void Add(const platform::DatabaseRef& people, const std::string& name, int age) {
    people->Execute("INSERT INTO People ( Name, Age ) VALUES ('" + name + "', " + std::to_string(age) + ")", platform::dbFailOnError);
  }
  /// The first two columns of all rows.
  static std::vector<std::string> Rows(const platform::DatabaseRef& database, const std::string& select) {
    std::vector<std::string> rows;
    for (const auto found = database->OpenRecordset(select); !found->Eof(); found->MoveNext())
      rows.push_back(TextOf(found->Field(0)) + ' ' + TextOf(found->Field(1)));
    return rows;
  }
  static std::vector<std::string> WorkRows(const platform::DatabaseRef& temp) { return Rows(temp, "SELECT ID, Name FROM Work ORDER BY ID"); }
  static std::string TextOf(const platform::Value& value) { return value.IsNull() ? "Null" : platform::CStr(value); }

  TemporaryFolder folder_;
  std::unique_ptr<platform::DataEngine> made_;
  platform::WorkspaceRef workspace_;
};

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(TwoStores, AreChosenByThePath) {
  const auto people = Open(Customer());
  const auto temp = Open(Temp());
  Add(people, "Ann", 30);
  temp->Execute("INSERT INTO Work ( ID, Name ) VALUES (7, 'local')", platform::dbFailOnError);
  EXPECT_THAT(Rows(people, "SELECT ID, Name FROM People"), ElementsAre("1 Ann"));
  EXPECT_THAT(WorkRows(temp), ElementsAre("7 local"));
  EXPECT_EQ(Other("SELECT \"Name\" FROM orv1_customer.\"People\""), "Ann\n");
}

TEST_F(TwoStores, ATransactionKeepsWhatWasWrittenInBoth) {
  const auto people = Open(Customer());
  const auto temp = Open(Temp());
  workspace_->BeginTrans();
  Add(people, "Ann", 30);
  temp->Execute("INSERT INTO Work ( ID, Name ) VALUES (7, 'local')", platform::dbFailOnError);
  EXPECT_EQ(Other("SELECT count(*) FROM orv1_customer.\"People\""), "0\n");
  workspace_->CommitTrans();
  EXPECT_EQ(Other("SELECT count(*) FROM orv1_customer.\"People\""), "1\n");
  EXPECT_THAT(WorkRows(temp), ElementsAre("7 local"));
}

TEST_F(TwoStores, ATransactionUndoesWhatWasWrittenInBoth) {
  const auto people = Open(Customer());
  const auto temp = Open(Temp());
  workspace_->BeginTrans();
  Add(people, "Ann", 30);
  workspace_->BeginTrans();
  temp->Execute("INSERT INTO Work ( ID, Name ) VALUES (7, 'local')", platform::dbFailOnError);
  workspace_->CommitTrans();
  workspace_->Rollback();
  EXPECT_EQ(Other("SELECT count(*) FROM orv1_customer.\"People\""), "0\n");
  EXPECT_THAT(WorkRows(temp), IsEmpty());
}

TEST_F(TwoStores, AStoreThatIsMadeInATransactionTakesPartInIt) {
  const auto temp = Open(Temp());
  workspace_->BeginTrans();
  workspace_->BeginTrans();
  const auto people = Open(Customer());
  Add(people, "Ann", 30);
  workspace_->CommitTrans();
  EXPECT_EQ(Other("SELECT count(*) FROM orv1_customer.\"People\""), "0\n");
  workspace_->Rollback();
  EXPECT_EQ(Other("SELECT count(*) FROM orv1_customer.\"People\""), "0\n");
  Add(people, "Bob", 31);
  EXPECT_EQ(Other("SELECT \"Name\" FROM orv1_customer.\"People\""), "Bob\n");
}

TEST_F(TwoStores, WhereTheServersCommitFailsTheFileKeepsNothing) {
  const auto people = Open(Customer());
  const auto temp = Open(Temp());
  workspace_->BeginTrans();
  temp->Execute("INSERT INTO Work ( ID, Name ) VALUES (7, 'local')", platform::dbFailOnError);
  Add(people, "Ann", 30);
  Other("SELECT pg_terminate_backend(pid, 2000) FROM pg_stat_activity WHERE application_name LIKE 'ORCusSch %' AND datname = current_database()");
  EXPECT_EQ(ErrorOf([&] { workspace_->CommitTrans(); }), 3043);
  EXPECT_THAT(WorkRows(temp), IsEmpty());
  EXPECT_EQ(Other("SELECT count(*) FROM orv1_customer.\"People\""), "0\n");
  Add(people, "Bob", 31);
  EXPECT_EQ(Other("SELECT \"Name\" FROM orv1_customer.\"People\""), "Bob\n");
}

TEST_F(TwoStores, RowsGoFromTheServerIntoAFile) {
  const auto people = Open(Customer());
  for (const auto& [name, age] : {std::pair("Ann", 30), std::pair("Bob", 31), std::pair("Cid", 32)}) Add(people, name, age);
  people->Execute("INSERT INTO Work ( ID, Name, Age, Paid ) IN '" + Temp() + "' SELECT ID, Name, Age, 12.5 AS Paid FROM People WHERE Age > 30",
                  platform::dbFailOnError);
  EXPECT_EQ(people->RecordsAffected(), 2);
  EXPECT_THAT(Rows(Open(Temp()), "SELECT Name, Paid FROM Work ORDER BY ID"), ElementsAre("Bob 12.5", "Cid 12.5"));
}

TEST_F(TwoStores, RowsGoFromAFileToTheServer) {
  const auto temp = Open(Temp());
  for (const char* row : {"3, 'zo\xC3\xAB'", "1, 'Ann'"})
    temp->Execute("INSERT INTO Work ( ID, Name ) VALUES (" + std::string(row) + ")", platform::dbFailOnError);
  temp->Execute("INSERT INTO People ( ID, Name ) IN '" + Customer() + "' SELECT ID, Name FROM Work", platform::dbFailOnError);
  const auto people = Open(Customer());
  EXPECT_THAT(Rows(people, "SELECT ID, Name FROM People ORDER BY Name"), ElementsAre("1 Ann", "3 zo\xC3\xAB"));
  Add(people, "Next", 1);
  EXPECT_THAT(Rows(people, "SELECT ID, Name FROM People WHERE Name = 'next'"), ElementsAre("4 Next"));
}

TEST_F(TwoStores, ARowThatCannotBeWrittenUndoesThoseBeforeIt) {
  const auto people = Open(Customer());
  for (const char* name : {"Ann", "Longest", "Cid"}) Add(people, name, 30);
  const std::string all = "INSERT INTO Work ( ID, Name ) IN '" + Temp() + "' SELECT ID, Name FROM People ORDER BY ID";
  EXPECT_EQ(ErrorOf([&] { people->Execute(all, platform::dbFailOnError); }), 3163);
  const auto temp = Open(Temp());
  EXPECT_THAT(WorkRows(temp), IsEmpty());
  temp->Execute("INSERT INTO Work ( ID, Name ) VALUES (3, 'there')", platform::dbFailOnError);
  people->Execute(all, 0);
  EXPECT_EQ(people->RecordsAffected(), 2);
  EXPECT_THAT(WorkRows(temp), ElementsAre("1 Ann", "2 Null", "3 there"));
}

TEST_F(TwoStores, ManyRowsAreCarriedOneByOne) {
  const auto people = Open(Customer());
  Other("INSERT INTO orv1_customer.\"People\" (\"Name\", \"Age\") SELECT 'P' || i, i FROM generate_series(1, 5000) AS i");
  people->Execute("INSERT INTO Work ( ID, Name, Age ) IN '" + Temp() + "' SELECT ID, Name, Age FROM People", platform::dbFailOnError);
  EXPECT_EQ(people->RecordsAffected(), 5000);
  EXPECT_THAT(Rows(Open(Temp()), "SELECT Count(*), Max(Age) FROM Work"), ElementsAre("5000 5000"));
}

TEST_F(TwoStores, NoLinkLeadsFromOneToTheOther) {
  const auto people = Open(Customer());
  platform::TableDef link = people->CreateTableDef("Work");
  link.Connect = ";DATABASE=" + Temp();
  link.SourceTableName = "Work";
  EXPECT_EQ(ErrorOf([&] { people->AppendTableDef(link); }), 3219);
  EXPECT_EQ(people->TableDefCount(), 1);
  // One that another program made is refused where it is used.
  Other("INSERT INTO orv1_customer.\"~links\" (name, path, source) VALUES ('Work', '" + Temp() + "', 'Work')");
  EXPECT_EQ(people->TableDefCount(), 2);
  try {
    people->OpenRecordset("SELECT * FROM Work");
    FAIL() << "opened";
  } catch (const platform::Error& error) {
    EXPECT_EQ(error.Number(), 3219);
    EXPECT_THAT(error.Description(), HasSubstr("'" + Temp() + "'"));
    EXPECT_THAT(error.Description(), HasSubstr("can't be linked or joined"));
  }
}

TEST_F(TwoStores, NoStatementReadsBoth) {
  const auto temp = Open(Temp());
  EXPECT_EQ(ErrorOf([&] { temp->OpenRecordset("SELECT W.* FROM Work AS W INNER JOIN '" + Customer() + "'.People AS P ON W.ID = P.ID"); }), 3219);
  EXPECT_EQ(ErrorOf([&] { temp->OpenRecordset("SELECT * FROM People IN '" + Customer() + "'"); }), 3219);
  EXPECT_EQ(ErrorOf([&] { temp->Execute("DELETE FROM People IN '" + Customer() + "'", platform::dbFailOnError); }), 3219);
}

TEST_F(TwoStores, LinksWithinTheCompanyGoAlongWithIt) {
  Create("GL.zdb", {{"Departments", {TextField("Dept", 3), TextField("Name", 20)}, {{"PrimaryKey", {"Dept"}, true, true}}}});
  const auto people = Open(Customer());
  platform::TableDef link = people->CreateTableDef("Departments");
  link.Connect = ";DATABASE=" + Path("GL.zdb");
  link.SourceTableName = "Departments";
  people->AppendTableDef(link);
  EXPECT_EQ(people->TableDefAt(1).Connect, ";DATABASE=" + Path("GL.zdb"));
  EXPECT_EQ(Other("SELECT path FROM orv1_customer.\"~links\""), "{folder}/GL.zdb\n");
  Other("INSERT INTO orv1_gl.\"Departments\" (\"Dept\", \"Name\") VALUES ('010', 'Front')");
  EXPECT_THAT(Rows(people, "SELECT Dept, Name FROM Departments"), ElementsAre("010 Front"));
}

TEST_F(TwoStores, DatabasesOfOneServerAreStoresOfTheirOwn) {
  server_.CreateDatabase(database_ + "b", database_);
  const std::string second = server_.PathOf(database_ + "b") + "orv1/customer.zdb";
  const auto people = Open(Customer());
  const auto others = Open(second);
  Add(people, "Ann", 30);
  people->Execute("INSERT INTO People ( ID, Name ) IN '" + second + "' SELECT ID, Name FROM People", platform::dbFailOnError);
  EXPECT_THAT(Rows(others, "SELECT ID, Name FROM People"), ElementsAre("1 Ann"));
  EXPECT_EQ(ErrorOf([&] { people->OpenRecordset("SELECT * FROM People IN '" + second + "'"); }), 3219);
  made_.reset();
  server_.DropDatabase(database_ + "b");
}

// One company's rows never land in another's, however alike the two are.
TEST_F(TwoStores, RowsGoIntoTheCompanyThatIsNamed) {
  server_.CreateDatabase(database_ + "c", database_);
  const std::string second = server_.PathOf(database_ + "c") + "orv1/customer.zdb";
  const auto temp = Open(Temp());
  temp->Execute("INSERT INTO Work ( ID, Name ) VALUES (7, 'local')", platform::dbFailOnError);
  temp->Execute("INSERT INTO People ( ID, Name ) IN '" + Customer() + "' SELECT ID, Name FROM Work", platform::dbFailOnError);
  temp->Execute("INSERT INTO People ( ID, Name ) IN '" + second + "' SELECT ID + 1 AS ID, Name FROM Work", platform::dbFailOnError);
  EXPECT_THAT(Rows(Open(Customer()), "SELECT ID, Name FROM People"), ElementsAre("7 local"));
  EXPECT_THAT(Rows(Open(second), "SELECT ID, Name FROM People"), ElementsAre("8 local"));
  made_.reset();
  server_.DropDatabase(database_ + "c");
}

TEST_F(TwoStores, TablesWithoutAJoinGoEachWithEach) {
  const auto people = Open(Customer());
  for (const char* name : {"Ann", "Bob"}) Add(people, name, 30);
  EXPECT_THAT(Rows(people, "SELECT A.Name, B.Name FROM People AS A, People AS B WHERE A.ID <> B.ID ORDER BY A.Name"),
              ElementsAre("Ann Bob", "Bob Ann"));
  EXPECT_THAT(Rows(people, "SELECT DISTINCTROW A.Name, A.ID FROM People AS A, People AS B WHERE A.ID < B.ID"), ElementsAre("Ann 1"));
}

TEST_F(TwoStores, AReaderReadsBoth) {
  Add(Open(Customer()), "Ann", 30);
  Open(Temp())->Execute("INSERT INTO Work ( ID, Name ) VALUES (7, 'local')", platform::dbFailOnError);
  const auto reader = engine::MakeSnapshotReader();
  const auto people = reader->OpenRows(Customer(), "SELECT Name FROM People");
  const auto work = reader->OpenRows(Temp(), "SELECT Name FROM Work");
  ASSERT_TRUE(people->Next());
  ASSERT_TRUE(work->Next());
  EXPECT_EQ(platform::CStr(people->Row()[0]), "Ann");
  EXPECT_EQ(platform::CStr(work->Row()[0]), "local");
}

// ---- what a reader joins across them: the work file's rows travel to the server

class JoinedStores : public TwoStores {
 protected:
  JoinedStores() {
    const auto people = Open(Customer());
    for (const char* name : {"Zoe", "Ann", "Bob"}) Add(people, name, 30);
  }
  void AddWork(const std::string& values) {
    Open(Temp())->Execute("INSERT INTO Work ( ID, Name, Age, Paid ) VALUES (" + values + ")", platform::dbFailOnError);
  }
  std::vector<std::string> Read(const std::string& path, const std::string& select) {
    std::vector<std::string> rows;
    const auto found = reader_->OpenRows(path, select);
    while (found->Next()) {
      std::string row;
      for (const platform::Value& value : found->Row()) row += (row.empty() ? "" : " ") + TextOf(value);
      rows.push_back(row);
    }
    return rows;
  }
  std::string ThePeople() const { return '\'' + Customer() + "'.People"; }

  std::unique_ptr<platform::SnapshotReader> reader_ = engine::MakeSnapshotReader();
};

TEST_F(JoinedStores, RowsOfTheWorkFileMeetThoseOfTheServer) {
  AddWork("2, 'two', 7, 12.5");
  AddWork("3, Null, Null, Null");
  AddWork("9, 'none', 1, -3");
  EXPECT_THAT(Read(Temp(), "SELECT w.Name, w.Age, w.Paid, p.Name FROM Work AS w INNER JOIN " + ThePeople() +
                               " AS p ON p.ID = w.ID ORDER BY p.Name"),
              ElementsAre("two 7 12.5 Ann", "Null Null Null Bob"));
  EXPECT_THAT(Read(Temp(), "SELECT w.ID, p.Name FROM Work AS w LEFT JOIN " + ThePeople() + " AS p ON p.ID = w.ID"),
              ElementsAre("2 Ann", "3 Bob", "9 Null"));
  EXPECT_THAT(Read(Customer(), "SELECT p.Name, w.* FROM People AS p INNER JOIN '" + Temp() + "'.Work AS w ON p.ID = w.ID WHERE w.Paid > 1"),
              ElementsAre("Ann 2 two 7 12.5"));
}

// They are ordered and compared as in their file.
TEST_F(JoinedStores, TextsKeepTheirOrder) {
  AddWork("1, 'b', 1, 0");
  AddWork("2, '\u00c1', 1, 0");
  AddWork("3, 'a', 1, 0");
  const std::string joined = " FROM Work AS w INNER JOIN " + ThePeople() + " AS p ON p.ID = w.ID ";
  EXPECT_THAT(Read(Temp(), "SELECT w.ID" + joined + "ORDER BY w.Name"), ElementsAre("3", "2", "1"));
  EXPECT_THAT(Read(Temp(), "SELECT w.ID" + joined + "WHERE w.Name = 'B'"), ElementsAre("1"));
  EXPECT_THAT(Read(Temp(), "SELECT w.ID" + joined + "WHERE w.Name Like 'A*'"), ElementsAre("3"));
  EXPECT_THAT(Read(Temp(), "SELECT w.ID" + joined + "ORDER BY w.Age"), ElementsAre("1", "2", "3")) << "equal keys stand as the rows do";
}

TEST_F(JoinedStores, RowsStayAsTheyWereWhenTheyWereSent) {
  AddWork("1, 'one', 1, 0");
  AddWork("2, 'two', 1, 0");
  const auto rows = reader_->OpenRows(Temp(), "SELECT w.Name, p.Name FROM Work AS w INNER JOIN " + ThePeople() + " AS p ON p.ID = w.ID");
  ASSERT_TRUE(rows->Next());
  Open(Temp())->Execute("DELETE FROM Work", platform::dbFailOnError);
  Open(Customer())->Execute("UPDATE People SET Name = 'changed'", platform::dbFailOnError);
  EXPECT_EQ(rows->Count(), 2);
  ASSERT_TRUE(rows->Next());
  EXPECT_EQ(TextOf(rows->Row()[0]) + ' ' + TextOf(rows->Row()[1]), "two Ann");
}

// Nothing of them stays there, whether they were read to their end or not, and the next ones have a place.
TEST_F(JoinedStores, NothingStaysOnTheServer) {
  AddWork("1, 'one', 1, 0");
  for (int i = 0; i < 2; ++i) {
    EXPECT_THAT(Read(Temp(), "SELECT w.Name FROM Work AS w INNER JOIN " + ThePeople() + " AS p ON p.ID = w.ID"), ElementsAre("one"));
    EXPECT_EQ(Other("SELECT count(*) FROM pg_class WHERE relname LIKE '~guest%'"), "0\n");
  }
}

TEST_F(JoinedStores, CanBeStoppedOnTheWay) {
  for (int i = 1; i <= 3; ++i) AddWork(std::to_string(i) + ", 'one', 1, 0");
  reader_->OnWait([] { return false; });
  EXPECT_EQ(ErrorOf([&] { Read(Temp(), "SELECT w.Name FROM Work AS w INNER JOIN " + ThePeople() + " AS p ON p.ID = w.ID"); }),
            platform::kReadingStopped);
}

// Who may read alone prints as well.
TEST_F(JoinedStores, AReaderAloneMayJoin) {
  AddWork("2, 'two', 1, 0");
  Other("CREATE ROLE " + database_ + "_reader LOGIN; GRANT USAGE ON SCHEMA orv1_customer TO " + database_ +
        "_reader; GRANT SELECT ON ALL TABLES IN SCHEMA orv1_customer TO " + database_ + "_reader");
  ::setenv("PGUSER", (database_ + "_reader").c_str(), 1);
  EXPECT_THAT(Read(Temp(), "SELECT p.Name FROM Work AS w INNER JOIN " + ThePeople() + " AS p ON p.ID = w.ID"), ElementsAre("Ann"));
  reader_.reset();
  ::setenv("PGUSER", "office", 1);
  Other("DROP OWNED BY " + database_ + "_reader; DROP ROLE " + database_ + "_reader");
}

// A standby takes no tables, temporary ones neither. A database that is read-only refuses them by the same number.
TEST_F(JoinedStores, AServerThatTakesNoTablesSaysSo) {
  AddWork("2, 'two', 1, 0");
  Other("ALTER DATABASE " + database_ + " SET default_transaction_read_only = on");
  try {
    Read(Temp(), "SELECT p.Name FROM Work AS w INNER JOIN " + ThePeople() + " AS p ON p.ID = w.ID");
    ADD_FAILURE() << "it was read";
  } catch (const platform::Error& error) {
    EXPECT_EQ(error.Number(), engine::errors::number::ReadOnly);
    EXPECT_THAT(error.Description(), HasSubstr(Temp()));
    EXPECT_THAT(error.Description(), HasSubstr("takes no temporary tables"));
  }
  EXPECT_THAT(Read(Customer(), "SELECT Name FROM People ORDER BY Name"), ElementsAre("Ann", "Bob", "Zoe")) << "its own tables can be read";
}

TEST_F(JoinedStores, ARoleThatMayMakeNoTemporaryTablesIsToldSo) {
  AddWork("2, 'two', 1, 0");
  Other("CREATE ROLE " + database_ + "_reader LOGIN; GRANT USAGE ON SCHEMA orv1_customer TO " + database_ +
        "_reader; GRANT SELECT ON ALL TABLES IN SCHEMA orv1_customer TO " + database_ + "_reader; REVOKE TEMPORARY ON DATABASE " + database_ +
        " FROM PUBLIC");
  ::setenv("PGUSER", (database_ + "_reader").c_str(), 1);
  EXPECT_EQ(ErrorOf([&] { Read(Temp(), "SELECT p.Name FROM Work AS w INNER JOIN " + ThePeople() + " AS p ON p.ID = w.ID"); }),
            engine::errors::number::ReadOnly);
  reader_.reset();
  ::setenv("PGUSER", "office", 1);
  Other("DROP OWNED BY " + database_ + "_reader; DROP ROLE " + database_ + "_reader");
}

// What a company of files must never pay for.
TEST_F(TwoStores, NoServerIsThoughtOfWithoutAPathToOne) {
  const auto choice = [](int& servers, int& files) -> engine::StoreChoice {
    const auto make = [](int& count) {
      return [&count]() -> std::unique_ptr<engine::Store> {
        ++count;
        return std::make_unique<engine::postgres::PostgresStore>(Short());
      };
    };
    return {{.nameOf = [](std::string_view path) { return path.starts_with("postgresql://nobody") ? std::optional<std::string>("") : std::nullopt; },
             .make = make(servers)},
            {.nameOf = [](std::string_view) { return std::optional<std::string>(""); }, .make = make(files)}};
  };
  int servers = 0;
  int files = 0;
  const auto other = engine::MakeEngineOver(choice(servers, files), {});
  other->WorkspaceAt(0)->OpenDatabase(Customer());
  other->WorkspaceAt(0)->OpenDatabase(Customer());
  EXPECT_EQ(servers, 0);
  EXPECT_EQ(files, 1);
}

}  // namespace
