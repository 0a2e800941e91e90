#include <QApplication>
#include <QCalendarWidget>

#include "desktop/controls/text_edit.h"
#include "desktop/hands/input.h"
#include "desktop/support/desk.h"
#include "platform/values/calendar.h"

namespace desktop_test {
namespace {

namespace input = desktop::input;

class Dates : public Desk {
 protected:
  void SetUp() override {
    Open();
    screen->SSIndexTab1.Page(1);
    Process();
    hands->Type(screen->txtDate, "3/5/2024", false);
  }
  QCalendarWidget* Calendar() {
    QWidget* popup = QApplication::activePopupWidget();
    return popup ? popup->findChild<QCalendarWidget*>() : nullptr;
  }
};

TEST_F(Dates, TheKeyboardOpensTheCalendarOnTheDateAndChooses) {
  for (const char* key : {"F4", "Alt+Down"}) {
    hands->Type(screen->txtDate, "3/5/2024", false);
    hands->Key(screen->txtDate, key);
    ASSERT_NE(Calendar(), nullptr) << key;
    EXPECT_EQ(Calendar()->selectedDate(), QDate(2024, 3, 5));
    input::Key(*window, Qt::Key_Right, Qt::NoModifier);
    input::Key(*window, Qt::Key_Down, Qt::NoModifier);
    input::Key(*window, Qt::Key_Return, Qt::NoModifier, "\r");
    Process();
    EXPECT_EQ(Calendar(), nullptr);
    EXPECT_EQ(screen->txtDate.Text(), "3/13/2024") << key;
    EXPECT_EQ(screen->Focus(), &screen->txtDate);
  }
}

TEST_F(Dates, EscapeClosesTheCalendarAndKeepsTheDate) {
  hands->Key(screen->txtDate, "F4");
  ASSERT_NE(Calendar(), nullptr);
  input::Key(*window, Qt::Key_Right, Qt::NoModifier);
  input::Key(*window, Qt::Key_Escape, Qt::NoModifier, "\x1b");
  Process();
  EXPECT_EQ(Calendar(), nullptr);
  EXPECT_EQ(screen->txtDate.Text(), "3/5/2024");
}

TEST_F(Dates, WithoutADateTheCalendarOpensOnToday) {
  app->System().SetToday(platform::DateSerial(2031, 6, 15));
  hands->Type(screen->txtDate, "", false);
  hands->Key(screen->txtDate, "F4");
  ASSERT_NE(Calendar(), nullptr);
  EXPECT_EQ(Calendar()->selectedDate(), QDate(2031, 6, 15)) << "the program's today";
}

TEST_F(Dates, ALockedDateOpensNothing) {
  screen->txtDate.Locked(true);
  hands->Key(screen->txtDate, "F4");
  EXPECT_EQ(Calendar(), nullptr);
}

}  // namespace
}  // namespace desktop_test
