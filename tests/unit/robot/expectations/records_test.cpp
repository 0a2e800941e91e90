#include <gtest/gtest.h>

#include "support/scenario_run.h"
#include "support/test_screens.h"

/// What happened since the last act; boxes, error reports and errors that nobody handled. Each command and expectation that holds and each
/// that does not, with its message.
namespace {

using test_support::frmFirst;
using test_support::InScreen;
using test_support::RunScenario;

TEST(SinceTheLastAct, StatusPointerAndProgress) {
  EXPECT_EQ(InScreen("click cmdWork\n expect status \"\"\n expect said \"Please wait!\"\n expect not said Other\n expect pointed 11\n"
                     "expect pointed 0\n expect pointer 0\n expect passed Progress1 10 20 30\n"
                     "click chkWanted\n expect not said \"Please wait!\"\n expect not pointed 11\n expect passed Progress1"),
            "");
  EXPECT_EQ(InScreen("click cmdWork\nexpect not said \"Please wait!\"\nexpect not pointed 11\nexpect said Other\nexpect pointed 3\n"
                     "expect passed Progress1 10 20"),
            "t.scn:3: expected not said \"Please wait!\", was said\n"
            "t.scn:4: expected not pointed 11, was 0 11\n"
            "t.scn:5: expected said \"Other\", was \"\" \"Please wait!\" \"\"\n"
            "t.scn:6: expected pointed 3, was 0 11\n"
            "t.scn:7: expected passed Progress1 \"10\" \"20\", was \"10\" \"20\" \"30\"\n");
}

TEST(SinceTheLastAct, CommandsAtAYield) {
  EXPECT_EQ(InScreen("at yield 2 expect Progress1 20\nat yield 2 refused tab SSIndexTab1 2\nat yield 3 click cmdSecond\nclick cmdWork\n"
                     "expect screen frmSecond\nclick cmdClose\nexpect passed Progress1"),
            "");
  EXPECT_EQ(InScreen("at yield 2 expect Progress1 30\nclick cmdWork"), "t.scn:2: expected Progress1 \"30\", was 20\n");
  EXPECT_EQ(InScreen("at yield 4 click cmdTell\nclick cmdWork"), "t.scn:2: expected yield 4 for click cmdTell, was 3 in all\n");
}

TEST(Boxes, TakenOldestFirst) {
  EXPECT_EQ(InScreen("expect no box\nclick cmdTell\nanswer Yes No\nclick cmdAsk\nexpect lblInfo \"Answer 6\"\nclick cmdAsk\n"
                     "expect lblInfo \"Answer 7\"\n"
                     "expect box \"First line\\rsecond \\\"line\\\"\" title Telling style 64\n"
                     "expect box Really? style 36\nexpect box like Real* title like Ask*\nexpect no box"),
            "");
  EXPECT_EQ(
      InScreen("click cmdTell\nexpect no box\nexpect box Other title Telling style 48\nexpect box Other"),
      "t.scn:3: expected no box, was \"First line\\rsecond \\\"line\\\"\"\n"
      "t.scn:4: expected box \"Other\" title \"Telling\" style 48, was \"First line\\rsecond \\\"line\\\"\" title \"Telling\" style 64\n"
      "t.scn:5: expected box \"Other\", was no box\n");
}

TEST(Boxes, UnexpectedOnesAreFailuresUnlessAllowed) {
  EXPECT_EQ(InScreen("click cmdTell"), "t.scn:2: expected no box, was \"First line\\rsecond \\\"line\\\"\" title \"Telling\"\n");
  EXPECT_EQ(InScreen("allow boxes\nclick cmdTell"), "");
}

TEST(Boxes, QuestionsNeedAnAnswerThatFits) {
  EXPECT_EQ(RunScenario("host ShowUser\nclick cmdAsk\nexpect box Really?\n").output,
            "t.scn:2: expected an answer, was the box \"Really?\"\n"
            "t.scn:2: expected no box, was \"Really?\" title \"Asking\"\n");
  EXPECT_EQ(RunScenario("allow boxes\nhost ShowUser\nanswer Cancel\nclick cmdAsk\n").output,
            "t.scn:4: expected the button Cancel, was the box \"Really?\"\n");
  EXPECT_EQ(RunScenario("answer Perhaps\n").output, "t.scn:1: expected answer Perhaps, was no button Perhaps\n");
}

TEST(Boxes, ABoxWithOnlyOkKeepsAnswersForQuestions) {
  EXPECT_EQ(InScreen("answer No\nclick cmdTell\nclick cmdAsk\nexpect lblInfo \"Answer 7\"\nexpect box like First*\nexpect box Really?\n"
                     "answer OK\nclick cmdTell\nexpect box like First*"),
            "");
}

TEST(Boxes, CommandsAtABox) {
  EXPECT_EQ(InScreen("answer Yes\nat box expect box Really?\nat box refused click cmdTell\nclick cmdAsk"), "");
  EXPECT_EQ(InScreen("at box expect no box\nclick cmdWork"), "t.scn:2: expected a box for expect no box, was none\n");
}

TEST(Boxes, ErrorReportsTakeTheirBoxAlong) {
  EXPECT_EQ(InScreen("expect no log\nclick cmdLog\nexpect log frmFirst.cmdLog 3061 \"Too few parameters.\""), "");
  EXPECT_EQ(InScreen("click cmdLog\nexpect log frmFirst.cmdLog any like *few*"), "");
  EXPECT_EQ(InScreen("click cmdLog\nexpect box like An*\nexpect log frmFirst.cmdLog"), "");
  EXPECT_EQ(InScreen("click cmdLog\nexpect no log\nexpect log frmFirst.cmdLog 3062"),
            "t.scn:3: expected no log, was \"frmFirst.cmdLog\" 3061 \"Too few parameters.\"\n"
            "t.scn:4: expected log frmFirst.cmdLog 3062, was \"frmFirst.cmdLog\" 3061 \"Too few parameters.\"\n");
  EXPECT_EQ(InScreen("expect log frmFirst.cmdLog"), "t.scn:2: expected log frmFirst.cmdLog, was no error report\n");
  EXPECT_EQ(InScreen("click cmdLog"), "t.scn:2: expected no error report, was frmFirst.cmdLog 3061 \"Too few parameters.\"\n");
}

TEST(Boxes, ErrorsThatNobodyHandled) {
  EXPECT_EQ(InScreen("click cmdFail\nexpect unhandled 3021\nexpect no box"), "");
  EXPECT_EQ(InScreen("click cmdFail\nexpect box \"No current record.\"\nexpect unhandled 3021"), "");
  EXPECT_EQ(InScreen("click cmdFail\nexpect unhandled 91"), "t.scn:3: expected unhandled 91, was 3021 \"No current record.\"\n");
  EXPECT_EQ(InScreen("expect unhandled 91"), "t.scn:2: expected unhandled 91, was none\n");
  EXPECT_EQ(InScreen("click cmdFail"), "t.scn:2: expected no unhandled error, was 3021 \"No current record.\"\n");
}

}  // namespace
