#include <QToolBar>
#include <QToolButton>

#include "unit/printing/preview/preview_fixture.h"

namespace printing_test {
namespace {

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

/// How far the laying out was when a preview's pages were painted for the first time.
class FirstPainting final : public QObject {
 public:
  FirstPainting() { qApp->installEventFilter(this); }
  int advanced = -1;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const QObject* parent = watched->parent();
    if (event->type() == QEvent::Paint && advanced < 0 && parent && parent->inherits("printing::PageView")) advanced = MadeUpRun::advanced;
    return false;
  }
};

TEST_F(Preview, PaintsItsFirstPageBeforeItLaysOutTheOthers) {
  const FirstPainting first;
  Open(4000);
  ASSERT_TRUE(QTest::qWaitFor([&] { return first.advanced >= 0; }));
  EXPECT_EQ(first.advanced, atOnce);
  Finish();
}

TEST_F(Preview, IsLaidOutAlsoWhereNobodySeesIt) {
  PreviewWindow& hidden = Open(40);
  hidden.hide();
  Finish();
  PreviewWindow never(std::make_unique<MadeUpRun>(*previews.Fonts(), 40), previews.Fonts(), {}, {}, previews.dialogs);
  EXPECT_TRUE(QTest::qWaitFor([&] { return never.Complete(); }));
}

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

TEST_F(Preview, AnExportCanBeStopped) {
  QTemporaryDir folder;
  previews.dialogs.askFile = [&](QWidget&, const QString&, const QString&) { return std::optional<QString>(folder.filePath("out.csv")); };
  Open(10);
  MadeUpRun::slow = true;
  QTimer looks;
  looks.setInterval(20);
  QObject::connect(&looks, &QTimer::timeout, [this] {
    const auto* box = window->findChild<QProgressDialog*>();
    if (box && box->isVisible()) box->findChild<QPushButton*>()->click();
  });
  looks.start();
  Choose("previewCsv");
  MadeUpRun::slow = false;
  EXPECT_FALSE(QFile::exists(folder.filePath("out.csv")));
  EXPECT_EQ(window->statusBar()->currentMessage(), "Stopped.");
  EXPECT_TRUE(told.isEmpty());
}

TEST_F(Preview, ClosedInTheMiddleOfAnExportStopsIt) {
  QTemporaryDir folder;
  previews.dialogs.askFile = [&](QWidget&, const QString&, const QString&) { return std::optional<QString>(folder.filePath("out.csv")); };
  Open(10);
  MadeUpRun::slow = true;
  QTimer::singleShot(40, [this] { previews.CloseAll(); });
  Choose("previewCsv");
  MadeUpRun::slow = false;
  EXPECT_FALSE(QFile::exists(folder.filePath("out.csv")));
  QApplication::processEvents();
  EXPECT_EQ(previews.Count(), 0U);
}

// On a screen of 1920 points at double size, and on any larger one.
TEST_F(Preview, AllCommandsStandOnTheBar) {
  Open(4);
  for (const int width : {960, 1024, 1600}) {
    window->resize(width, 700);
    QApplication::processEvents();
    auto* bar = window->findChild<QToolBar*>("previewBar");
    for (QAction* action : bar->actions()) {
      const QWidget* shown = bar->widgetForAction(action);
      EXPECT_TRUE(shown->isVisible()) << width << ": " << action->objectName().toStdString();
      EXPECT_LE(shown->geometry().right(), bar->width()) << width << ": " << action->objectName().toStdString();
    }
    EXPECT_FALSE(bar->findChild<QToolButton*>("qt_toolbar_ext_button")->isVisible()) << width;
  }
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
