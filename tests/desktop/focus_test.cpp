#include <QApplication>
#include <QImage>
#include <QPushButton>

#include "desktop/controls/text_edit.h"
#include "desktop/hands/input.h"
#include "desktop/list/list_view.h"
#include "desktop/support/desk.h"

namespace desktop_test {
namespace {

class Focus : public Desk {
 protected:
  void SetUp() override {
    Open();
    screen->SSIndexTab1.Page(1);
    Process();
  }
};

TEST_F(Focus, AClickMovesTheModelsFocusOnce) {
  hands->Click(screen->txtText);
  hands->Click(screen->txtPhone);
  EXPECT_EQ(screen->Focus(), &screen->txtPhone);
  EXPECT_EQ(screen->seen, (std::vector<std::string>{"GotFocus txtText", "LostFocus txtText", "GotFocus txtPhone"}));
}

TEST_F(Focus, CodeMovesTheWindowsFocus) {
  screen->txtPhone.SetFocus();
  EXPECT_EQ(window->focusWidget(), &Widget<desktop::TextEdit>("txtPhone"));
}

TEST_F(Focus, TabFollowsTheScreensOrder) {
  hands->Click(screen->txtText);
  hands->Key(screen->txtText, "Tab");
  EXPECT_EQ(screen->Focus(), &screen->txtPhone);
  hands->Key(screen->txtPhone, "Shift+Tab");
  EXPECT_EQ(screen->Focus(), &screen->txtText);
}

TEST_F(Focus, ToolbarKeysAndMenuItemsTakeNone) {
  hands->Click(screen->txtText);
  hands->Click(screen->Toolbar1.Button("tb_SaveRec"));
  hands->Click(screen->miFind);
  EXPECT_EQ(screen->Focus(), &screen->txtText);
  EXPECT_FALSE(Saw("LostFocus txtText"));
}

TEST_F(Focus, ADisabledControlLosesItToTheNext) {
  hands->Click(screen->txtText);
  screen->txtText.Enabled(false);
  EXPECT_EQ(screen->Focus(), &screen->txtPhone);
  EXPECT_EQ(window->focusWidget(), &Widget<desktop::TextEdit>("txtPhone"));
  EXPECT_EQ(std::count(screen->seen.begin(), screen->seen.end(), "LostFocus txtText"), 1);
  EXPECT_EQ(std::count(screen->seen.begin(), screen->seen.end(), "GotFocus txtPhone"), 1);
}

TEST_F(Focus, AHandlerThatSendsItElsewhereIsFollowed) {
  screen->txtPhone.GotFocus = [this] { screen->txtDate.SetFocus(); };
  hands->Click(screen->txtPhone);
  EXPECT_EQ(screen->Focus(), &screen->txtDate);
  EXPECT_EQ(window->focusWidget(), &Widget<desktop::TextEdit>("txtDate"));
}

TEST_F(Focus, AWindowSwitchFiresNothing) {
  hands->Click(screen->txtText);
  screen->seen.clear();
  QWidget other;
  other.show();
  other.activateWindow();
  Process();
  window->activateWindow();
  Process();
  EXPECT_TRUE(screen->seen.empty());
}

TEST_F(Focus, WhereTheKeyboardMovesItTheFocusShowsOnButtonsToo) {
  screen->SSIndexTab1.Page(0);
  screen->SSIndexTab1.Tab(1);
  Process();
  hands->Focus(screen->chkOn);
  auto& go = Widget<QPushButton>("cmdGo");
  const QImage without = go.grab().toImage();
  for (int i = 0; i < 12 && screen->Focus() != &screen->cmdGo; ++i) desktop::input::Key(*window, Qt::Key_Tab, Qt::NoModifier, "\t");
  Process();
  ASSERT_EQ(screen->Focus(), &screen->cmdGo);
  EXPECT_NE(go.grab().toImage(), without);
}

}  // namespace
}  // namespace desktop_test
