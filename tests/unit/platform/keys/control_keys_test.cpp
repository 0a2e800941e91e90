#include "platform/keys/control_keys.h"

#include "support/every_control.h"

namespace {

class ControlKeys : public ScreenTest {
 protected:
  void Press(platform::Control& control, const std::string& key) { platform::PressKey(control, key, 2); }
};

TEST_F(ControlKeys, AnEditTakesCharactersAndErases) {
  for (const char* key : {"a", "Shift+b", "Minus", "Left", "Backspace", "Home", "Delete"}) Press(screen->txtText, key);
  EXPECT_EQ(screen->txtText.Text(), "-");
}

/// An edit hears of Escape before the screen does.
TEST_F(ControlKeys, EscapeIsTheScreensToo) {
  static constexpr platform::Shortcut kEscape[] = {{"miGo", "Escape", ""}};
  screen->Shortcuts(kEscape);
  screen->Seen();
  Press(screen->txtText, "Escape");
  EXPECT_EQ(screen->Seen(), (std::vector<std::string>{"KeyPress", "Click miGo"}));
}

TEST_F(ControlKeys, ButtonsArePressedByEnterAndSpace) {
  Press(screen->cmdGo, "Enter");
  Press(screen->cmdGo, "Space");
  Press(screen->chkOn, "Space");
  Press(screen->chkOn, "Enter");
  std::vector<std::string> clicks;
  for (const std::string& event : screen->Seen())
    if (event.starts_with("Click")) clicks.push_back(event);
  EXPECT_EQ(clicks, (std::vector<std::string>{"Click cmdGo", "Click cmdGo", "Click chkOn"}));
}

TEST_F(ControlKeys, ArrowsChooseInAGroup) {
  screen->optWay[1].SetFocus();
  Press(screen->optWay[1], "Down");
  EXPECT_TRUE(screen->optWay[2].Value());
  Press(screen->optWay[2], "Right");
  EXPECT_TRUE(screen->optWay[2].Value());
  screen->optWay[1].Enabled(false);
  Press(screen->optWay[2], "Up");
  EXPECT_TRUE(screen->optWay[0].Value());
  EXPECT_EQ(screen->Focus(), &screen->optWay[0]);
}

TEST_F(ControlKeys, TabGoesToTheNextControl) {
  screen->txtText.SetFocus();
  Press(screen->txtText, "Tab");
  EXPECT_EQ(screen->Focus(), &screen->txtPhone);
  Press(screen->txtPhone, "Shift+Tab");
  EXPECT_EQ(screen->Focus(), &screen->txtText);
}

TEST_F(ControlKeys, ListsAndBarsAreGoneThrough) {
  Press(screen->lstLines, "End");
  EXPECT_EQ(screen->lstLines.ListIndex(), 1);
  Press(screen->lstLines, "Up");
  EXPECT_EQ(screen->lstLines.ListIndex(), 0);
  const int before = screen->scrValue.Value();
  Press(screen->scrValue, "Down");
  EXPECT_EQ(screen->scrValue.Value(), before + 1);
  Press(screen->cboColor, "Down");
  EXPECT_EQ(screen->cboColor.Text(), "Red");
}

}  // namespace
