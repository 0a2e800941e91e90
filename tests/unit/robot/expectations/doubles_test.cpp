#include <gtest/gtest.h>

#include "support/scenario_run.h"
#include "support/test_screens.h"

/// What the printer dialog, the reports, the map and the accounts look-up were given. Each command and expectation that holds and each that
/// does not, with its message.
namespace {

using test_support::frmFirst;
using test_support::InScreen;
using test_support::RunScenario;

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

}  // namespace
