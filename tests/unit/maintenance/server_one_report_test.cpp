#include <algorithm>
#include <functional>

#include "server_faults_test.h"

// One act, one report: an act of many statements meets the same end of the server in each of them.
namespace {

using orcussch::frmCustMain;

constexpr int kLost = 3043;
constexpr int kNoDatabase = 3044;

struct Act {
  const char* name;
  std::function<void(frmCustMain&)> prepare;
  std::function<void(frmCustMain&)> act;
};

void PressKey(frmCustMain& screen, const char* key) { dynamic_cast<platform::ToolbarButton&>(*screen.Find(key)).UserClick(); }

std::vector<Act> Acts() {
  const auto nothing = [](frmCustMain&) {};
  const auto press = [](const char* key) { return [key](frmCustMain& screen) { PressKey(screen, key); }; };
  const auto onPhones = [](frmCustMain& screen) { screen.SSIndexTab1.UserClick(orcussch::tab::Phones); };
  const auto turnTo = [](int tab) { return [tab](frmCustMain& screen) { screen.SSIndexTab1.UserClick(tab); }; };
  std::vector<Act> acts{
      {"edit", nothing, press("tb_EditRec")},
      {"add", nothing, press("tb_AddRec")},
      {"delete", nothing, press("tb_DeleteRec")},
      {"refresh", nothing, press("tb_Refresh")},
      {"find",
       [](frmCustMain& screen) { screen.txtSearch[0].Text("Bell"); },
       press("tb_Find")},
      {"select",
       [](frmCustMain& screen) { screen.txtSearch[0].Text("Bell"); },
       press("tb_Select")},
      {"save",
       [](frmCustMain& screen) {
         PressKey(screen, "tb_EditRec");
         EditOf(screen, "txtLastName").UserReplaceAll("Abelson", 0);
       },
       press("tb_SaveRec")},
      {"cancel", press("tb_EditRec"), press("tb_CancelRec")},
      {"add a phone", onPhones, press("tb_AddRec")},
      {"refresh phones", onPhones, press("tb_Refresh")},
      {"back to the customers", onPhones, turnTo(orcussch::tab::Customers)},
  };
  for (int tab = 1; tab <= 6; ++tab) acts.push_back({"tab", nothing, turnTo(tab)});
  return acts;
}

class OneReportTest : public ServerFaultsTest, public testing::WithParamInterface<bool> {};

TEST_P(OneReportTest, OfEachActWhileTheServerIsAway) {
  const std::string away = database_ + "_away";
  const auto take = [&] {
    if (!GetParam()) return server_.Stop();
    server_.Run("postgres", "SELECT pg_terminate_backend(pid, 5000) FROM pg_stat_activity WHERE datname = '" + database_ + "'");
    ASSERT_EQ(server_.Run("postgres", "ALTER DATABASE " + database_ + " RENAME TO " + away), "");
  };
  const auto giveBack = [&] {
    if (!GetParam()) return server_.Start();
    ASSERT_EQ(server_.Run("postgres", "ALTER DATABASE " + away + " RENAME TO " + database_), "");
  };
  frontEnd->answer = platform::box::Yes;
  std::size_t told = 0;
  for (const Act& act : Acts())
    Serve([&](frmCustMain& screen) {
      act.prepare(screen);
      ExpectNoReport();
      take();
      act.act(screen);
      EXPECT_LE(log->records.size(), 1U) << act.name;
      // Questions come, too.
      const auto telling = [](const auto& box) { return (box.style & 0xF) != platform::box::YesNo; };
      EXPECT_EQ(std::ranges::count_if(frontEnd->boxes, telling), static_cast<std::ptrdiff_t>(log->records.size())) << act.name;
      for (const auto& record : log->records) EXPECT_THAT(record.number, testing::AnyOf(kLost, kNoDatabase)) << act.name << ": " << record.module;
      told += log->records.size();
      giveBack();
      log->records.clear();
      frontEnd->boxes.clear();
      PressKey(screen, "tb_Refresh");
      ExpectNoReport();
      EXPECT_EQ(screen.data[0].Recordset()->RecordCount(), 2) << act.name;
    });
  EXPECT_GE(told, 8U) << "most acts need the server";
}

// A desk that was open before the server was started anew, and is opened in the morning.
TEST_F(ServerFaultsTest, AServerThatWasStartedAnewBetweenTwoSessionsIsNoNews) {
  Serve([&](frmCustMain&) {});
  server_.Stop();
  server_.Start();
  Serve([&](frmCustMain& screen) { EXPECT_EQ(screen.data[0].Recordset()->RecordCount(), 2); });
  ExpectNoReport();
}

INSTANTIATE_TEST_SUITE_P(Away, OneReportTest, testing::Bool());

}  // namespace
