#include "support/every_control.h"

// Where the focus goes, and what fires when it moves.
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Focus = ScreenTest;

TEST_F(Focus, OneMoveFiresTheOldOneThenTheNewOne) {
  screen->txtText.SetFocus();
  screen->txtPhone.SetFocus();
  screen->txtPhone.SetFocus();
  EXPECT_THAT(screen->Seen(), ElementsAre("GotFocus txtText", "LostFocus txtText", "GotFocus txtPhone"));
}

TEST_F(Focus, AMoveAskedForInsideWaitsForBoth) {
  screen->txtText.SetFocus();
  screen->txtText.LostFocus = [this] {
    screen->seen.emplace_back("LostFocus txtText");
    screen->cmdGo.SetFocus();
  };
  screen->Seen();
  screen->txtPhone.SetFocus();
  EXPECT_THAT(screen->Seen(), ElementsAre("LostFocus txtText", "GotFocus txtPhone", "LostFocus txtPhone", "GotFocus cmdGo"));
  EXPECT_EQ(screen->Focus(), &screen->cmdGo);
}

TEST_F(Focus, HiddenAndClosedControlsTakeNone) {
  screen->txtText.SetFocus();
  screen->Seen();
  screen->txtPhone.Enabled(false);
  screen->txtPhone.SetFocus();
  screen->cmdGo.Visible(false);
  screen->cmdGo.SetFocus();
  screen->fraBox.Enabled(false);
  screen->txtInBox.SetFocus();
  EXPECT_EQ(screen->Focus(), &screen->txtText);
  EXPECT_THAT(screen->Seen(), IsEmpty());
}

TEST_F(Focus, AControlThatGoesHandsItToTheNextOne) {
  screen->txtText.SetFocus();
  screen->Seen();
  screen->txtText.Enabled(false);
  EXPECT_THAT(screen->Seen(), ElementsAre("LostFocus txtText", "GotFocus txtPhone"));
  screen->txtPhone.Visible(false);
  EXPECT_THAT(screen->Seen(), ElementsAre("LostFocus txtPhone"));
  EXPECT_EQ(screen->Focus(), &screen->txtNumber);
}

TEST_F(Focus, ATabOrPageThatTurnsAwayTakesIt) {
  screen->txtOnTab.SetFocus();
  screen->Seen();
  screen->tabs.Page(1);
  EXPECT_THAT(screen->Seen(), ElementsAre("LostFocus txtOnTab", "GotFocus txtInBox"));
  screen->tabs.Page(0);
  screen->txtOnTab.SetFocus();
  screen->Seen();
  screen->tabs.Tab(1);
  EXPECT_THAT(screen->Seen(), ElementsAre("LostFocus txtOnTab", "GotFocus txtInBox", "Click tabs from 0"));
}

TEST_F(Focus, AFrameThatIsClosedTakesIt) {
  screen->txtInBox.SetFocus();
  screen->Seen();
  screen->fraBox.Enabled(false);
  EXPECT_THAT(screen->Seen(), ElementsAre("LostFocus txtInBox"));
  EXPECT_EQ(screen->Focus(), &screen->grid);
}

}  // namespace
