#include "desktop/window/message_box.h"

#include <QApplication>
#include <QPushButton>
#include <QTimer>

#include "desktop/support/desk.h"
#include "platform/host/front_end.h"

namespace desktop_test {
namespace {

namespace box = platform::box;

class Boxes : public Desk {
 protected:
  void SetUp() override { Open(); }
  /// Looks at the box that `ask` opens, then presses its default button or the one given.
  int Ask(const std::string& text, int style, const std::string& title, int press = 0) {
    QTimer::singleShot(0, [&, press] {
      auto* shown = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (!shown) return;
      textShown = shown->text();
      titleShown = shown->windowTitle();
      icon = shown->icon();
      buttons = shown->standardButtons();
      defaultButton = shown->standardButton(shown->defaultButton());
      if (press != 0) {
        desktop::ButtonFor(*shown, press)->click();
      } else {
        shown->reject();
      }
    });
    return front->MessageBox(text, style, title);
  }
  QString textShown, titleShown;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  QMessageBox::StandardButtons buttons;
  QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
};

TEST_F(Boxes, InformationWithOneButton) {
  EXPECT_EQ(Ask("You must select a department!", box::OkOnly + box::Information, "Delete Dept. Labor Rate Record", box::Ok), box::Ok);
  EXPECT_EQ(textShown, "You must select a department!");
  EXPECT_EQ(titleShown, "Delete Dept. Labor Rate Record");
  EXPECT_EQ(icon, QMessageBox::Information);
  EXPECT_EQ(buttons, QMessageBox::Ok);
}

TEST_F(Boxes, QuestionsStandOnNoWhereTheStyleSaysSo) {
  EXPECT_EQ(Ask("Sure?", box::YesNo + box::Question + box::SecondButtonDefault, "Edit", box::Yes), box::Yes);
  EXPECT_EQ(defaultButton, QMessageBox::No);
  EXPECT_EQ(icon, QMessageBox::Question);
  EXPECT_EQ(Ask("Sure?", box::YesNo + box::Question, "Edit", box::No), box::No);
  EXPECT_EQ(defaultButton, QMessageBox::Yes);
}

TEST_F(Boxes, ARefusedBoxAnswersNoOrOk) {
  EXPECT_EQ(Ask("Sure?", box::YesNo + box::Question, "Edit"), box::No);
  EXPECT_EQ(Ask("Told", box::OkOnly + box::Exclamation, "Edit"), box::Ok);
  EXPECT_EQ(icon, QMessageBox::Warning);
}

TEST_F(Boxes, CarriageReturnsAreLinesAndTextIsPlain) {
  Ask("one\rtwo\r\n<b>three</b>", box::OkOnly + box::Stop, "T", box::Ok);
  EXPECT_EQ(textShown, "one\ntwo\n<b>three</b>");
  EXPECT_EQ(icon, QMessageBox::Critical);
}

TEST_F(Boxes, FiresNoFocusEvents) {
  screen->SSIndexTab1.Page(1);
  Process();
  hands->Click(screen->txtText);
  screen->seen.clear();
  Ask("Told", box::OkOnly, "T", box::Ok);
  Process();
  EXPECT_TRUE(screen->seen.empty());
}

TEST_F(Boxes, TheHandsPressARealButton) {
  bool shown = false;
  QTimer::singleShot(0, [&] { shown = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr; });
  hands->PressInBox("Sure?", box::YesNo + box::Question, "T", box::Yes);
  EXPECT_TRUE(shown);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Boxes, ABoxWhoseWindowGoesEndsWithARefusal) {
  QTimer::singleShot(0, [&] { CloseScreen(); });
  QTimer::singleShot(50, [] {
    if (auto* shown = QApplication::activeModalWidget()) shown->close();
  });
  EXPECT_EQ(front->MessageBox("Sure?", box::YesNo, "T"), box::No);
}

}  // namespace
}  // namespace desktop_test
