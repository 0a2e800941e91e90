#include <QImage>

#include "desktop/hands/input.h"
#include "desktop/list/cell_editor.h"
#include "desktop/list/list_view.h"
#include "desktop/support/desk.h"

namespace desktop_test {
namespace {

namespace input = desktop::input;

class Cells : public Desk {
 protected:
  void SetUp() override {
    OpenList(100);
    screen->grid.BeforeColUpdate = [this](int, const platform::Value& old, bool& cancel) {
      screen->seen.push_back("BeforeColUpdate");
      if (!refuse) return;
      cancel = true;
      screen->grid.ColumnValue(column::Name, old);
    };
    screen->grid.AfterColUpdate = [this](int) { screen->seen.push_back("AfterColUpdate"); };
  }
  desktop::ListView& List() {
    auto& list = Widget<desktop::ListView>("grid");
    list.Sync();
    return list;
  }
  /// The cell of the name, by the keyboard.
  void OpenName() {
    hands->Key(screen->grid, "Ctrl+E");
    ASSERT_NE(List().Editor(), nullptr);
  }
  std::string Name() { return screen->grid.ShownText(column::Name, screen->grid.ColumnValue(column::Name)); }
  bool refuse = false;
};

TEST_F(Cells, ADoubleClickOpensTypesAndTakes) {
  hands->Cell(screen->grid, column::Name, "New name");
  EXPECT_EQ(Name(), "New name");
  EXPECT_TRUE(screen->grid.DataChanged());
  EXPECT_EQ(List().Editor(), nullptr);
  EXPECT_TRUE(Saw("AfterColUpdate"));
  EXPECT_EQ(table.updates, 0);
  hands->LeaveRow(screen->grid);
  EXPECT_EQ(table.updates, 1);
  EXPECT_FALSE(screen->grid.DataChanged());
}

TEST_F(Cells, UnchangedTextFiresNothing) {
  hands->Cell(screen->grid, column::Name, "Name 1");
  EXPECT_FALSE(Saw("BeforeColUpdate"));
}

TEST_F(Cells, ARefusedCellStaysOpenOnItsOldValueTillEscape) {
  refuse = true;
  hands->Cell(screen->grid, column::Name, "");
  ASSERT_NE(List().Editor(), nullptr);
  EXPECT_EQ(List().Editor()->text(), "Name 1");
  EXPECT_EQ(screen->grid.OpenCell(), column::Name);
  hands->Key(screen->grid, "Escape");
  List();
  EXPECT_EQ(screen->grid.OpenCell(), std::nullopt);
  EXPECT_EQ(List().Editor(), nullptr);
}

TEST_F(Cells, AClosedColumnDoesNotOpen) {
  hands->Cell(screen->grid, column::Amount, "5");
  EXPECT_EQ(screen->grid.OpenCell(), std::nullopt);
  EXPECT_FALSE(Saw("BeforeColUpdate"));
}

TEST_F(Cells, ACheckIsClicked) {
  EXPECT_EQ(screen->grid.ColumnValue(column::Member), platform::Value(true));
  hands->Cell(screen->grid, column::Member, "True");
  EXPECT_FALSE(Saw("BeforeColUpdate"));
  hands->Cell(screen->grid, column::Member, "False");
  EXPECT_EQ(screen->grid.ColumnValue(column::Member), platform::Value(false));
}

TEST_F(Cells, AValueListTakesItsShownText) {
  hands->Cell(screen->grid, column::Grade, "Second");
  EXPECT_EQ(screen->grid.ColumnValue(column::Grade), platform::Value("B"));
}

TEST_F(Cells, ALetterGoesToTheSearchBoxAndChangesNoCell) {
  hands->Focus(screen->grid);
  input::Type(*window, "Zed");
  Process();
  EXPECT_EQ(screen->grid.OpenCell(), std::nullopt);
  EXPECT_EQ(Name(), "Name 1");
  EXPECT_EQ(screen->txtSearch.Text(), "Zed");
  EXPECT_EQ(screen->Focus(), &screen->txtSearch);
}

TEST_F(Cells, TheKeyForEditingOpensTheCellAndWhatIsTypedReplacesIt) {
  OpenName();
  EXPECT_EQ(List().Editor()->selectedText(), "Name 1");
  input::Type(*window, "Zed");
  input::Key(*window, Qt::Key_Return, Qt::NoModifier, "\r");
  Process();
  EXPECT_EQ(Name(), "Zed");
}

TEST_F(Cells, TheKeyForEditingPassesOverWhatCanNotBeTyped) {
  screen->grid.CursorColumn(column::Amount);
  hands->Key(screen->grid, "Ctrl+E");
  EXPECT_EQ(screen->grid.OpenCell(), column::Grade) << "behind the amount, the date and the check";
  hands->Key(screen->grid, "Escape");
  screen->grid.CursorColumn(column::Number);
  hands->Key(screen->grid, "Ctrl+E");
  EXPECT_EQ(screen->grid.OpenCell(), column::Name);
}

TEST_F(Cells, EnterAndADoubleClickOpenTheCellOrChooseTheRow) {
  screen->grid.CursorColumn(column::Name);
  hands->Key(screen->grid, "Enter");
  EXPECT_EQ(screen->grid.OpenCell(), column::Name);
  hands->Key(screen->grid, "Escape");
  EXPECT_FALSE(Saw("ButtonClick tb_Find"));
  screen->grid.CursorColumn(column::Number);
  hands->Key(screen->grid, "Enter");
  EXPECT_EQ(screen->grid.OpenCell(), std::nullopt);
  EXPECT_TRUE(Saw("ButtonClick tb_Find")) << "a cell that can't be changed";
  screen->seen.clear();
  hands->DoubleClick(screen->grid);
  EXPECT_TRUE(Saw("ButtonClick tb_Find"));
}

TEST_F(Cells, AListThatChoosesRowsDoesSoOnEveryCell) {
  screen->grid.ChoosesRows(true);
  screen->grid.CursorColumn(column::Name);
  hands->DoubleClick(screen->grid);
  EXPECT_EQ(screen->grid.OpenCell(), std::nullopt);
  EXPECT_TRUE(Saw("ButtonClick tb_Find"));
  screen->seen.clear();
  screen->Toolbar1.Button("tb_Find").Enabled(false);
  hands->Key(screen->grid, "Enter");
  EXPECT_FALSE(Saw("ButtonClick tb_Find")) << "the key is closed";
  hands->Cell(screen->grid, column::Name, "Zed");
  EXPECT_EQ(Name(), "Zed");
}

/// Ink of the frame all around, in a colour that is neither the row's nor the edit's own.
TEST_F(Cells, AnOpenCellIsSetOffFromItsRow) {
  OpenName();
  const QImage picture = List().Editor()->grab().toImage();
  const QColor frame = List().palette().color(QPalette::Active, QPalette::HighlightedText);
  for (const QPoint& edge : {QPoint(picture.width() / 2, 0), QPoint(picture.width() / 2, picture.height() - 1),
                             QPoint(0, picture.height() / 2), QPoint(picture.width() - 1, picture.height() / 2)})
    EXPECT_EQ(picture.pixelColor(edge), frame);
  EXPECT_EQ(picture.pixelColor(1, picture.height() / 2), List().palette().color(QPalette::Active, QPalette::Highlight));
}

TEST_F(Cells, EscapeDropsWhatWasTyped) {
  OpenName();
  input::Type(*window, "Z");
  Process();
  input::Key(*window, Qt::Key_Escape, Qt::NoModifier);
  Process();
  EXPECT_EQ(Name(), "Name 1");
  EXPECT_FALSE(screen->grid.DataChanged());
}

TEST_F(Cells, AnotherRowTakesTheCellFirst) {
  OpenName();
  input::Type(*window, "Z");
  Process();
  hands->Row(screen->grid, screen->data.Window()->RowsAt(5, 1).front().bookmark);
  EXPECT_EQ(table.updates, 1);
  EXPECT_EQ(screen->grid.ColumnValue(column::Number), platform::Value(6));
}

TEST_F(Cells, AnotherControlTakesTheCellBeforeTheListLosesTheFocus) {
  std::vector<std::string> order;
  screen->grid.AfterColUpdate = [&](int) { order.push_back("cell"); };
  screen->grid.LostFocus = [&] { order.push_back("lost"); };
  OpenName();
  input::Type(*window, "Z");
  Process();
  hands->Click(screen->txtSearch);
  EXPECT_EQ(order, (std::vector<std::string>{"cell", "lost"}));
}

TEST_F(Cells, ARefusedCellKeepsTheFocus) {
  refuse = true;
  OpenName();
  input::Type(*window, "Z");
  Process();
  hands->Click(screen->txtSearch);
  EXPECT_EQ(screen->Focus(), &screen->grid);
}

TEST_F(Cells, TheSpaceBarTurnsACheckOver) {
  const bool before = screen->grid.ColumnValue(column::Member).As<bool>();
  hands->Focus(screen->grid);
  screen->grid.CursorColumn(column::Name);
  while (List().CursorColumn() != column::Member) input::Key(*window, Qt::Key_Right, Qt::NoModifier);
  input::Key(*window, Qt::Key_Space, Qt::NoModifier, " ");
  Process();
  EXPECT_EQ(screen->grid.ColumnValue(column::Member).As<bool>(), !before);
  input::Key(*window, Qt::Key_Space, Qt::NoModifier, " ");
  Process();
  EXPECT_EQ(screen->grid.ColumnValue(column::Member).As<bool>(), before);
  EXPECT_EQ(screen->grid.SelBookmarks.Count(), 0);
}

/// The row is left, and so written, by going to another one only.
TEST_F(Cells, AClickInTheSameRowDoesNotLeaveIt) {
  hands->Cell(screen->grid, column::Name, "Changed");
  EXPECT_TRUE(screen->grid.DataChanged());
  hands->Row(screen->grid, screen->grid.CurrentBookmark());
  EXPECT_TRUE(screen->grid.DataChanged());
  EXPECT_EQ(table.updates, 0);
  hands->Row(screen->grid, screen->data.Window()->RowsAt(3, 1).front().bookmark);
  EXPECT_EQ(table.updates, 1);
}

}  // namespace
}  // namespace desktop_test
