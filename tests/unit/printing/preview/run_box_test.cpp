// The box of a long run: when it is seen, and what takes input meanwhile. That input waits until then can't be tried here: what a test
// sends as the user comes at once.
#include "printing/preview/run_box.h"

#include "unit/printing/preview/preview_fixture.h"

namespace printing_test {
namespace {

constexpr int kAWhileMs = 450;

class RunBoxes : public testing::Test {
 protected:
  RunBoxes() {
    screen.resize(200, 100);
    button.setGeometry(0, 0, 200, 100);
    QObject::connect(&button, &QPushButton::clicked, [this] { ++clicks; });
    screen.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&screen));
    QApplication::processEvents();
  }
  void Click() {
    const QPointF place(100, 50);
    const QPointF global = button.mapToGlobal(place);
    qt_handleMouseEvent(screen.windowHandle(), place, global, Qt::LeftButton, Qt::LeftButton, QEvent::MouseButtonPress, Qt::NoModifier, 1);
    qt_handleMouseEvent(screen.windowHandle(), place, global, Qt::NoButton, Qt::LeftButton, QEvent::MouseButtonRelease, Qt::NoModifier, 2);
  }
  static QProgressDialog* Box() {
    for (QWidget* window : QApplication::topLevelWidgets())
      if (auto* box = qobject_cast<QProgressDialog*>(window)) return box;
    return nullptr;
  }

  QDialog screen;
  QPushButton button{"print", &screen};
  int clicks = 0;
};

TEST_F(RunBoxes, AShortRunShowsNone) {
  RunBox box("Printing:", nullptr);
  EXPECT_TRUE(box.GoOn(1));
  QTest::qSleep(60);
  EXPECT_TRUE(box.GoOn(2));
  EXPECT_FALSE(Box()->isVisible());
}

TEST_F(RunBoxes, ALongOneTellsHowFarItIsAndCanBeStopped) {
  RunBox box("Printing:", nullptr);
  QTest::qSleep(kAWhileMs);
  EXPECT_TRUE(box.GoOn(1234));
  ASSERT_TRUE(Box()->isVisible());
  EXPECT_EQ(Box()->labelText(), "Printing: 1,234");
  Box()->findChild<QPushButton*>()->click();
  QTest::qSleep(60);
  EXPECT_FALSE(box.GoOn(1235));
}

TEST_F(RunBoxes, NothingElseTakesInputWhileItIsSeen) {
  {
    RunBox box("Printing:", nullptr);
    QTest::qSleep(kAWhileMs);
    EXPECT_TRUE(box.GoOn(1));
    Click();
    QTest::qSleep(60);
    EXPECT_TRUE(box.GoOn(2));
    EXPECT_EQ(clicks, 0);
  }
  QApplication::processEvents();
  Click();
  QApplication::processEvents();
  EXPECT_EQ(clicks, 1) << "afterwards";
}

}  // namespace
}  // namespace printing_test
