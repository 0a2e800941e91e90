#include "platform/keys/screen_keys.h"

#include "platform/keys/control_keys.h"
#include "platform/keys/shortcuts.h"
#include "support/every_control.h"

namespace {

constexpr platform::Shortcut kShortcuts[] = {{"miGo", "F3", "tb_Go"}, {"tb_Go", "Ctrl+G", ""}, {"miNone", "F4", ""}};

class ScreenKeys : public ScreenTest {
 protected:
  ScreenKeys() {
    screen->Shortcuts(kShortcuts);
    screen->grid.SearchBox(screen->txtText);
    screen->Seen();
  }
  bool Press(const std::string& key) { return platform::PressKeyOnScreen(*screen, screen->Focus(), key); }
};

TEST_F(ScreenKeys, TabsAreTurnedInACirclePastTheClosedOnes) {
  screen->tabs.TabEnabled(1, false);
  EXPECT_TRUE(Press("Ctrl+Tab"));
  EXPECT_EQ(screen->tabs.Tab(), 2);
  EXPECT_TRUE(Press("Ctrl+PageDown"));
  EXPECT_EQ(screen->tabs.Tab(), 0);
  EXPECT_TRUE(Press("Ctrl+Shift+Tab"));
  EXPECT_EQ(screen->tabs.Tab(), 2);
  EXPECT_TRUE(Press("Ctrl+PageUp"));
  EXPECT_EQ(screen->tabs.Tab(), 0);
}

TEST_F(ScreenKeys, DownGoesFromTheSearchBoxToItsList) {
  screen->txtPhone.SetFocus();
  EXPECT_FALSE(Press("Down"));
  screen->txtText.SetFocus();
  EXPECT_TRUE(Press("Down"));
  EXPECT_EQ(screen->Focus(), &screen->grid);
}

TEST_F(ScreenKeys, SlashAndCtrlFGoToTheSearchBox) {
  screen->txtText.Text("old");
  screen->grid.SetFocus();
  EXPECT_TRUE(Press("/"));
  EXPECT_EQ(screen->Focus(), &screen->txtText);
  EXPECT_EQ(screen->txtText.SelectionLength(), 3u);
  EXPECT_FALSE(Press("/"));
  screen->txtPhone.SetFocus();
  EXPECT_TRUE(Press("Ctrl+F"));
  EXPECT_EQ(screen->Focus(), &screen->txtText);
}

TEST_F(ScreenKeys, AKeyStartsTheCommandOfItsRow) {
  EXPECT_TRUE(Press("F3"));
  EXPECT_TRUE(Press("Ctrl+G"));
  EXPECT_FALSE(Press("F5"));
  EXPECT_FALSE(Press("F4"));
  EXPECT_EQ(screen->Seen(), (std::vector<std::string>{"Click miGo", "Click tb_Go"}));
}

TEST_F(ScreenKeys, TheGuardKeepsAKeyFromAnItemThatStaysOpen) {
  screen->Toolbar1.Button("tb_Go").Enabled(false);
  EXPECT_FALSE(Press("F3"));
  EXPECT_TRUE(screen->Seen().empty());
}

TEST_F(ScreenKeys, AKeyOfSeveralCommandsStartsTheFirstThatIsOpen) {
  static constexpr platform::Shortcut kEscape[] = {{"tb_Go", "Escape", ""}, {"cmdGo", "Escape", ""}};
  screen->Shortcuts(kEscape);
  const auto clicked = [this] {
    std::vector<std::string> clicks;
    for (const std::string& event : screen->Seen())
      if (event.starts_with("Click")) clicks.push_back(event);
    return clicks;
  };
  EXPECT_TRUE(Press("Escape"));
  EXPECT_EQ(clicked(), std::vector<std::string>{"Click tb_Go"});
  screen->Toolbar1.Button("tb_Go").Enabled(false);
  EXPECT_TRUE(Press("Escape"));
  EXPECT_EQ(clicked(), std::vector<std::string>{"Click cmdGo"});
  screen->cmdGo.Enabled(false);
  EXPECT_FALSE(Press("Escape"));
  EXPECT_TRUE(clicked().empty());
}

TEST_F(ScreenKeys, AltAndTheMarkedLetterPressAButton) {
  screen->cmdGo.Caption("E&xit");
  screen->Seen();
  EXPECT_FALSE(Press("Alt+E"));
  EXPECT_FALSE(Press("Ctrl+Alt+X"));
  EXPECT_FALSE(Press("X"));
  EXPECT_TRUE(screen->Seen().empty());
  EXPECT_TRUE(Press("Alt+x"));
  EXPECT_EQ(screen->Seen(), (std::vector<std::string>{"GotFocus cmdGo", "Click cmdGo"}));
  screen->cmdGo.Enabled(false);
  screen->Seen();
  EXPECT_FALSE(Press("Alt+X"));
  EXPECT_TRUE(screen->Seen().empty());
}

TEST_F(ScreenKeys, ARefusedCommandSaysWhyInsteadOfItsGuard) {
  screen->Toolbar1.Button("tb_Go").Enabled(false);
  screen->miGo.Refusal = [] { return std::string("Not now"); };
  std::string told;
  screen->miGo.Told = [&](const std::string& why) { told = why; };
  EXPECT_TRUE(Press("F3"));
  EXPECT_EQ(told, "Not now");
  EXPECT_TRUE(screen->Seen().empty());
}

TEST_F(ScreenKeys, MenusAndTipsNameTheKey) {
  EXPECT_EQ(platform::ShortcutKeyOf(screen->miGo), "F3");
  EXPECT_EQ(platform::ShortcutKeyOf(screen->cmdGo), "");
  EXPECT_EQ(platform::ShortcutKeyFor(screen->Toolbar1.Button("tb_Go")), "F3");
}

TEST_F(ScreenKeys, AScreenWithoutATableHasNoShortcuts) {
  screen->Shortcuts({});
  EXPECT_FALSE(Press("F3"));
  EXPECT_EQ(platform::ShortcutKeyOf(screen->miGo), "");
}

}  // namespace
