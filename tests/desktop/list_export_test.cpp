#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "desktop/list/list_view.h"
#include "desktop/support/desk.h"
#include "platform/values/convert.h"

// A list's way into a file: which file, which columns and rows, and what stops it.
namespace desktop_test {
namespace {

struct Written {
  int times = 0;
  std::string path;
  platform::ExportedList list;
  std::vector<std::vector<platform::Value>> rows;
  bool stopped = false;
};

/// Takes all rows, or so many.
class CollectingExport final : public platform::ListExport {
 public:
  explicit CollectingExport(Written& written) : written_(written) {}
  std::function<void(std::size_t rows)> onRow;
  bool Export(const platform::ExportedList& list, platform::ExportRows& rows, const std::string& path) override {
    ++written_.times;
    written_.path = path;
    written_.list = list;
    std::vector<platform::Value> cells;
    for (;;) {
      const auto step = rows.Next(cells);
      written_.stopped = step == platform::ExportRows::Step::Stopped;
      if (step != platform::ExportRows::Step::Row) return !written_.stopped;
      written_.rows.push_back(cells);
      if (onRow) onRow(written_.rows.size());
    }
  }

 private:
  Written& written_;
};

class Export : public Desk {
 protected:
  void SetUp() override {
    auto made = std::make_unique<CollectingExport>(written);
    collecting = made.get();
    exporter = std::move(made);
  }
  desktop::ListView& List() {
    auto& list = Widget<desktop::ListView>("grid");
    list.Sync();
    return list;
  }
  QFileDialog* Dialog() { return window->findChild<QFileDialog*>("exportDialog"); }
  void Choose(const QString& path) {
    QFileDialog* dialog = Dialog();
    ASSERT_NE(dialog, nullptr);
    emit dialog->fileSelected(path);
    dialog->close();
    Process();
  }
  Written written;
  CollectingExport* collecting = nullptr;
};

TEST_F(Export, FromTheFileMenuToAllRows) {
  OpenList(1000);
  auto* action = window->findChild<QAction*>("exportListAction");
  ASSERT_NE(action, nullptr);
  action->trigger();
  Choose("/tmp/list.csv");
  EXPECT_EQ(written.path, "/tmp/list.csv");
  EXPECT_EQ(written.list.title, screen->Caption());
  ASSERT_EQ(written.list.columns.size(), 6u);
  EXPECT_EQ(written.list.columns[2].caption, "Amount");
  EXPECT_EQ(written.list.columns[2].format, "Currency");
  ASSERT_EQ(written.rows.size(), 1000u);
  for (std::int64_t row : {0, 255, 256, 999}) {
    const auto& cells = written.rows[static_cast<std::size_t>(row)];
    EXPECT_EQ(cells[0], FakeValue(table, row, 0)) << row;
    EXPECT_EQ(cells[2], FakeValue(table, row, 2)) << "an amount stays an amount";
    EXPECT_EQ(cells[5], platform::Value(FakeValue(table, row, 5) == platform::Value("A") ? "First" : "Second"));
  }
}

TEST_F(Export, HiddenColumnsStayAtHomeAndMovedOnesAreWhereTheyAreShown) {
  OpenList(3);
  List().ArrangeColumns({"Number", "Amount", "Name", "Born", "Member", "Grade"}, {"Born", "Member"});
  List().ExportList();
  Choose("/tmp/list.xlsx");
  std::vector<std::string> captions;
  for (const auto& column : written.list.columns) captions.push_back(column.caption);
  EXPECT_EQ(captions, (std::vector<std::string>{"No.", "Amount", "Name", "Grade"}));
  ASSERT_EQ(written.rows.size(), 3u);
  EXPECT_EQ(written.rows[2][1], FakeValue(table, 2, 2));
}

TEST_F(Export, TheOrderIsTold) {
  OpenList(3);
  screen->data.RecordSource("SELECT * FROM People ORDER BY Name DESC;");
  screen->data.Refresh();
  List().ExportList();
  Choose("/tmp/list.pdf");
  EXPECT_EQ(written.list.notes, std::vector<std::string>{"Descending by Name"});
}

TEST_F(Export, RowsThatCanNotBeReadArePassedOverAndTheCurrentRowStays) {
  OpenList(600);
  table.unreadable = {5, 256};
  const auto current = screen->grid.CurrentBookmark();
  List().ExportList();
  Choose("/tmp/list.csv");
  EXPECT_EQ(written.rows.size(), 598u);
  EXPECT_EQ(screen->grid.CurrentBookmark(), current);
}

TEST_F(Export, AnEmptyListHasHeadingsAlone) {
  OpenList(0);
  List().ExportList();
  Choose("/tmp/list.csv");
  EXPECT_EQ(written.times, 1);
  EXPECT_TRUE(written.rows.empty());
  EXPECT_FALSE(written.stopped);
}

TEST_F(Export, StopEndsIt) {
  OpenList(100'000);
  const auto shown = []() -> QWidget* {
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (widget->objectName() == "runProgress" && widget->isVisible()) return widget;
    return nullptr;
  };
  bool pressed = false;
  collecting->onRow = [&](std::size_t rows) {
    if (rows == 256) QTest::qSleep(520);  // a run that takes a while shows itself
    QWidget* const run = pressed ? nullptr : shown();
    if (run == nullptr) return;
    EXPECT_EQ(run->windowTitle(), "Exporting");
    run->findChild<QPushButton*>("runProgressStop")->click();
    pressed = true;
  };
  List().ExportList();
  Choose("/tmp/list.csv");
  EXPECT_TRUE(pressed);
  EXPECT_TRUE(written.stopped);
  EXPECT_LT(written.rows.size(), 2'000u);
  EXPECT_EQ(shown(), nullptr);
}

TEST_F(Export, AReadThatFailsIsToldAndTheListIsUsable) {
  OpenList(1000);
  QTimer closer;
  QObject::connect(&closer, &QTimer::timeout, [this] {
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      table.broken = false;
      box->close();
    }
  });
  closer.start(5);
  collecting->onRow = [this](std::size_t rows) {
    if (rows == 300) table.broken = true;
  };
  List().ExportList();
  Choose("/tmp/list.csv");
  EXPECT_EQ(unhandled.size(), 1u);
  hands->Key(screen->grid, "Down");
  EXPECT_EQ(screen->grid.ColumnValue(column::Number).As<std::int32_t>(), 2);
}

TEST_F(Export, TheScreenMayCloseBeforeTheFileIsChosen) {
  OpenList(10);
  List().ExportList();
  QFileDialog* dialog = Dialog();
  ASSERT_NE(dialog, nullptr);
  emit dialog->fileSelected("/tmp/list.csv");
  CloseScreen();
  Process();
  EXPECT_EQ(written.times, 0);
}

TEST_F(Export, WithoutAnExporterThereIsNothingToChoose) {
  exporter.reset();
  collecting = nullptr;
  OpenList(10);
  EXPECT_FALSE(List().CanExport());
  List().ExportList();
  EXPECT_EQ(Dialog(), nullptr);
  auto* menu = Widget<QMenu>("mnuFile").menuAction()->menu();
  emit menu->aboutToShow();
  EXPECT_FALSE(window->findChild<QAction*>("exportListAction")->isEnabled());
}

}  // namespace
}  // namespace desktop_test
