#include <gtest/gtest.h>

#include "support/scenario_run.h"
#include "support/test_screens.h"

/// Commands and expectations that need no data: each that holds and each that does not, with its message.
namespace {

using test_support::frmFirst;
using test_support::RunScenario;
using test_support::ScenarioOptions;

/// What the scenario prints when it is run inside ShowUser and the screen is closed at its end; "" when all holds.
std::string InScreen(const std::string& commands) { return RunScenario("host ShowUser\n" + commands + "\nclose\n").output; }

// ---- host

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

// ---- clicking and typing

TEST(UserCommands, ClickingEachKindOfControl) {
  EXPECT_EQ(InScreen("click chkWanted\n expect lblInfo \"Wanted 1\"\n expect focus chkWanted\n expect chkWanted 1\n"
                     "click optWay(1)\n expect lblInfo \"Way 1\"\n expect optWay(1) True\n expect optWay(0) False\n"
                     "click tb_Find\n expect lblInfo \"Key tb_Find\"\n expect focus optWay(1)\n"
                     "click miFind\n expect lblInfo \"Item Find\"\n"
                     "dblclick lstLines\n expect lblInfo \"Line twice\""),
            "");
  EXPECT_EQ(RunScenario("host ShowUser\nclick lblInfo\n").output, "t.scn:2: expected click lblInfo, was lblInfo nothing to click on\n");
}

TEST(UserCommands, CheckBoxesAreClickedWhenNeeded) {
  EXPECT_EQ(InScreen("check chkWanted\n expect lblInfo \"Wanted 1\"\n put txtName x\n check chkWanted\n expect lblInfo \"Name x\"\n"
                     "uncheck chkWanted\n expect lblInfo \"Wanted 0\""),
            "");
  EXPECT_EQ(RunScenario("host ShowUser\ncheck optWay(0)\n").output, "t.scn:2: expected check optWay(0), was optWay(0) no check box\n");
}

TEST(UserCommands, TypingReplacesAppendsAndPassesTheMask) {
  EXPECT_EQ(InScreen("type txtName abc\n expect txtName abc\n expect focus txtName\n expect lblInfo \"Name abc\"\n"
                     "append txtName de\n expect txtName abcde\n"
                     "type txtName xy\n expect txtName xy\n"
                     "type txtName \"\"\n expect txtName \"\"\n"
                     "type txtName repeat 6 ab\n expect txtName ababababab\n"
                     "type txtPhone 5x5-512345\n expect txtPhone 5551234\n expect txtPhone.DisplayText 555-1234\n"
                     "put txtPhone anything\n expect txtPhone.Text anything\n"
                     "type cboColor green\n expect cboColor Green\n expect cboColor.BoundValue G"),
            "");
  EXPECT_EQ(RunScenario("host ShowUser\ntype chkWanted x\n").output, "t.scn:2: expected type chkWanted x, was chkWanted no text to type\n");
  EXPECT_EQ(RunScenario("host ShowUser\ntype txtName again 2 x\n").output,
            "t.scn:2: expected type txtName again 2 x, was no TEXT or repeat N TEXT\n");
}

TEST(UserCommands, NumbersReadAsPlainNumbers) {
  EXPECT_EQ(InScreen("type txtNumber 12.50\n expect txtNumber.Value 12.5\n"
                     "type txtMoney 7\n expect txtMoney.Value 7.00\n"
                     "type txtDate 3/4/2024\n expect txtDate.Value 3/4/2024\n type txtDate \"\"\n expect txtDate.Value Null"),
            "");
}

TEST(UserCommands, Keys) {
  EXPECT_EQ(
      InScreen(
          "key txtName Enter\n expect lblInfo \"Enter in name\"\n"
          "key txtName Tab\n expect focus txtPhone\n key txtPhone Shift+Tab\n expect focus txtName\n"
          "type txtName abc\n key txtName Home\n key txtName Delete\n expect txtName bc\n key txtName End\n key txtName Backspace\n"
          "expect txtName b\n key txtName Z\n expect txtName bZ\n key txtName Space\n expect txtName \"bZ \"\n"
          "key chkWanted Space\n expect chkWanted 1\n key cmdTell Enter\n expect box like First*\n"
          "key cboColor Down\n expect cboColor Red\n key cboColor Down\n expect cboColor Green\n key cboColor Up\n expect cboColor Red\n"
          "key lstLines End\n expect lstLines two\n key Scroll1 Right\n expect Scroll1 1\n"
          "key txtName F3\n expect lblInfo \"Item Find\"\n key txtName Ctrl+S\n expect lblInfo \"Key tb_SaveRec\"\n"
          "key txtName Ctrl+Tab\n expect SSIndexTab1 1"),
      "");
  EXPECT_EQ(RunScenario("host ShowUser\nkey txtName Hyper\n").output, "t.scn:2: expected key txtName Hyper, was no key Hyper\n");
  EXPECT_EQ(RunScenario("host ShowUser\nkey lblInfo Enter\n").output,
            "t.scn:2: expected key lblInfo Enter, was lblInfo without the focus at any time\n");
}

TEST(UserCommands, Combos) {
  EXPECT_EQ(InScreen("pick cboColor Green\n expect cboColor.BoundValue G\n expect lblInfo \"Color G\"\n expect rows cboColor 2\n"
                     "pick cboColor key R\n expect cboColor Red\n pick cboColor \"\"\n expect cboColor \"\"\n refused pick cboColor Blue"),
            "");
  EXPECT_EQ(RunScenario("host ShowUser\npick cboColor Blue\n").output,
            "t.scn:2: expected pick cboColor Blue, was no row Blue of cboColor\n");
}

TEST(UserCommands, TabsThatStayAreNoFailure) {
  EXPECT_EQ(InScreen("tab SSIndexTab1 1\n expect SSIndexTab1 1\n tab SSIndexTab1 2\n expect SSIndexTab1 1\n refused tab SSIndexTab1 2\n"
                     "check chkWanted\n tab SSIndexTab1 2\n expect SSIndexTab1 2"),
            "");
  EXPECT_EQ(InScreen("refused tab SSIndexTab1 1"), "t.scn:2: expected a refusal of tab SSIndexTab1 1, was done\n");
  EXPECT_EQ(RunScenario("host ShowUser\ntab SSIndexTab1 9\n").output, "t.scn:2: expected tab SSIndexTab1 9, was no tab 9\n");
}

TEST(UserCommands, SlidersSpinsAndTheMouse) {
  EXPECT_EQ(InScreen("slide Scroll1 40\n expect lblInfo \"Scrolled 40\"\n refused slide Scroll1 101\n spin Spin1 up\n expect lblInfo Up\n"
                     "spin Spin1 down\n expect lblInfo Down\n hover cmdTell\n expect status \"over the button\"\n"
                     "hover frmFirst\n expect status \"over the screen\"\n row lstLines 1\n expect lstLines two\n refused row lstLines 2"),
            "");
}

TEST(UserCommands, WhatTheUserCanNotReachIsRefused) {
  EXPECT_EQ(InScreen("refused type txtLocked x\nrefused click tb_Hidden\nrefused type txtOnTab x\ntab SSIndexTab1 1\ntype txtOnTab x"), "");
  ScenarioOptions closed;
  closed.prepare = [](frmFirst& screen) {
    screen.fraBox.Enabled(false);
    screen.cmdTell.Enabled(false);
  };
  EXPECT_EQ(RunScenario("host ShowUser\nrefused type txtInBox x\nrefused click cmdTell\nclose\n", closed).output, "");
  EXPECT_EQ(RunScenario("host ShowUser\nclick cmdTell\nclick cmdAsk\n", closed).output,
            "t.scn:2: expected click cmdTell, was cmdTell disabled\n");
  EXPECT_EQ(RunScenario("host ShowUser\nclick cmdSecond\nrefused click frmFirst.cmdTell\nclick cmdClose\nclose\n").output, "");
  EXPECT_EQ(RunScenario("host ShowUser\nclick cmdSecond\nclick frmFirst.cmdTell\n").output,
            "t.scn:3: expected click frmFirst.cmdTell, was cmdTell not on the top screen\n");
  EXPECT_EQ(RunScenario("click cmdTell\n").output, "t.scn:1: expected click cmdTell, was no screen up that has cmdTell\n");
  EXPECT_EQ(RunScenario("host ShowUser\nrefused click cmdNothing\n").output,
            "t.scn:2: expected refused click cmdNothing, was no control cmdNothing on frmFirst\n");
}

// ---- screens

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
      "t.scn:5: expected focus txtPhone, was nowhere\n"
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

// ---- since the last user command

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

// ---- boxes, errors, dialogs

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

TEST(Doubles, PrinterDialog) {
  EXPECT_EQ(
      InScreen(
          "expect no dialog\nanswer printer 2 5 3\nclick cmdPrinter\nexpect dialog Printer\nexpect no dialog\nexpect lblInfo \"Pages "
          "2-5\"\n"
          "expect CommonDialog1.Copies 3\nanswer printer cancel\nclick cmdPrinter\nexpect CommonDialog1.ToPage 5\nexpect dialog printer"),
      "");
  EXPECT_EQ(RunScenario("host ShowUser\nclick cmdPrinter\n").output, "t.scn:2: expected an answer printer, was the printer dialog\n");
  EXPECT_EQ(InScreen("expect dialog Printer\nanswer printer cancel\nclick cmdPrinter\nexpect no dialog"),
            "t.scn:2: expected dialog Printer, was none\n"
            "t.scn:5: expected no dialog, was Printer\n");
}

TEST(Doubles, Reports) {
  EXPECT_EQ(
      InScreen(
          "expect report Runs 0\nexpect report ReportFileName none\nexpect report Destination none\nexpect report DiscardSavedData "
          "none\nclick cmdPrint\nexpect lblInfo \"Printed 0\"\n"
          "expect report ReportFileName List.Rpt\nexpect report frmFirst.Formulas(0) \"Title=\\\"x\\\"\"\nexpect report Formulas(1) none\n"
          "expect report WindowTitle \"\"\nexpect report SelectionFormula none\n"
          "expect report Destination 1\nanswer report 20507\nclick cmdPrint\nexpect lblInfo \"Printed 20507\"\nexpect report Runs 2"),
      "");
  EXPECT_EQ(InScreen("expect report Runs 1\nexpect report ReportFileName x\nexpect report Color 1\nexpect report frmSecond.Runs 0"),
            "t.scn:2: expected report Runs \"1\", was 0\n"
            "t.scn:3: expected report ReportFileName \"x\", was none\n"
            "t.scn:4: expected report Color 1, was no report property Color\n"
            "t.scn:5: expected report frmSecond.Runs 0, was no report frmSecond.Runs\n");
}

TEST(Doubles, AnswersForReportsWaitInLine) {
  EXPECT_EQ(InScreen("answer report 5\nanswer report 7\nclick cmdPrint\nexpect lblInfo \"Printed 5\"\nclick cmdPrint\n"
                     "expect lblInfo \"Printed 7\"\nclick cmdPrint\nexpect lblInfo \"Printed 0\"\nexpect report Runs 3"),
            "");
}

TEST(Doubles, TheMap) {
  EXPECT_EQ(
      InScreen(
          "answer map \"1 Main St,Springfield\" at 40 -90 result 32 \"-90 40 First\" \"-91 41 Second\"\nclick cmdMap\n"
          "expect lblInfo \"Candidates 2 distance 7\"\nexpect map Actions 25 1 3 23 24 0\nexpect map Addresses \"1 Main St,Springfield\"\n"
          "expect map Pins 17\nexpect map Pin(17).Text Smith\nexpect map Pin(17).Latitude 40\nexpect map Drawn.MapWidth 26400\n"
          "expect map Pin(18).Text none\npin cmdMap 17\nexpect lblInfo \"Pin 17\"\nexpect map Actions\nrefused pin cmdMap 18"),
      "");
  EXPECT_EQ(InScreen("expect map Drawn none\nclick cmdMap\nexpect map Drawn none\nexpect map Pins 18\nexpect map Pin(17).Longitude 1\n"
                     "expect map Drawn.Longitude 1\nexpect map Color 1"),
            "t.scn:4: expected map Drawn \"none\", was \"drawn\"\n"
            "t.scn:5: expected map Pins \"18\", was \"17\"\n"
            "t.scn:6: expected map Pin(17).Longitude \"1\", was 0\n"
            "t.scn:7: expected map Drawn.Longitude \"1\", was 0\n"
            "t.scn:8: expected map Color 1, was nothing called map Color\n");
}

TEST(Doubles, TheAccountsLookUp) {
  EXPECT_EQ(
      InScreen("answer account 20100 001 Payables Main\nclick cmdAccount\nexpect lblInfo \"Account 20100-001\"\nexpect lookup 1 Acme\n"
               "expect lookup 5 2\nanswer account cancel\nclick cmdAccount\nexpect lblInfo \"No account\"\nexpect no dialog"),
      "");
  EXPECT_EQ(InScreen("expect lookup 1 x\nanswer account cancel\nclick cmdAccount\nexpect lookup 1 x"),
            "t.scn:2: expected lookup 1 \"x\", was no look-up\n"
            "t.scn:5: expected lookup 1 \"x\", was \"Acme\"\n");
  EXPECT_EQ(RunScenario("host ShowUser\nclick cmdAccount\n").output,
            "t.scn:2: expected an answer account, was the accounts look-up with no answer\n");
}

// ---- other programs, printing

TEST(OtherPrograms, RunMustEndWell) {
  EXPECT_EQ(RunScenario("run good {DIR}\n").output, "");
  EXPECT_EQ(RunScenario("run bad x\n").output, "t.scn:1: expected run bad x, was exit status 7\n");
  EXPECT_EQ(RunScenario("run other x\n").output, "t.scn:1: expected run other x, was no program other\n");
}

TEST(Printing, ValuesGoToTheOutput) {
  EXPECT_EQ(InScreen("type txtName abc\nprint txtName\nprint txtName.MaxLength\nprint host UserID\nprint frmFirst"), "abc\n10\n0\nFirst\n");
}

TEST(Printing, ExitStatus) {
  EXPECT_EQ(RunScenario("expect screen none\n").status, 0);
  EXPECT_EQ(RunScenario("expect screen frmFirst\n").status, 1);
  EXPECT_EQ(RunScenario("expect\n").status, 2);
}

}  // namespace
