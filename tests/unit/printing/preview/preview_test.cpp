#include "unit/printing/preview/preview_fixture.h"

namespace printing_test {
namespace {

TEST_F(Preview, ShowsItsFirstPageAtOnceAndTheOthersLater) {
  Open(4000);
  EXPECT_EQ(atOnce, 5) << "the first page's rows, and the one that ended it";
  EXPECT_EQ(Place(), "Page 1 of …");
  EXPECT_EQ(window->windowTitle(), "Customers: all");
  Finish();
  EXPECT_EQ(Place(), "Page 1 of 1000");
}

TEST_F(Preview, WaitsWhileOtherWorkIsUnderWay) {
  busy = true;
  Open(4000);
  const int before = MadeUpRun::advanced;
  QTest::qWait(120);
  EXPECT_EQ(MadeUpRun::advanced, before);
  busy = false;
  Finish();
}

TEST_F(Preview, CountsTheRowsOnlyWhereLayingOutLastsLong) {
  busy = true;
  Open(40'000);
  EXPECT_EQ(MadeUpRun::counted, 0) << "the first page waited for it";
  const auto* progress = window->findChild<QLabel*>("previewProgress");
  EXPECT_EQ(progress->text(), "5 rows laid out");
  QTest::qWait(1100);
  busy = false;
  ASSERT_TRUE(QTest::qWaitFor([&] { return MadeUpRun::counted > 0 || window->Complete(); }));
  EXPECT_TRUE(progress->text().endsWith(" of 40,000 rows laid out")) << progress->text().toStdString();
}

TEST_F(Preview, GoesThroughItsPagesByKeys) {
  Open(40);
  Finish();
  Key(Qt::Key_PageDown);
  EXPECT_EQ(Place(), "Page 2 of 10");
  Key(Qt::Key_End);
  EXPECT_EQ(Place(), "Page 10 of 10");
  EXPECT_FALSE(window->findChild<QAction*>("previewNext")->isEnabled());
  Key(Qt::Key_PageUp);
  EXPECT_EQ(Place(), "Page 9 of 10");
  Key(Qt::Key_Home);
  EXPECT_EQ(Place(), "Page 1 of 10");
  EXPECT_FALSE(window->findChild<QAction*>("previewPrevious")->isEnabled());
  Key(Qt::Key_G, Qt::ControlModifier);
  Type("7");
  Key(Qt::Key_Return);
  EXPECT_EQ(Place(), "Page 7 of 10");
  EXPECT_TRUE(View().hasFocus());
  Key(Qt::Key_G, Qt::ControlModifier);
  Type("700");
  Key(Qt::Key_Return);
  EXPECT_EQ(Place(), "Page 10 of 10");
}

TEST_F(Preview, GoesThroughItsPagesByWheelAndInSmall) {
  Open(40);
  Finish();
  for (int notch = 0; notch < 400; ++notch) Wheel(-120);
  EXPECT_EQ(View().verticalScrollBar()->value(), View().verticalScrollBar()->maximum());
  auto* small = window->findChild<QListView*>("previewThumbnails");
  ASSERT_EQ(small->model()->rowCount(), 10);
  small->scrollToTop();
  QTest::mouseClick(small->viewport(), Qt::LeftButton, {}, small->visualRect(small->model()->index(1, 0)).center());
  EXPECT_EQ(Place(), "Page 2 of 10");
  Choose("previewThumbnails");
  EXPECT_FALSE(small->isVisible());
}

TEST_F(Preview, Zooms) {
  Open(40);
  Key(Qt::Key_1, Qt::ControlModifier);
  EXPECT_EQ(View().Zoom(), 1);
  Key(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(View().Zoom(), 1.25);
  Key(Qt::Key_Minus, Qt::ControlModifier);
  Key(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(View().Zoom(), 0.75);
  Wheel(120, Qt::ControlModifier);
  EXPECT_NEAR(View().Zoom(), 0.75 * 1.15, 1e-9);
  Choose("previewFitPage");
  EXPECT_LT(View().Zoom() * View().logicalDpiX() * 11, View().viewport()->height());
  window->resize(window->width(), window->height() + 100);
  QApplication::processEvents();
  EXPECT_NEAR(View().Zoom() * View().logicalDpiX() * 11, View().viewport()->height() - 28, 1) << "fits still";
  Choose("previewFitWidth");
  EXPECT_NEAR(View().Zoom() * View().logicalDpiX() * 8.5, View().viewport()->width() - 28, 1);
  for (int step = 0; step < 40; ++step) Key(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(View().Zoom(), PageView::kMostZoom);
}

TEST_F(Preview, FindsWhatStandsInNeighbouringFields) {
  Open(40);
  Finish();
  Edit("previewFindText").setText("customer 6 6");
  Choose("previewFindNext");
  ASSERT_TRUE(Found());
  EXPECT_EQ(Place(), "Page 2 of 10");
  EXPECT_EQ(window->statusBar()->currentMessage(), "");
  Edit("previewFindText").setText("6 customer");
  Choose("previewFindNext");
  ASSERT_TRUE(Found());
  EXPECT_EQ(window->statusBar()->currentMessage(), "\"6 customer\" is not in this report.") << "the fields of another line";
}

TEST_F(Preview, FindsTexts) {
  Open(40);
  Finish();
  Key(Qt::Key_F, Qt::ControlModifier);
  Type("CUSTOMER 3");
  Key(Qt::Key_Return);
  ASSERT_TRUE(Found());
  EXPECT_EQ(Place(), "Page 1 of 10");
  Key(Qt::Key_F3);
  ASSERT_TRUE(Found());
  EXPECT_EQ(Place(), "Page 8 of 10") << "customer 30";
  Key(Qt::Key_F3, Qt::ShiftModifier);
  ASSERT_TRUE(Found());
  EXPECT_EQ(Place(), "Page 1 of 10");
  Key(Qt::Key_F3, Qt::ShiftModifier);
  ASSERT_TRUE(Found());
  EXPECT_EQ(Place(), "Page 10 of 10") << "round the beginning to customer 39";
  Edit("previewFindText").setText("nobody");
  Key(Qt::Key_F3);
  ASSERT_TRUE(QTest::qWaitFor([this] { return window->statusBar()->currentMessage() == "\"nobody\" is not in this report."; }));
}

TEST_F(Preview, MarksWhatItFound) {
  Open(4);
  Finish();
  const auto marked = [this] {
    const QImage picture = View().viewport()->grab().toImage();
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x) count += picture.pixelColor(x, y) == QColor(255, 226, 110) ? 1 : 0;
    return count;
  };
  EXPECT_EQ(marked(), 0);
  Edit("previewFindText").setText("customer");
  Key(Qt::Key_F3);
  ASSERT_TRUE(Found());
  EXPECT_GT(marked(), 100);
  Edit("previewFindText").clear();
  EXPECT_EQ(marked(), 0);
}

TEST_F(Preview, CopiesTexts) {
  Open(2);
  Finish();
  Key(Qt::Key_A, Qt::ControlModifier);
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "Page 1\nCustomer 1\t1\nCustomer 2\t2\nOf 1");
  // By the mouse over the first detail alone.
  const double unit = View().Zoom() * View().logicalDpiX();
  const int left = std::max(14, static_cast<int>((View().viewport()->width() - 8.5 * unit) / 2)) - View().horizontalScrollBar()->value();
  const auto at = [&](double x, double y) { return QPoint(left + static_cast<int>(x * unit), 14 + static_cast<int>(y * unit)); };
  QTest::mousePress(View().viewport(), Qt::LeftButton, {}, at(0.4, 1.45));
  QTest::mouseMove(View().viewport(), at(1, 1.6));
  QTest::mouseMove(View().viewport(), at(2, 1.8));
  QTest::mouseRelease(View().viewport(), Qt::LeftButton, {}, at(2, 1.8));
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "Customer 1");
}

TEST_F(Preview, PrintsWithTheRunsSettings) {
  QTemporaryDir folder;
  PrinterRun asked;
  std::int64_t pages = 0;
  previews.dialogs.askPrinter = [&](QWidget&, PrinterRun& run, std::int64_t count) {
    asked = run;
    pages = count;
    run.toFile = folder.filePath("printed.pdf").toStdString();
    return true;
  };
  Open(40);
  Key(Qt::Key_P, Qt::ControlModifier);
  EXPECT_EQ(asked.printer, "upstairs");
  EXPECT_EQ(asked.copies, 3);
  EXPECT_EQ(asked.from, 2);
  EXPECT_EQ(asked.to, 3);
  EXPECT_EQ(pages, 10) << "all of them are laid out first";
  EXPECT_TRUE(QFile::exists(folder.filePath("printed.pdf")));
  EXPECT_TRUE(told.isEmpty());
}

TEST_F(Preview, SaysThatThereIsNoPrinter) {
  previews.dialogs.askPrinter = [](QWidget&, PrinterRun&, std::int64_t) { return true; };
  Open(4);
  Choose("previewPrint");
  EXPECT_EQ(told, QStringList("there is no printer upstairs"));
}

TEST_F(Preview, ExportsPagesAndRows) {
  QTemporaryDir folder;
  QString suggested;
  previews.dialogs.askFile = [&](QWidget&, const QString& kind, const QString& suggestion) {
    suggested = suggestion;
    return std::optional<QString>(folder.filePath("out." + kind));
  };
  Open(40);
  for (const char* action : {"previewPdf", "previewCsv", "previewXlsx"}) Choose(action);
  EXPECT_EQ(suggested, "Customers all") << "what no file's name may hold is left out";
  for (const char* name : {"out.pdf", "out.csv", "out.xlsx"}) EXPECT_TRUE(QFile::exists(folder.filePath(name))) << name;
  QFile rows(folder.filePath("out.csv"));
  ASSERT_TRUE(rows.open(QIODevice::ReadOnly));
  EXPECT_EQ(rows.readAll().left(14), "Number\r\n1\r\n2\r\n");
  previews.dialogs.askFile = [&](QWidget&, const QString&, const QString&) {
    return std::optional<QString>(folder.filePath("none/x.csv"));
  };
  Open(4);
  Choose("previewCsv");
  EXPECT_EQ(told.size(), 1);
}

TEST_F(Preview, OfARunThatFailsShowsWhatThereIs) {
  Open(40, 10);
  Finish();
  EXPECT_EQ(Place(), "Page 1 of 2");
  EXPECT_EQ(window->findChild<QLabel*>("previewProgress")->text(), "The report could not be finished: the file is gone");
}

}  // namespace
}  // namespace printing_test
