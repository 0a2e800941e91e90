#include "engine/errors.h"
#include "support/controls.h"
#include "support/faulty_proxy.h"
#include "support/main_screen_test.h"
#include "support/test_server.h"
#include "suitefiles/company/company_maker.h"

// A company on a server that goes away, or lets its user only read: what the main screen's user sees of it.
namespace {

using orcussch::frmCustMain;
using platform::Value;
using Fault = FaultyProxy::Fault;

constexpr int kLost = 3043;
constexpr int kReadOnly = 3027;

class ServerFaultsTest : public MainScreenTest {
 protected:
  ServerFaultsTest() : server_(TestServer::Shared()), line(server_.Socket()) {
    ::setenv("PGUSER", "office", 1);
    static int number = 0;
    if (number == 0) MakePattern();
    database_ = "faults" + std::to_string(++number);
    server_.CreateDatabase(database_, "pattern");
    LeadTo(server_.PathOf(database_));
    // The first session writes what every later one finds: the company's row of receivables.
    Serve([](frmCustMain&) {});
    LeadTo(line.PathOf(database_));
  }
  ~ServerFaultsTest() override {
    ::setenv("PGUSER", "office", 1);
    app.reset();
    server_.DropDatabase(database_);
  }

  std::string Ask(const std::string& sql) const { return server_.Run(database_, sql); }
  std::string LastNames() const { return Ask("SELECT string_agg(\"LastName\", ',' ORDER BY \"AcctNum\") FROM orv1_customer.\"Customers\""); }
  void LeadTo(const std::string& place) const { folder.Write("orv1.ini", "[Databases]\nDefault Path=" + place + "orv1/\n"); }

  static void Press(frmCustMain& screen, const char* key) { dynamic_cast<platform::ToolbarButton&>(*screen.Find(key)).UserClick(); }
  static void Enter(platform::TextBox& edit, const char* text) { edit.UserReplaceAll(text, 0); }
  static void OpenCard(frmCustMain& screen, const char* name) {
    Press(screen, "tb_EditRec");
    Enter(EditOf(screen, "txtLastName"), name);
  }

  static void OpenNewPhone(frmCustMain& screen) {
    screen.SSIndexTab1.UserClick(orcussch::tab::Phones);
    Press(screen, "tb_AddRec");
    ComboOf(screen, "cboPhoneTypes").UserPick(ComboOf(screen, "cboPhoneTypes").Rows().at(1));
    Enter(EditOf(screen, "txtPhoneComment"), "new");
  }

  /// Every report so far is this one, and has its box.
  void ExpectReports(std::size_t least, int number) {
    EXPECT_GE(log->records.size(), least);
    for (const auto& record : log->records) EXPECT_EQ(record.number, number) << record.module;
    EXPECT_EQ(frontEnd->boxes.size(), log->records.size()) << "one box each";
    log->records.clear();
    frontEnd->boxes.clear();
  }
  void ExpectNoReport() const {
    for (const auto& record : log->records) ADD_FAILURE() << record.module << ' ' << record.number;
    for (const auto& box : frontEnd->boxes) ADD_FAILURE() << box.text;
  }
  /// The next save is stored, without a word about the fault.
  void ExpectNextSave(frmCustMain& screen) {
    OpenCard(screen, "Next");
    Press(screen, "tb_SaveRec");
    ExpectNoReport();
    EXPECT_EQ(LastNames(), "Next,Bell\n");
  }

  TestServer& server_;
  FaultyProxy line;
  std::string database_;

  static void MakeCompanyAt(const std::string& place) {
    suitefiles::MakeCompanyFiles(place + "orv1", 2025);
    suitefiles::CompanyRecord company;
    company.name = "Company 1";
    suitefiles::AddCompanyRow(place + "orv1/dat.zdb", company);
    AddRows(place + "orv1/customer.zdb", "Customers", {"LastName", "Terms", "NonBillable", "DefaultPhoneNumber"},
            {{"Abel", 2, false, 0}, {"Bell", 2, false, 0}});
  }

 private:
  void MakePattern() const {
    server_.CreateDatabase("pattern");
    MakeCompanyAt(server_.PathOf("pattern"));
  }
};

TEST_F(ServerFaultsTest, ASaveWhoseAnswerIsCutSucceedsWithoutAWord) {
  Serve([&](frmCustMain& screen) {
    OpenCard(screen, "Abelson");
    line.NextSave(Fault::CutBehind);
    Press(screen, "tb_SaveRec");
    ExpectNoReport();
    EXPECT_EQ(LastNames(), "Abelson,Bell\n");
    EXPECT_EQ(screen.data[0].Recordset()->Field("LastName"), Value("Abelson"));
    ExpectNextSave(screen);
  });
}

TEST_F(ServerFaultsTest, ANewRecordWhoseAnswerIsCutIsThereOnce) {
  Serve([&](frmCustMain& screen) {
    OpenNewPhone(screen);
    line.NextSave(Fault::CutBehind);
    Press(screen, "tb_SaveRec");
    ExpectNoReport();
    EXPECT_EQ(Ask("SELECT \"Comment\" FROM orv1_customer.\"Phones\""), "new\n");
    EXPECT_EQ(screen.data[1].Recordset()->RecordCount(), 1);
  });
}

// What a save meets, and what is told: one report of the save itself.
class CutSaveTest : public ServerFaultsTest, public testing::WithParamInterface<Fault> {};

TEST_P(CutSaveTest, IsToldOnceAndTheCardKeepsItsContent) {
  Serve([&](frmCustMain& screen) {
    OpenCard(screen, "Abelson");
    line.NextSave(GetParam());
    Press(screen, "tb_SaveRec");
    ASSERT_EQ(log->records.size(), 1U);
    EXPECT_EQ(log->records[0].module, "frmCustMain.RecordAdd");
    ExpectReports(1, kLost);
    EXPECT_EQ(EditOf(screen, "txtLastName").Text(), "Abelson");
    EXPECT_EQ(LastNames(), "Abel,Bell\n");
    ExpectNextSave(screen);
  });
}

INSTANTIATE_TEST_SUITE_P(Line, CutSaveTest, testing::Values(Fault::CutBefore, Fault::HalfOpen));

// How the server ends.
using Ending = void (TestServer::*)();

class EndedServerTest : public ServerFaultsTest, public testing::WithParamInterface<Ending> {};

TEST_P(EndedServerTest, ASaveIsToldAndTheCardKeepsItsContentThenAllGoesOn) {
  Serve([&](frmCustMain& screen) {
    OpenCard(screen, "Abelson");
    (server_.*GetParam())();
    Press(screen, "tb_SaveRec");
    ExpectReports(1, kLost);
    EXPECT_EQ(EditOf(screen, "txtLastName").Text(), "Abelson");
    EXPECT_TRUE(screen.mToolbarReady);
    EXPECT_TRUE(screen.Visible());
    server_.Start();
    ExpectNextSave(screen);
  });
}

// Where the cut has been noticed before the save, the line is made anew and there is nothing to tell.
TEST_P(EndedServerTest, OneThatIsBackAlreadyIsToldOnceOrSaves) {
  Serve([&](frmCustMain& screen) {
    OpenCard(screen, "Abelson");
    (server_.*GetParam())();
    server_.Start();
    Press(screen, "tb_SaveRec");
    if (log->records.empty()) {
      ExpectNoReport();
      EXPECT_EQ(LastNames(), "Abelson,Bell\n");
    } else {
      EXPECT_EQ(log->records.size(), 1U);
      ExpectReports(1, kLost);
      EXPECT_EQ(EditOf(screen, "txtLastName").Text(), "Abelson");
    }
    ExpectNextSave(screen);
  });
}

TEST_P(EndedServerTest, ASearchThatIsToldOfTheCutFindsTheNextTime) {
  Serve([&](frmCustMain& screen) {
    (server_.*GetParam())();
    server_.Start();
    const auto search = [&] {
      screen.txtSearch[0].Text("Bell");
      screen.miFind.UserClick();
    };
    search();
    // One that meets the cut is told in the box of the act, since no procedure takes it. Where the cut has been noticed before, the line
    // is made anew and there is nothing to tell.
    if (!frontEnd->boxes.empty()) {
      EXPECT_THAT(Boxes(), testing::ElementsAre(engine::errors::DiskOrNetwork().Description()));
      frontEnd->boxes.clear();
      search();
    }
    ExpectNoReport();
    EXPECT_EQ(screen.data[0].Recordset()->Field("LastName"), Value("Bell"));
  });
}

INSTANTIATE_TEST_SUITE_P(Server, EndedServerTest, testing::Values(&TestServer::Stop, &TestServer::Kill, &TestServer::Crash));

TEST_F(ServerFaultsTest, WhoMayOnlyReadIsRefusedAsWithAReadOnlyFile) {
  const std::string reader = database_ + "_reader";
  Ask("CREATE ROLE " + reader + " LOGIN; GRANT pg_read_all_data TO " + reader);
  ::setenv("PGUSER", reader.c_str(), 1);
  frontEnd->answer = platform::box::Yes;
  Serve([&](frmCustMain& screen) {
    ExpectNoReport();
    OpenCard(screen, "Abelson");
    Press(screen, "tb_SaveRec");
    ASSERT_EQ(log->records.size(), 1U);
    EXPECT_EQ(log->records[0].module, "frmCustMain.RecordAdd");
    ExpectReports(1, kReadOnly);
    EXPECT_EQ(EditOf(screen, "txtLastName").Text(), "Abelson");
    EXPECT_EQ(screen.SSIndexTab1.Page(), 0);
    EXPECT_TRUE(screen.mToolbarReady);
    EXPECT_FALSE(screen.Find("tb_SaveRec")->EffectivelyEnabled());
    EXPECT_TRUE(screen.Find("tb_EditRec")->EffectivelyEnabled());
    EXPECT_EQ(screen.StatusBar1.Panel(1), "");
    OpenNewPhone(screen);
    Press(screen, "tb_SaveRec");
    ExpectReports(1, kReadOnly);
    EXPECT_EQ(EditOf(screen, "txtPhoneComment").Text(), "new");
    EXPECT_EQ(screen.data[1].Recordset()->RecordCount(), 0);
  });
  EXPECT_EQ(LastNames(), "Abel,Bell\n");
}

// Whatever is typed is a text and never a part of a statement: on a server the same comes of it as in files.
TEST_F(ServerFaultsTest, HostileTextsDoTheSameAsInFiles) {
  const std::vector<std::string> texts{
      "O'Hara",  "''", "'; DROP TABLE \"Customers\"; --", "\" OR \"\" = \"", "$1", "\\'; --", "E'\\x'", "$$x$$", "100%", "a_b", "*", "?", "#", "[a-z]", "[", "![", "]",
      "x' RETURNING pg_sleep(5) --", "\xF0\x9F\x98\x80 smile", "M\xC3\xBCller", "a\tb", std::string("nul\0behind", 10), std::string(10'000, 'x'),
      std::string(5'000, '\''), "\xFF\xFE", "1; COMMIT; BEGIN", "{DIR}", "|", "NULL", "True"};
  const auto outcomes = [&](const std::string& file) {
    std::vector<std::string> all;
    Serve([&](frmCustMain& screen) {
      const auto note = [&](const std::string& what) {
        std::string noted = what;
        for (const auto& record : log->records) noted += " | " + record.module + ' ' + std::to_string(record.number);
        for (const auto& box : frontEnd->boxes) noted += " | " + box.text;
        all.push_back(noted);
        log->records.clear();
        frontEnd->boxes.clear();
      };
      for (const std::string& text : texts) {
        Press(screen, "tb_EditRec");
        EditOf(screen, "txtLastName").UserReplaceAll(text, 0);
        Press(screen, "tb_SaveRec");
        note("saved " + platform::CStr(platform::Concat("", screen.data[0].Recordset()->Field("LastName"))));
        screen.txtSearch[0].Text(text);
        screen.miFind.UserClick();
        note("found " + platform::CStr(platform::Concat("", screen.data[0].Recordset()->Field("LastName"))));
        screen.miSelect.UserClick();
        note("selected " + std::to_string(screen.data[0].Recordset()->RecordCount()));
        screen.miRefresh.UserClick();
        note("all " + std::to_string(screen.data[0].Recordset()->RecordCount()));
      }
    });
    const auto engine = engine::MakeEngine();
    const auto rows = engine->OpenControlDatabase(file)->OpenRecordset("SELECT LastName FROM Customers ORDER BY AcctNum");
    for (; !rows->Eof(); rows->MoveNext()) all.push_back(platform::CStr(platform::Concat("", rows->Field(0))));
    return all;
  };
  AddRows(CustomerFile(), "Customers", {"LastName", "Terms", "NonBillable", "DefaultPhoneNumber"}, {{"Abel", 2, false, 0}, {"Bell", 2, false, 0}});
  std::filesystem::remove(folder / "orv1.ini");
  const std::vector<std::string> inFiles = outcomes(CustomerFile());
  LeadTo(server_.PathOf(database_));
  const std::vector<std::string> onServer = outcomes(server_.PathOf(database_) + "orv1/customer.zdb");
  EXPECT_THAT(inFiles, testing::IsSupersetOf({"saved O'Hara", "found O'Hara", "selected 2", "all 2"}));
  EXPECT_EQ(onServer, inFiles);
  EXPECT_EQ(Ask("SELECT count(*) FROM orv1_customer.\"Customers\""), "2\n");
}

// The script that is shipped for it: one role makes companies, the other works in them.
TEST_F(ServerFaultsTest, TwoRolesAreEnough) {
  const std::string books = database_ + "_books";
  const std::string owner = database_ + "_owner";
  const std::string office = database_ + "_office";
  const std::string anna = database_ + "_anna";
  server_.CreateDatabase(books);
  const auto run = [&] { return server_.RunFile(books, ORCUSSCH_ROLES, {"owner=" + owner, "office=" + office}); };
  EXPECT_EQ(run(), "");
  ::setenv("PGUSER", owner.c_str(), 1);
  MakeCompanyAt(server_.PathOf(books));
  EXPECT_EQ(run(), "") << "it may be run again";
  server_.Run("postgres", "CREATE ROLE " + anna + " LOGIN IN ROLE " + office);
  ::setenv("PGUSER", anna.c_str(), 1);
  LeadTo(server_.PathOf(books));
  Serve([&](frmCustMain& screen) {
    ExpectNoReport();
    OpenCard(screen, "Abelson");
    Press(screen, "tb_SaveRec");
    OpenNewPhone(screen);
    Press(screen, "tb_SaveRec");
    ExpectNoReport();
  });
  EXPECT_EQ(server_.Run(books, "SELECT string_agg(\"LastName\", ',' ORDER BY \"AcctNum\") FROM orv1_customer.\"Customers\""), "Abelson,Bell\n");
  EXPECT_EQ(server_.Run(books, "SELECT count(*) FROM orv1_customer.\"Phones\""), "1\n");
  EXPECT_EQ(server_.Run(books, "SELECT count(*) FROM orv1_customer.\"~saves\""), "1\n") << "its saves are marked";
  const auto mayAs = [&](const std::string& role, const std::string& sql) {
    return !server_.Run(books, "SET ROLE " + role + "; BEGIN; " + sql + "; ROLLBACK").starts_with("ERROR");
  };
  EXPECT_TRUE(mayAs(owner, "CREATE SCHEMA more"));
  for (const char* forbidden : {"CREATE SCHEMA more", "CREATE TABLE orv1_customer.more (x int)", "CREATE TABLE public.more (x int)", "DROP TABLE orv1_customer.\"Phones\"",
                                "ALTER TABLE orv1_customer.\"Phones\" ADD COLUMN x int", "TRUNCATE orv1_customer.\"Phones\""})
    EXPECT_FALSE(mayAs(anna, forbidden)) << forbidden;
  ::setenv("PGUSER", "office", 1);
  app.reset();
  server_.DropDatabase(books);
}

// A password stands in the client library's own file, and nowhere else: not in what is told, nor in what others can see of the process.
TEST_F(ServerFaultsTest, NoPasswordIsEverShown) {
  const std::string role = database_ + "_anna";
  const std::string right = "sesame-4711";
  const std::string wrong = "wrong-0815";
  server_.AddRoleWithPassword(role, right);
  Ask("GRANT pg_read_all_data, pg_write_all_data TO " + role);
  const auto keep = [&](const std::string& password) {
    const std::string file = folder.Write("passwords", "*:*:*:" + role + ':' + password + '\n');
    std::filesystem::permissions(file, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    ::setenv("PGPASSFILE", file.c_str(), 1);
  };
  ::setenv("PGUSER", role.c_str(), 1);
  keep(right);
  Serve([&](frmCustMain& screen) {
    ExpectNoReport();
    OpenCard(screen, "Abelson");
    line.NextSave(Fault::CutBehind);
    Press(screen, "tb_SaveRec");
    ExpectNoReport();
    EXPECT_EQ(LastNames(), "Abelson,Bell\n");
    keep(wrong);
    OpenCard(screen, "Abelard");
    line.NextSave(Fault::CutBefore);
    Press(screen, "tb_SaveRec");
    EXPECT_FALSE(log->records.empty());
    EXPECT_EQ(EditOf(screen, "txtLastName").Text(), "Abelard");
  });
  // A path with one in it is refused, and not repeated.
  folder.Write("orv1.ini", "[Databases]\nDefault Path=postgresql://" + role + ':' + right + "@localhost/books/orv1/\n");
  orcussch::CustSearch host(*app);
  host.Let("UserID", 1);
  host.Let("CompanyID", 1);
  host.ShowUser();
  std::string all;
  for (const auto& record : log->records) all += record.module + record.description + '\n';
  for (const auto& box : frontEnd->boxes) all += box.text + box.title + '\n';
  all += ReadAll("/proc/self/cmdline") + ReadAll("/proc/self/comm");
  all += Ask("SELECT string_agg(application_name || query, ' ') FROM pg_stat_activity");
  for (const std::string& secret : {right, wrong}) EXPECT_EQ(all.find(secret), std::string::npos);
  EXPECT_FALSE(log->records.empty());
  ::unsetenv("PGPASSFILE");
}

}  // namespace
