#include <gtest/gtest.h>

#include <stdexcept>

#include "support/scenario_run.h"
#include "support/test_screens.h"

/// What the host does. Each command and expectation that holds and each that does not, with its message.
namespace {

using test_support::InScreen;
using test_support::RunScenario;

TEST(HostCommands, PropertiesAreSetAndRead) {
  EXPECT_EQ(RunScenario("host UserID 12\nexpect host userid 12\nexpect host Name \"\"\n").output, "");
  EXPECT_EQ(RunScenario("host Name \"x y\"\nexpect host Name x\n").output, "t.scn:2: expected host Name \"x\", was \"x y\"\n");
  EXPECT_EQ(RunScenario("host Nothing 1\n").output, "t.scn:1: expected host Nothing 1, was no property Nothing\n");
  EXPECT_EQ(RunScenario("expect host Nothing 1\n").output, "t.scn:1: expected host Nothing 1, was no property Nothing\n");
}

TEST(HostCommands, ReleaseMakesAFreshObjectAtTheNextUse) {
  EXPECT_EQ(RunScenario("host UserID 12\nhost release\nexpect host UserID 0\n").output, "");
}

TEST(HostCommands, AnErrorFromThePropertyIsUnhandled) {
  EXPECT_EQ(RunScenario("host Broken 1\nexpect unhandled 13\n").output, "");
  EXPECT_EQ(RunScenario("host Broken 1\n").output, "t.scn:1: expected no unhandled error, was 13 \"Type mismatch\"\n");
}

TEST(HostCommands, NotWhileShowUserRuns) {
  EXPECT_EQ(InScreen("refused host release\nrefused host ShowUser"), "");
  EXPECT_EQ(RunScenario("host ShowUser\nhost release\n").output, "t.scn:2: expected host release, was ShowUser running\n");
}

TEST(HostCommands, AnExceptionThatIsNoErrorEndsTheRunAndIsTold) {
  test_support::ScenarioOptions options;
  options.prepare = [](test_support::frmFirst& screen) { screen.txtName.GotFocus = [] { throw std::runtime_error("no such thing"); }; };
  const auto result = RunScenario("host ShowUser\nclose\n", options);
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output, "t.scn:1: expected host ShowUser, was no such thing\n");
}

TEST(HostCommands, SettingAPropertyLeavesWhatWaitsForAnActOfTheUser) {
  EXPECT_EQ(RunScenario("host ShowUser\nat yield 2 expect Progress1 20\nhost Name x\nclick cmdWork\nclose\n").output, "");
  EXPECT_EQ(RunScenario("at box expect no box\nhost Name x\n").output, "t.scn:1: expected a box for expect no box, was none\n");
}

TEST(HostCommands, SessionVariables) {
  EXPECT_EQ(RunScenario("expect session gAddPhone True\n").output, "");
  EXPECT_EQ(RunScenario("expect session gAddPhone False\n").output, "t.scn:1: expected session gAddPhone \"False\", was True\n");
  EXPECT_EQ(RunScenario("expect session gNothing 1\n").output, "t.scn:1: expected session gNothing 1, was no session variable gNothing\n");
}

TEST(HostCommands, TodayIsWhatTheProgramSees) {
  EXPECT_EQ(RunScenario("today 2/29/2024\nhost Name \"{today}\"\nexpect host Name 2/29/2024\n").output, "");
  EXPECT_EQ(RunScenario("today soon\n").status, 1);
}

TEST(HostCommands, WordsInBracesAreReplaced) {
  EXPECT_EQ(RunScenario("host Name \"{DIR} {local} {ThreadID} {Customers.AcctNum} {\"\n"
                        "expect host Name \"/suite /local 4711 {Customers.AcctNum} {\"\n")
                .output,
            "");
}

TEST(HostCommands, TheDataFolderMayLieOnAServer) {
  test_support::ScenarioOptions options;
  options.companies = "postgresql://db/suite/";
  EXPECT_EQ(RunScenario("host Name \"{DIR}/data/orv2/GL.zdb|{dir}/data|{DIR}/dat.zdb {DIR}/it's/c.zdb {DIR}/ARCusLst.Rpt {SERVER}/orv1\"\n"
                        "expect host Name \"postgresql://db/suite/orv2/GL.zdb|/suite/data|postgresql://db/suite/dat.zdb "
                        "postgresql://db/suite/it's/c.zdb /suite/ARCusLst.Rpt postgresql://db/suite/orv1\"\n",
                        options)
                .output,
            "");
}

}  // namespace
