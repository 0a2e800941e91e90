#include <gtest/gtest.h>

#include "support/scenario_run.h"
#include "support/test_screens.h"

/// Which screens are up, and what state their controls are in. Each command and expectation that holds and each that does not, with its
/// message.
namespace {

using test_support::frmFirst;
using test_support::InScreen;
using test_support::RunScenario;
using test_support::ScenarioOptions;

TEST(Screens, ModalScreensNest) {
  EXPECT_EQ(InScreen("click cmdSecond\n expect screen frmSecond\n expect loaded frmFirst\n expect frmFirst.lblInfo Info\n"
                     "type txtSecond hello\n click cmdClose\n expect screen frmFirst\n expect not loaded frmSecond\n"
                     "expect lblInfo \"Second said hello\""),
            "");
}

TEST(Screens, AScreenThatIsLoadingIsModalAlready) {
  EXPECT_EQ(InScreen("at yield 1 expect screen frmFirst\nat yield 1 expect loaded frmSecond\nat yield 1 refused click cmdTell\n"
                     "click cmdSecond\nclick cmdClose"),
            "");
}

TEST(Screens, StateExpectations) {
  EXPECT_EQ(
      InScreen("expect enabled txtName\nexpect visible txtName\nexpect hidden txtOnTab\nexpect hidden tb_Hidden\nexpect ready\n"
               "expect txtName.MaxLength 10\nexpect txtPhone.Mask %%%-%%%%\nexpect frmFirst First\nexpect tb_Find.ToolTipText \"Find it\"\n"
               "expect tip tb_Find \"Find it\"\nexpect keys Toolbar1 tb_Find tb_SaveRec tb_Hidden\nexpect items mnuFile miFind miExit\n"
               "expect items lstLines one two\nexpect rows lstLines 2\nexpect SSIndexTab1.TabEnabled(2) True\n"
               "expect SSIndexTab1.TabCaption(0) First\nexpect pointer 0\nexpect cmdTell Tell\nexpect miFind Find"),
      "");
  EXPECT_EQ(
      InScreen("expect disabled txtName\nexpect hidden txtName\nexpect not ready\nexpect focus txtPhone\nexpect screen none\n"
               "expect loaded frmSecond\nexpect not loaded frmFirst\nexpect tip tb_Find x\nexpect keys Toolbar1 tb_Find\n"
               "expect items mnuFile miExit miFind\nexpect pointer 11\nexpect status x\nexpect txtName.Nothing 1\nexpect txtNothing 1\n"
               "expect visible txtOnTab\nexpect enabled txtNothing\nexpect rows lstLines 3"),
      "t.scn:2: expected disabled txtName, was enabled\n"
      "t.scn:3: expected hidden txtName, was visible\n"
      "t.scn:4: expected not ready, was ready\n"
      "t.scn:5: expected focus txtPhone, was txtName\n"
      "t.scn:6: expected screen none, was frmFirst\n"
      "t.scn:7: expected loaded frmSecond, was not loaded\n"
      "t.scn:8: expected not loaded frmFirst, was loaded\n"
      "t.scn:9: expected tip tb_Find \"x\", was \"Find it\"\n"
      "t.scn:10: expected keys Toolbar1 \"tb_Find\", was \"tb_Find\" \"tb_SaveRec\" \"tb_Hidden\"\n"
      "t.scn:11: expected items mnuFile \"miExit\" \"miFind\", was \"miFind\" \"miExit\"\n"
      "t.scn:12: expected pointer 11, was 0\n"
      "t.scn:13: expected status \"x\", was \"\"\n"
      "t.scn:14: expected txtName.Nothing 1, was no property Nothing of txtName\n"
      "t.scn:15: expected txtNothing 1, was no control txtNothing on frmFirst\n"
      "t.scn:16: expected visible txtOnTab, was hidden\n"
      "t.scn:17: expected enabled txtNothing, was no control txtNothing on frmFirst\n"
      "t.scn:18: expected rows lstLines 3, was 2\n");
}

TEST(Screens, ScreensLeftUpAreClosedAndAFailure) {
  bool unloaded = false;
  ScenarioOptions options;
  options.inspect = [&](const frmFirst& screen) { unloaded = screen.unloaded; };
  const auto result = RunScenario("host ShowUser\nclick cmdSecond\n", options);
  EXPECT_EQ(result.output, "t.scn:2: expected no screen at the end, was frmSecond\n");
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(unloaded);
}

TEST(Screens, ClosedByTheFrame) { EXPECT_EQ(RunScenario("host ShowUser\nclose\nexpect screen none\nrefused close\n").output, ""); }

TEST(Screens, AFailedActionEndsTheRun) {
  const auto result = RunScenario("host ShowUser\nexpect txtName x\nclick cmdSecond\nclick cmdNothing\nexpect txtName y\n");
  EXPECT_EQ(result.output,
            "t.scn:2: expected txtName \"x\", was \"\"\n"
            "t.scn:4: expected click cmdNothing, was no control cmdNothing on frmSecond\n");
  EXPECT_EQ(result.status, 1);
}

}  // namespace
