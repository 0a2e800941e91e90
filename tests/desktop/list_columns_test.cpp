#include <QApplication>
#include <QMenu>
#include <QScrollBar>
#include <QTimer>

#include "desktop/hands/input.h"
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
  bool found = false;
  QTimer::singleShot(0, [&] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu) return;
    for (QAction* action : menu->actions())
      if (action->text() == "&Reset columns") found = true, action->trigger();
    menu->close();
  });
  List().HeadMenu(window->mapToGlobal(QPoint(50, 50)));
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

}  // namespace
}  // namespace desktop_test
