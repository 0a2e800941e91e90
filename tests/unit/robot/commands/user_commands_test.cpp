#include <gtest/gtest.h>

#include "support/scenario_run.h"
#include "support/test_screens.h"

/// What the user does with controls. Each command and expectation that holds and each that does not, with its message.
namespace {

using test_support::frmFirst;
using test_support::InScreen;
using test_support::RunScenario;
using test_support::ScenarioOptions;

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

}  // namespace
