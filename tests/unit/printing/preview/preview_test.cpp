#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QElapsedTimer>
#include <QListView>
#include <QScrollBar>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QtTest>

#include "printing/data/report_errors.h"
#include "printing/layout/detail_rows.h"
#include "printing/layout/report_layout.h"
#include "printing/preview/preview_window.h"
#include "printing/preview/previews.h"
#include "unit/printing/support/made_up_report.h"

namespace printing_test {
namespace {

using namespace printing;

/// A report of so many pages, four details on each.
class MadeUpRun final : public PreviewRun {
 public:
  MadeUpRun(const FontSet& fonts, int rows, int failsAt = -1)
      : report_(ReportOf()),
        rows_(Numbered(rows)),
        values_(report_, rows_),
        layout_(report_, values_, rows_, fonts, pages_),
        failsAt_(failsAt) {}

  static ReportDefinition ReportOf() {
    auto report = Report(
        {BandOf(BandKind::PageHeader, 1, {FieldAt(0, 0, 3, 0.2, Joined(Text("Page "), Known(SystemValue::PageNumber)))}),
         BandOf(BandKind::Detail, 2, {FieldAt(0, 0, 3, 0.2, Joined(Text("Customer "), Field("N"))), FieldAt(4, 0, 2, 0.2, Field("N"))}),
         BandOf(BandKind::PageFooter, 1, {FieldAt(0, 0, 3, 0.2, Joined(Text("Of "), Known(SystemValue::PageCount)))})});
    report.bands[1].elements[1].column = "Number";
    return report;
  }

  bool Advance() override {
    if (layout_.Records() == failsAt_) throw ReportFailure(ReportError::ReadingFailed, "the file is gone");
    ++advanced;
    return layout_.Advance();
  }
  const PageSpool& Pages() const override { return pages_; }
  std::int64_t RowsDone() const override { return layout_.Records(); }
  std::int64_t RowsInAll() override { return rows_.Count(); }
  void Export(DetailSink& sink, const Progress& progress) override {
    MadeUpRows again = Numbered(static_cast<int>(rows_.Count()));
    MadeUpValues values(report_, again);
    DetailRows walk(report_, values, again, sink);
    while (walk.Advance()) Ask(progress, walk.Records());
  }

  static inline int advanced = 0;

 private:
  ReportDefinition report_;
  MadeUpRows rows_;
  MadeUpValues values_;
  PageSpool pages_;
  ReportLayout layout_;
  int failsAt_;
};

class Preview : public testing::Test {
 protected:
  Preview() : previews([this] { return busy; }) {
    MadeUpRun::advanced = 0;
    previews.dialogs.tell = [this](QWidget&, const QString& text) { told << text; };
  }

  PreviewWindow& Open(int rows, int failsAt = -1) {
    PreviewSettings settings;
    settings.title = "Customers: all";
    settings.copies = 3;
    settings.from = 2;
    settings.to = 3;
    settings.printer = "upstairs";
    window = &previews.Open(std::make_unique<MadeUpRun>(*previews.Fonts(), rows, failsAt), settings);
    atOnce = MadeUpRun::advanced;
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window));
    return *window;
  }
  void Finish() {
    ASSERT_TRUE(QTest::qWaitFor([this] { return window->Complete(); }));
    QApplication::processEvents();
  }
  QString Place() const { return window->findChild<QLabel*>("previewPlace")->text(); }
  PageView& View() const { return *window->findChild<PageView*>(); }
  QLineEdit& Edit(const char* name) const { return *window->findChild<QLineEdit*>(name); }
  void Key(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) const {
    QTest::keyClick(window->windowHandle(), key, with);
    QApplication::processEvents();
  }
  void Type(const QString& text) const {
    for (const QChar letter : text) QTest::keyClick(window->windowHandle(), letter.toLatin1());
  }
  void Wheel(int angle, Qt::KeyboardModifiers with = Qt::NoModifier) const {
    const QPointF place(200, 200);
    QWheelEvent event(place, View().viewport()->mapToGlobal(place), QPoint(), QPoint(0, angle), Qt::NoButton, with, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(View().viewport(), &event);
  }
  void Choose(const char* action) const { window->findChild<QAction*>(action)->trigger(); }
  bool Found() const {
    return QTest::qWaitFor([this] { return !window->statusBar()->currentMessage().startsWith("Searching"); });
  }

  bool busy = false;
  int atOnce = 0;  ///< steps that were taken when the window was made
  QStringList told;
  Previews previews;
  PreviewWindow* window = nullptr;
};

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

/// A modal window with a button that counts.
struct Screen {
  Screen() {
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.resize(200, 100);
    dialog.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    QApplication::processEvents();
  }
  QDialog dialog;
};

TEST_F(Preview, TakesInputWhileModalScreensAreUp) {
  Open(40);
  Finish();
  {
    const Screen screen;
    Key(Qt::Key_PageDown);
    EXPECT_EQ(Place(), "Page 2 of 10") << "a screen that was opened later";
    {
      const Screen box;
      Key(Qt::Key_PageDown);
      EXPECT_EQ(Place(), "Page 3 of 10") << "a box above it";
    }
    QApplication::processEvents();
    Key(Qt::Key_PageDown);
    EXPECT_EQ(Place(), "Page 4 of 10") << "the box is gone, the screen is not";
    PreviewWindow* first = window;
    Open(80);
    Finish();
    Key(Qt::Key_PageDown);
    EXPECT_EQ(Place(), "Page 2 of 20") << "one that was opened under the screen";
    window = first;
    Key(Qt::Key_PageDown);
    EXPECT_EQ(Place(), "Page 5 of 10");
  }
  QApplication::processEvents();
  Key(Qt::Key_PageDown);
  EXPECT_EQ(Place(), "Page 6 of 10");
  EXPECT_TRUE(window->isVisible());
}

TEST_F(Preview, LeavesScreensTheirInput) {
  Screen screen;
  Open(4);
  QPushButton button("ok", &screen.dialog);
  button.show();
  int clicks = 0;
  QObject::connect(&button, &QPushButton::clicked, [&] { ++clicks; });
  QTest::mouseClick(screen.dialog.windowHandle(), Qt::LeftButton, {}, button.geometry().center());
  EXPECT_EQ(clicks, 1);
}

TEST_F(Preview, SeveralCloseTogether) {
  Open(40);
  Open(40);
  EXPECT_EQ(previews.Count(), 2U);
  window->close();
  EXPECT_EQ(previews.Count(), 1U);
  previews.CloseAll();
  EXPECT_EQ(previews.Count(), 0U);
  QApplication::processEvents();
}

TEST_F(Preview, ClosedInTheMiddleOfAnExportStopsIt) {
  QTemporaryDir folder;
  previews.dialogs.askFile = [&](QWidget&, const QString&, const QString&) { return std::optional<QString>(folder.filePath("out.csv")); };
  Open(300000);
  QTimer::singleShot(40, [this] { previews.CloseAll(); });
  Choose("previewCsv");
  EXPECT_FALSE(QFile::exists(folder.filePath("out.csv")));
  QApplication::processEvents();
  EXPECT_EQ(previews.Count(), 0U);
}

TEST_F(Preview, PaperIsWhiteOnADarkDesk) {
  const QPalette before = QApplication::palette();
  QPalette dark;
  dark.setColor(QPalette::Window, QColor("#1f2226"));
  dark.setColor(QPalette::WindowText, QColor("#e3e6ea"));
  QApplication::setPalette(dark);
  Open(4);
  Choose("previewFitPage");
  QApplication::processEvents();
  const QImage picture = View().viewport()->grab().toImage();
  EXPECT_EQ(picture.pixelColor(picture.width() / 2, picture.height() / 2), QColor(Qt::white));
  EXPECT_LT(picture.pixelColor(3, picture.height() / 2).lightness(), 40);
  QApplication::setPalette(before);
}

}  // namespace
}  // namespace printing_test

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
