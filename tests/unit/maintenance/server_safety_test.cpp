#include <functional>

#include "queries/frmCustQueries.h"
#include "server_faults_test.h"
#include "session/ModCustSch.h"

// What is typed, who may do what, and what is shown of it, in a company on a server.
namespace {

using orcussch::frmCustMain;
using Fault = FaultyProxy::Fault;

// Texts that would do harm as part of a statement, a pattern, a value of the client library or a settings file.
std::vector<std::string> HostileTexts() {
  return {
      "O'Hara",  "''", "'; DROP TABLE \"Customers\"; --", "\" OR \"\" = \"", "$1", "\\'; --", "E'\\x'", "$$x$$", "100%", "a_b", "*", "?", "#", "[a-z]", "[", "![", "]",
      "x' RETURNING pg_sleep(5) --", "\xF0\x9F\x98\x80 smile", "M\xC3\xBCller", "a\tb", std::string("nul\0behind", 10), std::string(10'000, 'x'),
      std::string(5'000, '\''), "\xFF\xFE", "1; COMMIT; BEGIN", "{DIR}", "|", "NULL", "True"};
}

// Whatever is typed is a text and never a part of a statement: on a server the same comes of it as in files.
TEST_F(ServerFaultsTest, HostileTextsDoTheSameAsInFiles) {
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
      for (const std::string& text : HostileTexts()) {
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

// The same through each box of the query screen that takes a text, with each way of comparing.
TEST_F(ServerFaultsTest, HostileTextsAskTheSameAsInFiles) {
  using orcussch::frmCustQueries;
  namespace criteria = orcussch::criteria;
  const auto outcomes = [&] {
    std::vector<std::string> all;
    std::function<void(frmCustQueries&)> ask;
    const auto onMain = [&](frmCustMain& main) {
      const auto run = [&](const std::string& what, const std::function<void(frmCustQueries&)>& act) {
        ask = act;
        main.Toolbar1.Button("tb_Queries").UserClick();
        std::string noted = what + " finds " + std::to_string(main.data[0].Recordset()->RecordCount());
        for (const auto& record : log->records) noted += " | " + record.module + ' ' + std::to_string(record.number) + ' ' + record.description;
        for (const auto& box : frontEnd->boxes) noted += " | " + box.text;
        all.push_back(noted);
        log->records.clear();
        frontEnd->boxes.clear();
      };
      const auto turn = [](platform::CheckBox& box) {
        if (box.Value() == 0) box.UserClick();
      };
      const auto begin = [&](frmCustQueries& s) {
        if (s.chkSelectAll.Value() == 0) s.chkSelectAll.UserClick();
      };
      int way = 0;
      for (const std::string& text : HostileTexts()) {
        ++way;
        for (int i = 0; i < criteria::kTexts; ++i)
          run("text " + std::to_string(i), [&](frmCustQueries& s) {
            begin(s);
            s.SSTab1.UserClick(criteria::Names);
            turn(s.chkSelectNameAdd[i]);
            const auto rows = s.cboSQL[i].Rows();
            s.cboSQL[i].UserPick(rows.at(static_cast<std::size_t>(way + i) % rows.size()));
            s.txtNameAdd[i].UserReplaceAll(text, 0);
          });
        const auto misc = [&](const char* name, criteria::MiscCriterion criterion, const std::function<platform::TextBox&(frmCustQueries&)>& box) {
          run(name, [&](frmCustQueries& s) {
            begin(s);
            s.SSTab1.UserClick(criteria::Misc);
            turn(s.chkSelectMisc[criterion]);
            box(s).UserReplaceAll(text, 0);
          });
        };
        misc("invoice", criteria::InvoiceNo, [](frmCustQueries& s) -> platform::TextBox& { return s.txtInvoiceNo; });
        misc("card", criteria::CreditCard, [](frmCustQueries& s) -> platform::TextBox& { return s.txtCreditCard; });
        misc("check", criteria::CheckNo, [](frmCustQueries& s) -> platform::TextBox& { return s.txtCheckNo; });
        misc("tax number", criteria::TaxID, [](frmCustQueries& s) -> platform::TextBox& { return s.txtTaxID; });
        for (int list = 0; list < criteria::kLists; ++list) {
          const auto criterion = list == 0 ? criteria::KeyWords : criteria::CustomerTypes;
          run("search in list " + std::to_string(list), [&](frmCustQueries& s) {
            begin(s);
            s.SSTab1.UserClick(criteria::Misc);
            turn(s.chkSelectMisc[criterion]);
            s.txtSearch[list].UserReplaceAll(text, 0);
            s.txtSearch[list].UserType("\r");
          });
        }
      }
    };
    orcussch::CustSearch host(*app);
    host.Let("UserID", 1);
    host.Let("CompanyID", 1);
    frontEnd->serve = [&](platform::Form& form) {
      if (auto* main = dynamic_cast<frmCustMain*>(&form)) onMain(*main);
      if (auto* queries = dynamic_cast<frmCustQueries*>(&form)) {
        ask(*queries);
        all.push_back(queries->txtSearch[0].Text() + queries->txtSearch[1].Text());
        queries->Toolbar1.Button("tb_RunQuery").UserClick();
        all.push_back(orcussch::gQuerySQL);
      }
    };
    host.ShowUser();
    frontEnd->serve = nullptr;
    return all;
  };
  const auto fill = [](const std::string& place) {
    AddRows(place + "customer.zdb", "Keywords", {"Keyword"}, {{"Boiler"}, {"O'Hara"}, {"[a-z]"}});
    AddRows(place + "customer.zdb", "Customers", {"LastName", "Terms", "NonBillable", "DefaultPhoneNumber"},
            {{"O'Hara", 2, false, 0}, {"$1", 2, false, 0}, {"100%", 2, false, 0}, {"M\xC3\xBCller", 2, false, 0}});
  };
  fill(folder / "data/orv1/");
  fill(server_.PathOf(database_) + "orv1/");
  AddRows(CustomerFile(), "Customers", {"LastName", "Terms", "NonBillable", "DefaultPhoneNumber"}, {{"Abel", 2, false, 0}, {"Bell", 2, false, 0}});
  std::filesystem::remove(folder / "orv1.ini");
  const std::vector<std::string> inFiles = outcomes();
  LeadTo(server_.PathOf(database_));
  EXPECT_EQ(outcomes(), inFiles);
  EXPECT_THAT(inFiles, testing::Contains("text 0 finds 1"));
  EXPECT_GT(inFiles.size(), HostileTexts().size() * 30);
  EXPECT_EQ(Ask("SELECT count(*) FROM orv1_customer.\"Customers\""), "6\n");
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
