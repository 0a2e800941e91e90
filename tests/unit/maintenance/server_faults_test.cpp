#include "server_faults_test.h"

#include "engine/errors.h"

// A company on a server that goes away, or lets its user only read: what the main screen's user sees of it.
namespace {

using orcussch::frmCustMain;
using platform::Value;
using Fault = FaultyProxy::Fault;

constexpr int kLost = 3043;
constexpr int kReadOnly = 3027;
constexpr int kNoDatabase = 3044;
constexpr int kNoRight = 3051;

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

// The database is away, as while it is restored under another name: each act is told once, the card stays, and the next act behind its
// return connects by itself.
TEST_F(ServerFaultsTest, WithoutItsDatabaseEachActIsToldOnceAndTheCardKeepsItsContent) {
  const std::string away = database_ + "_away";
  Serve([&](frmCustMain& screen) {
    OpenCard(screen, "Abelson");
    server_.Run("postgres", "SELECT pg_terminate_backend(pid, 5000) FROM pg_stat_activity WHERE datname = '" + database_ + "'");
    ASSERT_EQ(server_.Run("postgres", "ALTER DATABASE " + database_ + " RENAME TO " + away), "");
    Press(screen, "tb_SaveRec");
    ExpectOneOfASave(screen, kNoDatabase);
    Press(screen, "tb_EditRec");
    ExpectReports(1, kNoDatabase);
    EXPECT_TRUE(screen.Visible());
    ASSERT_EQ(server_.Run("postgres", "ALTER DATABASE " + away + " RENAME TO " + database_), "");
    ExpectNextSave(screen);
  });
}

// The administrator has taken a right away while people work, and gives it back.
struct LostRight {
  const char* taken;
  const char* given;
  int number;        ///< of what is refused
  bool cut = false;  ///< the desk's line was cut, too: it can't be made anew
};

class LostRightTest : public ServerFaultsTest, public testing::WithParamInterface<LostRight> {};

TEST_P(LostRightTest, IsToldOnceAndTheCardKeepsItsContent) {
  const std::string role = database_ + "_anna";
  const auto all = [&](std::string text) {
    for (const auto& [word, name] : {std::pair("ROLE", role), std::pair("BOOKS", database_)})
      for (std::size_t at = 0; (at = text.find(word, at)) != std::string::npos; at += name.size()) text.replace(at, std::string(word).size(), name);
    return text;
  };
  Ask(all("CREATE USER ROLE; REVOKE CONNECT ON DATABASE BOOKS FROM PUBLIC; GRANT CONNECT, TEMPORARY ON DATABASE BOOKS TO ROLE; "
          "GRANT USAGE ON SCHEMA orv1_dat, orv1_artrans, orv1_customer, orv1_flatrate, orv1_gl TO ROLE; "
          "GRANT SELECT ON ALL TABLES IN SCHEMA orv1_dat, orv1_artrans, orv1_flatrate, orv1_gl TO ROLE; "
          "GRANT ALL ON ALL TABLES IN SCHEMA orv1_customer TO ROLE; GRANT ALL ON ALL SEQUENCES IN SCHEMA orv1_customer TO ROLE"));
  ::setenv("PGUSER", role.c_str(), 1);
  Serve([&](frmCustMain& screen) {
    ExpectNoReport();
    OpenCard(screen, "Abelson");
    Ask(all(GetParam().taken));
    Press(screen, "tb_SaveRec");
    ExpectOneOfASave(screen, GetParam().number);
    EXPECT_EQ(LastNames(), "Abel,Bell\n");
    EXPECT_TRUE(screen.Visible());
    if (GetParam().cut) {
      Press(screen, "tb_EditRec");
      ExpectReports(1, GetParam().number);
    }
    Ask(all(GetParam().given));
    ExpectNextSave(screen);
  });
}

INSTANTIATE_TEST_SUITE_P(Rights, LostRightTest,
                         testing::Values(LostRight{"REVOKE USAGE ON SCHEMA orv1_customer FROM ROLE", "GRANT USAGE ON SCHEMA orv1_customer TO ROLE", kNoRight},
                                         LostRight{"REVOKE UPDATE ON orv1_customer.\"Customers\" FROM ROLE",
                                                   "GRANT UPDATE ON orv1_customer.\"Customers\" TO ROLE", kReadOnly},
                                         LostRight{"REVOKE CONNECT ON DATABASE BOOKS FROM ROLE; SELECT pg_terminate_backend(pid, 5000) FROM "
                                                   "pg_stat_activity WHERE usename = 'ROLE'",
                                                   "GRANT CONNECT ON DATABASE BOOKS TO ROLE", kNoRight, true},
                                         LostRight{"ALTER USER ROLE NOLOGIN; SELECT pg_terminate_backend(pid, 5000) FROM pg_stat_activity WHERE "
                                                   "usename = 'ROLE'",
                                                   "ALTER USER ROLE LOGIN", kNoRight, true}));

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

}  // namespace
