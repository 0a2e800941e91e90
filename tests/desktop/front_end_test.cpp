#include "desktop/window/front_end.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>
#include <stdexcept>
#include <thread>

#include "desktop/hands/input.h"
#include "desktop/support/desk.h"
#include "platform/values/error.h"

namespace desktop_test {
namespace {

using platform::Error;

class FrontEnd : public Desk {};

/// Lets one environment variable differ for a while.
class Environment {
 public:
  Environment(const char* name, const QByteArray& value) : name_(name), was_(qgetenv(name)), set_(qEnvironmentVariableIsSet(name)) {
    if (value.isNull()) {
      qunsetenv(name);
    } else {
      qputenv(name, value);
    }
  }
  ~Environment() {
    if (set_) {
      qputenv(name_, was_);
    } else {
      qunsetenv(name_);
    }
  }

 private:
  const char* name_;
  QByteArray was_;
  bool set_;
};

TEST_F(FrontEnd, MakesTheApplicationObjectAndTakesItAway) {
  ASSERT_EQ(QCoreApplication::instance(), nullptr);
  Start();
  EXPECT_NE(qobject_cast<QApplication*>(QCoreApplication::instance()), nullptr);
  screen.reset();
  hands.reset();
  app.reset();
  EXPECT_EQ(QCoreApplication::instance(), nullptr);
}

TEST_F(FrontEnd, UsesTheHostsApplicationObjectAndLeavesItsColours) {
  int count = 1;
  char name[] = "host";
  char* arguments[] = {name, nullptr};
  QApplication host(count, arguments);
  const QPalette colours = QApplication::palette();
  desktop::DesktopOptions options;
  options.colorScheme = "dark";
  Start(options);
  Open();
  EXPECT_EQ(QApplication::palette(), colours);
  EXPECT_TRUE(window->isVisible());
  CloseScreen();
  hands.reset();
  app.reset();
  EXPECT_EQ(QCoreApplication::instance(), &host);
}

TEST_F(FrontEnd, RefusesAnotherThread) {
  Start();
  int number = 0;
  std::thread other([&] {
    try {
      desktop::DesktopFrontEnd second({});
    } catch (const Error& error) {
      number = error.Number();
    }
  });
  other.join();
  EXPECT_EQ(number, 5);
}

TEST_F(FrontEnd, RefusesAHostWithoutWindows) {
  int count = 1;
  char name[] = "host";
  char* arguments[] = {name, nullptr};
  QCoreApplication host(count, arguments);
  EXPECT_THROW(desktop::DesktopFrontEnd({}), Error);
}

TEST_F(FrontEnd, WithoutADisplayItSaysSoOrDrawsIntoMemory) {
  const Environment platform("QT_QPA_PLATFORM", {});
  const Environment display("DISPLAY", {});
  const Environment wayland("WAYLAND_DISPLAY", {});
  EXPECT_THROW(desktop::DesktopFrontEnd({}), Error);
  desktop::DesktopOptions options;
  options.offscreenIfNoDisplay = true;
  Start(options);
  EXPECT_EQ(QGuiApplication::platformName(), "offscreen");
}

TEST_F(FrontEnd, TheModalLoopEndsWithTheScreen) {
  Start();
  QTimer::singleShot(20, [&] { app->Unload(*screen); });
  app->Show(*screen);
  EXPECT_FALSE(screen->Loaded());
}

TEST_F(FrontEnd, TheModalLoopEndsWhenTheScreenHides) {
  Start();
  QTimer::singleShot(20, [&] { app->Hide(*screen); });
  app->Show(*screen);
  EXPECT_TRUE(screen->Loaded());
}

TEST_F(FrontEnd, ClosingTheFrameUnloads) {
  Start();
  QTimer::singleShot(20, [&] { front->WindowOf(*screen)->close(); });
  app->Show(*screen);
  EXPECT_FALSE(screen->Loaded());
}

TEST_F(FrontEnd, ClosingTheFrameDuringAHandlerWaitsForItsEnd) {
  Open();
  screen->Act([&] {
    window->close();
    EXPECT_TRUE(screen->Loaded());
  });
  EXPECT_FALSE(screen->Loaded());
}

TEST_F(FrontEnd, AnUnloadFromAButtonsOwnHandlerIsSafe) {
  Open();
  screen->SSIndexTab1.Tab(1);
  screen->cmdGo.Click = [&] { app->Unload(*screen); };
  Process();
  hands->Click(screen->cmdGo);
  EXPECT_FALSE(screen->Loaded());
}

TEST_F(FrontEnd, ErrorsOfHandlersBecomeOneBoxAndTheScreenStaysUsable) {
  Open();
  screen->SSIndexTab1.Tab(1);
  Process();
  screen->cmdGo.Click = [] { throw Error(93, "Invalid pattern string"); };
  QString told;
  QTimer::singleShot(0, [&] {
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      told = box->text();
      box->close();
    }
  });
  hands->Click(screen->cmdGo);
  EXPECT_EQ(told, "Invalid pattern string");
  ASSERT_EQ(unhandled.size(), 1u);
  hands->Click(screen->chkOn);
  EXPECT_EQ(screen->chkOn.Value(), 1);
}

TEST_F(FrontEnd, OtherExceptionsNeverReachTheToolkit) {
  Open();
  screen->SSIndexTab1.Tab(1);
  Process();
  screen->cmdGo.Click = [] { throw std::runtime_error("a fault"); };
  screen->chkOn.Click = [] { throw 5; };
  hands->Click(screen->cmdGo);
  hands->Click(screen->chkOn);
  EXPECT_TRUE(window->isVisible());
}

TEST_F(FrontEnd, YieldsDispatchInput) {
  Open();
  screen->SSIndexTab1.Tab(1);
  Process();
  QTimer::singleShot(0, [&] { screen->cmdGo.UserClick(); });
  screen->Act([&] { app->DoEvents(); });
  EXPECT_TRUE(Saw("Click cmdGo"));
}

TEST_F(FrontEnd, InsideAnEngineCallCommandsWait) {
  Open();
  bool ran = false;
  front->Shared().Later(window, [&] { ran = true; });
  {
    const desktop::Services::Painting painting(front->Shared());
    QCoreApplication::processEvents();
    front->DoEvents();
    EXPECT_FALSE(ran);
  }
  Process();
  EXPECT_TRUE(ran);
}

TEST_F(FrontEnd, ServingPaintingPaintsAndTakesNoKey) {
  OpenList(1000);
  screen->lblName.Caption("changed inside a call");
  // The pause between two paintings has passed.
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  engine->wait();
  EXPECT_EQ(Widget<QLabel>("lblName").text(), "changed inside a call");
  EXPECT_TRUE(screen->seen.empty());
}

TEST_F(FrontEnd, TheHourglassComesAndGoes) {
  Open();
  app->MousePointer(platform::pointer::Hourglass);
  app->MousePointer(platform::pointer::Hourglass);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  app->MousePointer(platform::pointer::Default);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(FrontEnd, ChangesAfterTheEndTouchNothing) {
  Open();
  app->Unload(*screen);
  screen->txtText.Text("after");
  screen->lblName.Caption("after");
  Process();
  EXPECT_EQ(front->WindowOf(*screen), nullptr);
}

TEST_F(FrontEnd, AScreenWithoutALayoutStillOpens) {
  Start();
  struct frmBare final : platform::Form {
    explicit frmBare(platform::Application& application) : Form(application, "frmBare", "Bare") {}
    platform::TextBox txtOne{*this, "txtOne"};
  } bare(*app);
  app->Load(bare);
  bare.txtOne.Text("x");
  EXPECT_NE(front->WindowOf(bare), nullptr);
  app->Unload(bare);
}

TEST_F(FrontEnd, TheWindowFitsTheScreen) {
  Open();
  EXPECT_LE(window->width(), window->screen()->availableGeometry().width());
  EXPECT_LE(window->height(), window->screen()->availableGeometry().height());
}

}  // namespace
}  // namespace desktop_test
