#include "desktop/window/run_window.h"

#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include "desktop/map/map_window.h"

namespace desktop_test {
namespace {

class Runs : public MapWindow {
 protected:
  void SetUp() override { front->Shown(*screen); }
  void TearDown() override { front->ProgressEnds(); }
  static QDialog* Shown() {
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (widget->objectName() == "runProgress" && widget->isVisible()) return qobject_cast<QDialog*>(widget);
    return nullptr;
  }
  /// The first calls, until the window is up.
  bool Begin(std::int64_t total = 40) {
    front->Progress({"Customer Mapping", 1, total});
    QTest::qSleep(520);
    return front->Progress({"Customer Mapping", 12, total});
  }
};

TEST_F(Runs, AShortRunShowsNothing) {
  for (int i = 1; i <= 40; ++i) {
    EXPECT_TRUE(front->Progress({"Customer Mapping", i, 40}));
    front->DoEvents();
    EXPECT_EQ(Shown(), nullptr);
  }
}

TEST_F(Runs, ALongOneSaysHowFarItIs) {
  EXPECT_TRUE(Begin(12'000));
  QDialog* shown = Shown();
  ASSERT_NE(shown, nullptr);
  EXPECT_TRUE(shown->isModal());
  EXPECT_EQ(shown->windowTitle(), "Customer Mapping");
  EXPECT_EQ(shown->findChild<QLabel*>()->text(), "12 of 12,000");
  QTest::qSleep(110);
  EXPECT_TRUE(front->Progress({"Customer Mapping", 6000, 12'000}));
  EXPECT_EQ(shown->findChild<QLabel*>()->text(), "6,000 of 12,000");
  auto* bar = shown->findChild<QProgressBar*>();
  EXPECT_EQ(bar->value() * 2, bar->maximum());
  front->ProgressEnds();
  EXPECT_EQ(Shown(), nullptr);
}

TEST_F(Runs, NobodyKnowsOfHowMany) {
  EXPECT_TRUE(Begin(0));
  EXPECT_EQ(Shown()->findChild<QLabel*>()->text(), "12");
  EXPECT_EQ(Shown()->findChild<QProgressBar*>()->maximum(), 0);
}

TEST_F(Runs, StopEscapeAndTheFrameStopIt) {
  for (int way = 0; way < 3; ++way) {
    EXPECT_TRUE(Begin());
    QDialog* shown = Shown();
    ASSERT_NE(shown, nullptr);
    if (way == 0) desktop::input::Click(*shown->findChild<QPushButton*>());
    if (way == 1) desktop::input::Key(*shown, Qt::Key_Escape, Qt::NoModifier, "\x1b");
    if (way == 2) shown->close();
    front->DoEvents();
    EXPECT_FALSE(front->Progress({"Customer Mapping", 13, 40})) << way;
    front->ProgressEnds();
    EXPECT_EQ(Shown(), nullptr);
  }
}

TEST_F(Runs, TheNextRunBeginsAnew) {
  Begin();
  Shown()->reject();
  EXPECT_FALSE(front->Progress({"Customer Mapping", 13, 40}));
  front->ProgressEnds();
  EXPECT_TRUE(front->Progress({"Customer Mapping", 1, 40}));
}

TEST_F(Runs, ABoxInTheMiddleStandsOverIt) {
  Begin();
  EXPECT_EQ(front->BoxParent(), Shown());
}

TEST_F(Runs, TheWindowBelowMayGo) {
  Begin();
  ASSERT_NE(Shown(), nullptr);
  CloseScreen();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(Shown(), nullptr);
  EXPECT_FALSE(front->Progress({"Customer Mapping", 13, 40}));
}

}  // namespace
}  // namespace desktop_test
