#include <QKeyEvent>
#include <QLineEdit>

#include "desktop/controls/text_edit.h"
#include "desktop/hands/input.h"
#include "desktop/list/list_view.h"
#include "desktop/support/desk.h"
#include "desktop/toolkit/key_event.h"

namespace desktop_test {
namespace {

namespace input = desktop::input;

class Keys : public Desk {
 protected:
  void SetUp() override { OpenList(100); }
};

std::string Named(int key, Qt::KeyboardModifiers modifiers) { return desktop::KeyName(QKeyEvent(QEvent::KeyPress, key, modifiers)); }

TEST(KeyNames, AreThoseOfTheTable) {
  EXPECT_EQ(Named(Qt::Key_F3, Qt::NoModifier), "F3");
  EXPECT_EQ(Named(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier), "Ctrl+Shift+P");
  EXPECT_EQ(Named(Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier), "Ctrl+Enter");
  EXPECT_EQ(Named(Qt::Key_Plus, Qt::ControlModifier | Qt::ShiftModifier), "Ctrl+Plus");
  EXPECT_EQ(Named(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier), "Ctrl+Shift+Tab");
  EXPECT_EQ(Named(Qt::Key_VolumeUp, Qt::NoModifier), "");
}

TEST_F(Keys, ShortcutsStartTheirItems) {
  hands->Key(screen->txtSearch, "F3");
  EXPECT_TRUE(Saw("Click miFind"));
}

TEST_F(Keys, AGuardedShortcutWaitsForItsToolbarKey) {
  screen->Toolbar1.Button("tb_Find").Enabled(false);
  hands->Key(screen->txtSearch, "F3");
  EXPECT_FALSE(Saw("Click miFind"));
}

TEST_F(Keys, ShortcutsWorkFromTheListToo) {
  hands->Key(screen->grid, "Ctrl+P");
  EXPECT_TRUE(Saw("Click miPrint"));
}

TEST_F(Keys, DownGoesFromTheSearchBoxToTheListAndUpBack) {
  hands->Focus(screen->txtSearch);
  hands->Key(screen->txtSearch, "Down");
  EXPECT_EQ(screen->Focus(), &screen->grid);
  EXPECT_TRUE(Widget<desktop::ListView>("grid").hasFocus());
  hands->Key(screen->grid, "Up");
  EXPECT_EQ(screen->Focus(), &screen->txtSearch);
}

TEST_F(Keys, LettersTypedInTheListGoToTheSearchBox) {
  for (int i = 0; i < screen->grid.ColumnCount(); ++i) screen->grid.DesignColumn(i).open = false;
  hands->Focus(screen->grid);
  input::Type(*window, "Smi");
  EXPECT_EQ(screen->Focus(), &screen->txtSearch);
  EXPECT_EQ(screen->txtSearch.Text(), "Smi");
}

TEST_F(Keys, SlashAndCtrlFFindTheSearchBox) {
  for (int i = 0; i < screen->grid.ColumnCount(); ++i) screen->grid.DesignColumn(i).open = false;
  hands->Focus(screen->grid);
  input::Key(*window, Qt::Key_Slash, Qt::NoModifier, "/");
  EXPECT_EQ(screen->Focus(), &screen->txtSearch);
  EXPECT_EQ(screen->txtSearch.Text(), "");
  hands->Focus(screen->grid);
  input::Key(*window, Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(screen->Focus(), &screen->txtSearch);
}

TEST_F(Keys, SlashInAnEditIsACharacter) {
  hands->Type(screen->txtSearch, "a/b", false);
  EXPECT_EQ(screen->txtSearch.Text(), "a/b");
}

TEST_F(Keys, TabsAreReachedByKeysPastTheClosedOnes) {
  screen->SSIndexTab1.TabEnabled(1, false);
  hands->Key(screen->txtSearch, "Ctrl+Tab");
  EXPECT_EQ(screen->SSIndexTab1.Tab(), 2);
  input::Key(*window, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(screen->SSIndexTab1.Tab(), 0);
  input::Key(*window, Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(screen->SSIndexTab1.Tab(), 2);
  input::Key(*window, Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(screen->SSIndexTab1.Tab(), 0);
}

TEST_F(Keys, EnterPressesACommandButton) {
  screen->SSIndexTab1.Tab(1);
  Process();
  hands->Key(screen->cmdGo, "Enter");
  hands->Key(screen->cmdGo, "Space");
  EXPECT_EQ(std::count(screen->seen.begin(), screen->seen.end(), "Click cmdGo"), 2);
}

}  // namespace
}  // namespace desktop_test
