// The end of the main screen as the host sees it: where it gets its turn, and what is still there then.
#include "support/main_screen_test.h"

namespace {

using MainScreenEnds = MainScreenTest;

TEST_F(MainScreenEnds, TheHostGetsItsTurnFiveTimesBeforeTheScreenHasGone) {
  int turns = 0;
  Serve([&](orcussch::frmCustMain&) {
    frontEnd->onYield = [&] { turns += orcussch::screens::frmCustMain.peek() != nullptr ? 1 : 0; };
  });
  frontEnd->onYield = nullptr;
  // At the beginning; when the other screens have gone, and once within that; twice when the files are closed.
  EXPECT_EQ(turns, 5);
}

}  // namespace
