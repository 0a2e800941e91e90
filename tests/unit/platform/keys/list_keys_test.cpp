#include "platform/keys/list_keys.h"

#include "platform/keys/control_keys.h"
#include "support/every_control.h"

// The list of three people: column 0 the name, column 1 the check.
namespace {

using platform::ListAct;

class ListKeys : public ScreenTest {
 protected:
  ListKeys() {
    OpenList();
    screen->grid.SearchBox(screen->txtText);
  }
  ListAct Meaning(const std::string& key) const { return platform::ListKeyOf(screen->grid, key, columns).act; }
  void Press(const std::string& key) { platform::PressKey(screen->grid, key, 2); }
  std::string Name() const { return screen->data.Recordset()->Field("Name").As<std::string>(); }

  std::vector<int> columns{0, 1};
};

TEST_F(ListKeys, MovesTakeShiftAlong) {
  EXPECT_EQ(Meaning("Up"), ListAct::RowUp);
  EXPECT_EQ(Meaning("Shift+Down"), ListAct::RowDown);
  EXPECT_EQ(Meaning("Ctrl+Home"), ListAct::FirstRow);
  EXPECT_EQ(Meaning("Ctrl+Shift+End"), ListAct::LastRow);
  EXPECT_EQ(Meaning("PageDown"), ListAct::PageDown);
  EXPECT_EQ(Meaning("Ctrl+PageDown"), ListAct::None);
  EXPECT_EQ(Meaning("Ctrl+Up"), ListAct::None);
  EXPECT_EQ(Meaning("Alt+Down"), ListAct::None);
}

TEST_F(ListKeys, RowsAreGoneThrough) {
  Press("Down");
  EXPECT_EQ(Name(), "Baker");
  Press("PageDown");
  EXPECT_EQ(Name(), "Cole");
  Press("Home");
  EXPECT_EQ(Name(), "Adams");
  Press("End");
  EXPECT_EQ(Name(), "Cole");
  Press("Up");
  EXPECT_EQ(Name(), "Baker");
}

TEST_F(ListKeys, UpInTheFirstRowGoesToTheSearchBox) {
  screen->grid.SetFocus();
  Press("Up");
  EXPECT_EQ(screen->Focus(), &screen->txtText);
  EXPECT_EQ(Name(), "Adams");
}

TEST_F(ListKeys, UpInTheFirstRowStaysWhereThereIsNoBoxToGoTo) {
  screen->txtText.Enabled(false);
  screen->grid.SetFocus();
  Press("Up");
  EXPECT_EQ(screen->Focus(), &screen->grid);
}

TEST_F(ListKeys, ALetterBeginsASearchAndSlashDoesNot) {
  screen->txtText.Text("old");
  screen->Seen();
  Press("s");
  EXPECT_EQ(screen->txtText.Text(), "s");
  EXPECT_EQ(screen->Focus(), &screen->txtText);
  EXPECT_EQ(Meaning("/"), ListAct::None);
  EXPECT_EQ(Meaning("Space"), ListAct::None);
  screen->txtText.Enabled(false);
  EXPECT_EQ(Meaning("s"), ListAct::None);
}

TEST_F(ListKeys, SpaceAndInsertMarkWhereRowsAreMarked) {
  EXPECT_EQ(Meaning("Insert"), ListAct::None);
  screen->grid.MarksRows(true);
  Press("Insert");
  EXPECT_EQ(Name(), "Baker");
  Press("Space");
  EXPECT_EQ(screen->grid.SelBookmarks.Count(), 2);
  Press("Space");
  EXPECT_EQ(screen->grid.SelBookmarks.Count(), 1);
}

TEST_F(ListKeys, SpaceTurnsTheCheckOfTheCursorOver) {
  screen->grid.MarksRows(true);
  Press("Right");
  EXPECT_EQ(Meaning("Space"), ListAct::TurnCheck);
  Press("Space");
  EXPECT_EQ(screen->grid.ColumnValue(1), platform::Value(true));
  EXPECT_EQ(screen->grid.SelBookmarks.Count(), 0);
}

TEST_F(ListKeys, TheCursorStopsAtTheOuterCells) {
  EXPECT_EQ(platform::ColumnBesideCursor(screen->grid, columns, -1), 0);
  EXPECT_EQ(platform::ColumnBesideCursor(screen->grid, columns, 1), 1);
  EXPECT_EQ(platform::ColumnBesideCursor(screen->grid, columns, 5), 1);
}

TEST_F(ListKeys, AnOpenCellHasKeysOfItsOwn) {
  Press("Ctrl+E");
  ASSERT_EQ(screen->grid.OpenCell(), 0);
  for (const char* key : {"Left", "Home", "x", "Space", "/"}) EXPECT_EQ(Meaning(key), ListAct::InCell) << key;
  EXPECT_EQ(Meaning("Shift+Enter"), ListAct::WriteRow);
  EXPECT_EQ(Meaning("Enter"), ListAct::TakeCell);
  EXPECT_EQ(Meaning("Ctrl+Tab"), ListAct::None);
  screen->grid.UserCellText("Ames");
  Press("Tab");
  EXPECT_EQ(screen->grid.OpenCell(), std::nullopt);
  EXPECT_EQ(screen->grid.CursorColumn(), 1);
  EXPECT_TRUE(screen->grid.DataChanged());
  Press("Shift+Enter");
  EXPECT_EQ(Stored("SELECT Name FROM People WHERE Number=1"), "Ames");
}

TEST_F(ListKeys, EscapeIsTheListsWhileSomethingIsOpen) {
  EXPECT_EQ(Meaning("Escape"), ListAct::None);
  Press("Ctrl+E");
  screen->grid.UserCellText("Ames");
  Press("Enter");
  EXPECT_EQ(Meaning("Escape"), ListAct::GiveUp);
  Press("Escape");
  EXPECT_FALSE(screen->grid.DataChanged());
  EXPECT_EQ(Meaning("Escape"), ListAct::None);
}

/// A key that was pressed while the cell before it was still being opened is meant for that cell.
TEST_F(ListKeys, EnterTakesACellThatAnEarlierKeyOpened) {
  const platform::ListKey enter = platform::ListKeyOf(screen->grid, "Enter", columns);
  screen->grid.UserOpenCell(0);
  platform::PerformListKey(screen->grid, enter, {columns, 1, false});
  EXPECT_EQ(screen->grid.OpenCell(), std::nullopt);
}

}  // namespace
