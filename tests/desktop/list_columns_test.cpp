#include <QApplication>
#include <QClipboard>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QtTest/QTest>
#include <functional>

#include "desktop/hands/input.h"
#include "desktop/list/column_chooser.h"
#include "desktop/list/list_header.h"
#include "desktop/list/list_view.h"
#include "desktop/support/desk.h"

namespace desktop_test {
namespace {

namespace input = desktop::input;

class Columns : public Desk {
 protected:
  void Begin() {
    desktop::DesktopOptions options;
    options.settingsFolder = folder.path().toStdString();
    options.user = "7";
    Start(options);
    OpenList(100);
  }
  void Again() {
    CloseScreen();
    hands.reset();
    app.reset();
    Begin();
  }
  desktop::ListView& List() {
    auto& list = Widget<desktop::ListView>("grid");
    list.Sync();
    return list;
  }
  /// Opens a menu and clicks on an entry; false when there is none, or when it is closed.
  bool Choose(const std::function<void()>& open, const QString& entry) {
    open();
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    bool chosen = false;
    for (QAction* action : menu ? menu->actions() : QList<QAction*>()) {
      if (action->text().section('\t', 0, 0) != entry || !action->isEnabled()) continue;
      chosen = true;
      action->trigger();
    }
    if (menu) menu->close();
    Process();
    return chosen;
  }
  bool OnHeading(int column, const QString& entry) {
    return Choose([this, column] { List().HeadMenu(window->mapToGlobal(QPoint(50, 50)), column); }, entry);
  }
  bool OnRow(int column, const QString& entry) {
    return Choose([this, column] { List().RowMenu(window->mapToGlobal(QPoint(50, 50)), column); }, entry);
  }
  static QString Clipboard() { return QApplication::clipboard()->text(); }
  QTemporaryDir folder;
};

TEST_F(Columns, AHeadingClickTellsTheDesignColumn) {
  Begin();
  hands->HeadClick(screen->grid, column::Amount);
  EXPECT_TRUE(Saw("HeadClick 2"));
  EXPECT_EQ(screen->Focus(), &screen->grid);
}

TEST_F(Columns, AMovedColumnKeepsItsDesignNumber) {
  Begin();
  hands->MoveColumn(screen->grid, column::Born, 1);
  EXPECT_EQ(List().Columns().PlaceOf(column::Born), 1);
  EXPECT_FALSE(Saw("HeadClick 3")) << "a drag is no click";
  hands->HeadClick(screen->grid, column::Born);
  EXPECT_TRUE(Saw("HeadClick 3"));
}

TEST_F(Columns, DraggingAnEdgeResizes) {
  Begin();
  const QRect heading = List().Header().HeadingRect(column::Name);
  const int before = List().Columns().Width(column::Name);
  const QPoint edge(heading.right(), heading.center().y());
  input::Drag(List().Header(), edge, edge + QPoint(40, 0));
  EXPECT_EQ(List().Columns().Width(column::Name), before + 40);
}

TEST_F(Columns, WidthsAndOrderAreKeptByFieldName) {
  Begin();
  List().ColumnResized(column::Name, 333);
  hands->MoveColumn(screen->grid, column::Born, 1);
  Again();
  EXPECT_EQ(List().Columns().Width(column::Name), 333);
  EXPECT_EQ(List().Columns().PlaceOf(column::Born), 1);
}

TEST_F(Columns, ResetGivesTheDesignBack) {
  Begin();
  const int width = List().Columns().Width(column::Name);
  List().ColumnResized(column::Name, 333);
  hands->MoveColumn(screen->grid, column::Born, 1);
  const bool found = Choose([this] { List().HeadMenu(window->mapToGlobal(QPoint(50, 50))); }, "Reset Columns");
  EXPECT_TRUE(found);
  EXPECT_EQ(List().Columns().Width(column::Name), width);
  EXPECT_EQ(List().Columns().PlaceOf(column::Born), 3);
  Again();
  EXPECT_EQ(List().Columns().Width(column::Name), width);
}

TEST_F(Columns, TheModelsLeftColumnComesToTheLeft) {
  Begin();
  List().resize(260, 300);
  Process();
  screen->grid.LeftCol(1, column::Member);
  Process();
  EXPECT_EQ(List().Columns().ScrolledPlaceAt(List().HorizontalOffset()), column::Member);
  screen->grid.LeftCol(1, 0);
  Process();
  EXPECT_EQ(List().HorizontalOffset(), 0);
}

TEST_F(Columns, ARebuildThatRestoresTheColumnDoesNotJump) {
  Begin();
  List().resize(260, 300);
  Process();
  hands->Scroll(screen->grid, 1, column::Amount);
  List().horizontalScrollBar()->setValue(List().HorizontalOffset() + 7);
  const int offset = List().HorizontalOffset();
  const int left = screen->grid.LeftCol(1);
  screen->data.Refresh();
  screen->grid.LeftCol(1, left);
  Process();
  List();
  EXPECT_EQ(List().HorizontalOffset(), offset);
}

TEST_F(Columns, ARebuildLeavesTheListWhereItWasScrolled) {
  Begin();
  List().resize(260, 300);
  Process();
  hands->Scroll(screen->grid, 1, column::Amount);
  List().horizontalScrollBar()->setValue(List().HorizontalOffset() + 7);
  const int offset = List().HorizontalOffset();
  screen->data.Refresh();
  Process();
  List();
  EXPECT_EQ(screen->grid.LeftCol(1), column::Amount);
  EXPECT_EQ(List().HorizontalOffset(), offset);
}

TEST_F(Columns, AListWithoutFixedColumnsStaysInsideItsFirstColumn) {
  Begin();
  screen->grid.Splits(1);
  screen->data.Refresh();
  List().resize(260, 300);
  Process();
  List().horizontalScrollBar()->setValue(9);
  screen->data.Refresh();
  Process();
  List();
  EXPECT_EQ(List().HorizontalOffset(), 9);
}

TEST_F(Columns, AnyColumnCanBeTheFirstToTheLeftAlsoWhenAllFit) {
  Begin();
  hands->Scroll(screen->grid, 1, column::Grade);
  EXPECT_EQ(screen->grid.LeftCol(1), column::Grade);
}

TEST_F(Columns, AHiddenColumnStaysHiddenAndIsShownAgain) {
  Begin();
  EXPECT_TRUE(OnHeading(column::Amount, "Hide Column"));
  EXPECT_EQ(List().Columns().PlaceOf(column::Amount), std::nullopt);
  Again();
  EXPECT_EQ(List().Columns().PlaceOf(column::Amount), std::nullopt);
  EXPECT_EQ(List().Columns().PlaceOf(column::Born), 2);
  List().ArrangeColumns(List().Columns().FieldsInOrder(), {});
  EXPECT_EQ(List().Columns().PlaceOf(column::Amount), 2) << "where it was";
}

TEST_F(Columns, OneColumnStaysInAnyCase) {
  Begin();
  List().ArrangeColumns({}, {"Number", "Name", "Amount", "Born", "Member"});
  EXPECT_EQ(List().Columns().PlaceCount(), 1);
  EXPECT_FALSE(OnHeading(column::Grade, "Hide Column"));
  List().ArrangeColumns({}, {"Number", "Name", "Amount", "Born", "Member", "Grade"});
  EXPECT_EQ(List().Columns().PlaceCount(), 1);
}

TEST_F(Columns, TheChooserHidesAndOrders) {
  Begin();
  ASSERT_TRUE(OnHeading(column::Name, "Columns..."));
  auto* chooser = List().findChild<desktop::ColumnChooser*>();
  ASSERT_NE(chooser, nullptr);
  auto* list = chooser->findChild<QListWidget*>();
  ASSERT_EQ(list->count(), 6);
  EXPECT_EQ(list->item(column::Born)->text(), "Born");
  list->item(column::Amount)->setCheckState(Qt::Unchecked);
  list->setCurrentRow(column::Grade);
  for (QPushButton* button : chooser->findChildren<QPushButton*>())
    if (button->text() == "Move &Up") button->click();
  chooser->accept();
  Process();
  EXPECT_EQ(List().Columns().PlaceOf(column::Amount), std::nullopt);
  EXPECT_LT(*List().Columns().PlaceOf(column::Grade), *List().Columns().PlaceOf(column::Member));
}

TEST_F(Columns, TheChooserKeepsOneTickAndTheFixedColumnsAmongThemselves) {
  Begin();
  desktop::ColumnChooser chooser({{"A", "A", true}, {"B", "B", false}, {"C", "C", true}}, 1, nullptr);
  auto* list = chooser.findChild<QListWidget*>();
  list->item(0)->setCheckState(Qt::Unchecked);
  list->item(2)->setCheckState(Qt::Unchecked);
  EXPECT_EQ(chooser.Hidden(), (std::vector<std::string>{"A", "B"}));
  list->setCurrentRow(1);
  for (QPushButton* button : chooser.findChildren<QPushButton*>()) {
    if (button->text() == "Move &Up") {
      EXPECT_FALSE(button->isEnabled());
    }
    if (button->text() == "Move &Down") {
      EXPECT_TRUE(button->isEnabled());
      button->click();
    }
  }
  EXPECT_EQ(chooser.Order(), (std::vector<std::string>{"A", "C", "B"}));
}

TEST_F(Columns, TheHeadingsMenuSortsBothWays) {
  Begin();
  EXPECT_TRUE(OnHeading(column::Born, "Sort Down"));
  EXPECT_TRUE(Saw("Sort 3 down"));
  EXPECT_TRUE(OnHeading(column::Born, "Sort Up"));
  EXPECT_TRUE(Saw("Sort 3 up"));
}

TEST_F(Columns, TheRowsMenuFollowsTheToolbar) {
  Begin();
  screen->Toolbar1.Button("tb_Print").Enabled(false);
  EXPECT_FALSE(OnRow(column::Name, "Print"));
  EXPECT_TRUE(OnRow(column::Name, "Find"));
  EXPECT_TRUE(Saw("ButtonClick tb_Find"));
  screen->Toolbar1.Button("tb_Find").Visible(false);
  EXPECT_FALSE(OnRow(column::Name, "Find"));
}

TEST_F(Columns, TheRowsMenuOpensTheCell) {
  Begin();
  EXPECT_FALSE(OnRow(column::Amount, "Edit Cell"));
  EXPECT_FALSE(OnRow(column::Member, "Edit Cell")) << "a check is ticked, not typed";
  EXPECT_TRUE(OnRow(column::Grade, "Edit Cell"));
  EXPECT_EQ(screen->grid.OpenCell(), column::Grade);
}

TEST_F(Columns, ARightClickMakesItsRowCurrentAndTicksNothing) {
  Begin();
  const bool before = screen->grid.ColumnValue(column::Member).As<bool>();
  const QPoint box = List().CellRect(0, column::Member).center();
  QTest::mouseClick(List().viewport(), Qt::RightButton, Qt::NoModifier, box);
  Process();
  EXPECT_EQ(screen->grid.ColumnValue(column::Member).As<bool>(), before);
  EXPECT_EQ(screen->grid.CursorColumn(), column::Member);
  QTest::mouseClick(List().viewport(), Qt::RightButton, Qt::NoModifier, List().CellRect(4, column::Name).center());
  Process();
  EXPECT_EQ(screen->grid.ColumnValue(column::Number), platform::Value(5));
}

TEST_F(Columns, CopiesGoAsTabSeparatedTexts) {
  Begin();
  EXPECT_TRUE(OnRow(column::Grade, "Copy Cell"));
  EXPECT_EQ(Clipboard(), "First");
  List().ArrangeColumns({}, {"Amount", "Born", "Member"});
  hands->Key(screen->grid, "Ctrl+C");
  EXPECT_EQ(Clipboard(), "No.\tName\tGrade\n1\tName 1\tFirst\n");
  hands->Mark(screen->grid, {screen->data.Window()->RowsAt(2, 1).front().bookmark, screen->data.Window()->RowsAt(4, 1).front().bookmark});
  EXPECT_TRUE(OnRow(column::Name, "Copy Rows with Headings"));
  EXPECT_EQ(Clipboard(), "No.\tName\tGrade\n3\tName 3\tFirst\n5\tName 5\tFirst\n");
}

TEST_F(Columns, OfACardNumberFourDigitsAreCopied) {
  Begin();
  screen->grid.DesignColumn(column::Name).lastFour = true;
  table.edits[{0, column::Name}] = platform::Value("4111-1111 1111\t1234");
  screen->data.Refresh();
  Process();
  EXPECT_TRUE(OnRow(column::Name, "Copy Cell"));
  EXPECT_EQ(Clipboard(), "1234");
  hands->Key(screen->grid, "Ctrl+C");
  EXPECT_FALSE(Clipboard().contains("4111"));
  EXPECT_TRUE(Clipboard().contains("\t1234\t"));
}

}  // namespace
}  // namespace desktop_test
