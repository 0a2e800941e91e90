#include <gtest/gtest.h>

#include "support/scenario_run.h"
#include "support/test_screens.h"

/// Other programs, and what is printed. Each command and expectation that holds and each that does not, with its message.
namespace {

using test_support::frmFirst;
using test_support::InScreen;
using test_support::RunScenario;

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
