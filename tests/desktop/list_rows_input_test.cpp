#include <QApplication>
#include <QDialog>
#include <QScrollBar>
#include <QThread>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>

#include "desktop/hands/input.h"
#include "desktop/list/list_header.h"
#include "desktop/list/list_view.h"
#include "desktop/support/desk.h"

namespace desktop_test {
namespace {

namespace input = desktop::input;
constexpr std::int64_t kFiveMillion = 5'000'000;

class Rows : public Desk {
 protected:
  desktop::ListView& List() {
    auto& list = Widget<desktop::ListView>("grid");
    list.Sync();
    return list;
  }
  std::int32_t Current() { return screen->grid.ColumnValue(column::Number).As<std::int32_t>(); }
  platform::Bookmark Mark(std::int64_t row) { return screen->data.Window()->RowsAt(row, 1).front().bookmark; }
  bool Shown(std::int64_t row) { return !List().CellRect(row, column::Number).isEmpty(); }
  std::vector<std::string> Marked() {
    std::vector<std::string> keys;
    for (int i = 0; i < screen->grid.SelBookmarks.Count(); ++i) keys.push_back(screen->grid.SelBookmarks.Item(i).key);
    return keys;
  }
};

/// Counts how often a widget is painted.
class Paints : public QObject {
 public:
  explicit Paints(QWidget& widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return false;
  }
  int count = 0;
};

TEST_F(Rows, ArrowAndPageKeysMoveTheCurrentRow) {
  OpenList(kFiveMillion);
  hands->Key(screen->grid, "Down");
  EXPECT_EQ(Current(), 2);
  hands->Key(screen->grid, "PageDown");
  const int page = List().WholeRowsShown() - 1;
  EXPECT_EQ(Current(), 2 + page);
  hands->Key(screen->grid, "PageUp");
  EXPECT_EQ(Current(), 2);
  hands->Key(screen->grid, "Up");
  EXPECT_EQ(Current(), 1);
}

TEST_F(Rows, HomeAndEndGoToTheEndsAndShowThem) {
  OpenList(kFiveMillion);
  hands->Key(screen->grid, "End");
  EXPECT_EQ(Current(), kFiveMillion);
  EXPECT_TRUE(Shown(kFiveMillion - 1));
  hands->Key(screen->grid, "Ctrl+Home");
  EXPECT_EQ(Current(), 1);
  EXPECT_TRUE(Shown(0));
}

TEST_F(Rows, ARowThatCodeFindsComesIntoView) {
  OpenList(kFiveMillion);
  screen->data.Recordset()->FindFirst("[Number]=3141592");
  EXPECT_TRUE(Shown(3'141'591));
}

TEST_F(Rows, AClickMakesARowCurrentWhereverItIs) {
  OpenList(kFiveMillion);
  hands->Row(screen->grid, Mark(1'234'567));
  EXPECT_EQ(Current(), 1'234'568);
  EXPECT_EQ(screen->Focus(), &screen->grid);
  EXPECT_EQ(screen->grid.SelBookmarks.Count(), 0);
}

TEST_F(Rows, WheelAndBarScrollWithoutMovingTheRow) {
  OpenList(kFiveMillion);
  desktop::ListView& list = List();
  QWheelEvent wheel({50, 50}, list.mapToGlobal(QPointF(50, 50)), {}, {0, -240}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(list.viewport(), &wheel);
  EXPECT_GT(list.FirstShown(), 0);
  list.verticalScrollBar()->setValue(list.verticalScrollBar()->maximum());
  list.viewport()->repaint();
  EXPECT_TRUE(Shown(kFiveMillion - 1));
  EXPECT_EQ(Current(), 1);
  EXPECT_LE(list.Rows().Held(), desktop::ListRows::kMost);
}

TEST_F(Rows, AMarkerClickMarksAloneControlAddsShiftTakesARange) {
  OpenList(50);
  hands->Mark(screen->grid, {Mark(2)});
  EXPECT_EQ(Marked(), (std::vector<std::string>{"2"}));
  EXPECT_EQ(Current(), 1) << "the current row stays";
  hands->Mark(screen->grid, {Mark(5), Mark(1)});
  EXPECT_EQ(Marked(), (std::vector<std::string>{"5", "1"}));
  input::Click(*List().viewport(), List().MarkerRect(4).center(), Qt::ShiftModifier);
  EXPECT_EQ(Marked(), (std::vector<std::string>{"1", "2", "3", "4"}));
  hands->Mark(screen->grid, {});
  EXPECT_TRUE(Marked().empty());
  EXPECT_TRUE(Saw("SelChange"));
}

TEST_F(Rows, WhereClicksMarkAPlainOneMarksItsRowAlone) {
  OpenList(50);
  screen->grid.MarksByClick(true);
  const auto click = [&](std::int64_t row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    input::Click(*List().viewport(), List().CellRect(row, column::Number).center(), modifiers);
  };
  click(2);
  EXPECT_EQ(Marked(), (std::vector<std::string>{"2"}));
  EXPECT_EQ(Current(), 3);
  click(5, Qt::ControlModifier);
  click(1, Qt::ControlModifier);
  EXPECT_EQ(Marked(), (std::vector<std::string>{"2", "5", "1"}));
  click(5, Qt::ControlModifier);
  EXPECT_EQ(Marked(), (std::vector<std::string>{"2", "1"}));
  click(4);
  EXPECT_EQ(Marked(), (std::vector<std::string>{"4"}));
  click(4);
  EXPECT_EQ(Marked(), (std::vector<std::string>{"4"}));
  click(6, Qt::ShiftModifier);
  EXPECT_EQ(Marked(), (std::vector<std::string>{"4", "5", "6"}));
  hands->Key(screen->grid, "Space");
  EXPECT_EQ(Marked(), (std::vector<std::string>{"5", "6"})) << "the row of the last plain click";
  hands->Key(screen->grid, "Down");
  EXPECT_EQ(Marked(), (std::vector<std::string>{"5", "6"})) << "an arrow alone marks nothing";
  hands->Row(screen->grid, Mark(9));
  EXPECT_EQ(Current(), 10);
  EXPECT_EQ(Marked(), (std::vector<std::string>{"5", "6"})) << "going there marks nothing";
}

TEST_F(Rows, ArrowsWithShiftMarkOnFromTheRowMarkedLast) {
  OpenList(50);
  hands->Key(screen->grid, "Shift+Down");
  EXPECT_TRUE(Marked().empty()) << "in other lists they only move";
  hands->Key(screen->grid, "Home");
  screen->grid.MarksByClick(true);
  hands->Key(screen->grid, "Down");
  hands->Key(screen->grid, "Shift+Down");
  hands->Key(screen->grid, "Shift+Down");
  EXPECT_EQ(Marked(), (std::vector<std::string>{"1", "2", "3"}));
  hands->Key(screen->grid, "Shift+Up");
  EXPECT_EQ(Marked(), (std::vector<std::string>{"1", "2"}));
  hands->Key(screen->grid, "Shift+Home");
  EXPECT_EQ(Marked(), (std::vector<std::string>{"0", "1"}));
  hands->Key(screen->grid, "Shift+End");
  EXPECT_EQ(Marked().size(), 49u);
}

TEST_F(Rows, AShiftRangeTakesAllItsRowsHoweverManyTheyAre) {
  constexpr int kFirst = 3;
  constexpr int kLast = 4500;
  OpenList(5000);
  for (const auto& [from, to] : {std::pair(kFirst, kLast), std::pair(kLast, kFirst)}) {
    screen->seen.clear();
    hands->Mark(screen->grid, {Mark(from)});
    ASSERT_TRUE(List().ScrollToRow(Mark(to)));
    input::Click(*List().viewport(), List().MarkerRect(to).center(), Qt::ShiftModifier);
    const std::vector<std::string> marked = Marked();
    ASSERT_EQ(marked.size(), static_cast<std::size_t>(kLast - kFirst + 1));
    for (int row = kFirst; row <= kLast; ++row) ASSERT_EQ(marked[static_cast<std::size_t>(row - kFirst)], std::to_string(row));
    EXPECT_EQ(std::count(screen->seen.begin(), screen->seen.end(), "SelChange"), 2) << "one for each click";
  }
  EXPECT_LE(table.mostRowsAtOnce, 1000) << "in slices";
}

TEST_F(Rows, ALongShiftRangeLetsTheWindowPaint) {
  OpenList(5000);
  hands->Mark(screen->grid, {Mark(0)});
  ASSERT_TRUE(List().ScrollToRow(Mark(4999)));
  const QPoint last = List().MarkerRect(4999).center();
  Paints paints(*List().viewport());
  table.onRead = [this] {
    QThread::msleep(10);
    List().viewport()->update();
  };
  input::Click(*List().viewport(), last, Qt::ShiftModifier);
  table.onRead = nullptr;
  EXPECT_GT(paints.count, 2);
  EXPECT_EQ(Marked().size(), 5000u);
}

TEST_F(Rows, AShiftRangeBeginsAtTheRowMarkedLastWhereverItWasThoughtToStand) {
  table.counted = false;
  table.slicesToCount = 1'000'000;
  table.estimate = 100;
  OpenList(1000);
  ASSERT_TRUE(List().ScrollToRow(Mark(700)));
  const auto thought = List().Rows().HeldOrdinal(Mark(700));
  ASSERT_TRUE(thought);
  input::Click(*List().viewport(), List().MarkerRect(*thought).center());
  EXPECT_EQ(Marked(), (std::vector<std::string>{"700"}));
  table.slicesToCount = 1;
  for (int i = 0; i < 50 && !table.counted; ++i) Process();
  for (int i = 0; i < 5; ++i) Process();
  ASSERT_TRUE(List().ScrollToRow(Mark(703)));
  input::Click(*List().viewport(), List().MarkerRect(703).center(), Qt::ShiftModifier);
  EXPECT_EQ(Marked(), (std::vector<std::string>{"700", "701", "702", "703"}));
}

TEST_F(Rows, InsertMarksAndGoesOn) {
  OpenList(50);
  hands->Key(screen->grid, "Insert");
  hands->Key(screen->grid, "Insert");
  EXPECT_EQ(Marked(), (std::vector<std::string>{"0", "1"}));
  EXPECT_EQ(Current(), 3);
}

TEST_F(Rows, ARefusedSelectionChangeMarksNothing) {
  OpenList(50);
  screen->grid.SelChange = [](bool& cancel) { cancel = true; };
  hands->Mark(screen->grid, {Mark(2)});
  EXPECT_TRUE(Marked().empty());
}

TEST_F(Rows, AListThatDoesNotMarkHasNoMarkers) {
  OpenList(50);
  screen->grid.MarksRows(false);
  EXPECT_EQ(List().MarkerWidth(), 0);
  hands->Key(screen->grid, "Insert");
  EXPECT_TRUE(Marked().empty());
}

TEST_F(Rows, ARebuiltListForgetsMarksAndStandsOnItsRow) {
  OpenList(kFiveMillion);
  hands->Mark(screen->grid, {Mark(2)});
  hands->Key(screen->grid, "End");
  screen->data.Refresh();
  Process();
  EXPECT_TRUE(Marked().empty());
  EXPECT_EQ(Current(), 1);
  EXPECT_TRUE(Shown(0));
}

TEST_F(Rows, WhileTheEngineCountsTheListWorksAndThenKnows) {
  table.counted = false;
  table.slicesToCount = 5;
  table.estimate = 1'000'000;
  OpenList(kFiveMillion);
  screen->data.Recordset()->FindFirst("[Number]=4000000");
  List();
  for (int i = 0; i < 50 && !table.counted; ++i) Process();
  EXPECT_TRUE(table.counted) << "idle time runs the slices";
  for (int i = 0; i < 5; ++i) Process();
  EXPECT_EQ(List().Rows().Count(), kFiveMillion);
  EXPECT_TRUE(Shown(3'999'999));
}

TEST_F(Rows, IdleWorkWaitsWhileAHandlerRuns) {
  table.counted = false;
  table.slicesToCount = 3;
  OpenList(1000);
  table.counted = false;
  table.slicesToCount = 3;
  front->Shared().WakeIdle();
  screen->Act([&] {
    for (int i = 0; i < 10; ++i) app->DoEvents();
  });
  EXPECT_EQ(table.slicesToCount, 3);
}

TEST_F(Rows, AClickOnARowThatAnotherUserDeletedIsReported) {
  OpenList(20);
  QTimer closer;
  QObject::connect(&closer, &QTimer::timeout, [] {
    if (auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget())) box->reject();
  });
  closer.start(5);
  const auto click = [this](std::int64_t row) { hands->Row(screen->grid, Mark(row)); };
  click(4);
  table.gone.insert(4);
  click(4);
  ASSERT_EQ(unhandled.size(), 1u);
  EXPECT_EQ(unhandled[0].Number(), 3167);
  EXPECT_EQ(Current(), 5);
  click(6);
  EXPECT_EQ(unhandled.size(), 1u);
  click(4);
  ASSERT_EQ(unhandled.size(), 2u);
  EXPECT_EQ(Current(), 7);
}

TEST_F(Rows, AfterAJumpTheFirstRowInViewIsAWholeOne) {
  OpenList(kFiveMillion);
  for (const char* criteria : {"[Number]=3141592", "[Number]=17", "[Number]=40"}) {
    screen->data.Recordset()->FindFirst(criteria);
    EXPECT_EQ(List().verticalScrollBar()->value() % List().RowHeight(), 0) << criteria;
  }
}

}  // namespace
}  // namespace desktop_test
