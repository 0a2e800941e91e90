#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QtTest/QTest>

#include "desktop/binding/binder.h"
#include "desktop/controls/combo_edit.h"
#include "desktop/controls/memo_edit.h"
#include "desktop/controls/spin_pair.h"
#include "desktop/controls/tab_bar.h"
#include "desktop/controls/text_edit.h"
#include "desktop/list/list_view.h"
#include "desktop/support/desk.h"

namespace desktop_test {
namespace {

class Binder : public Desk {
 protected:
  void SetUp() override { Open(); }
};

TEST_F(Binder, EveryControlHasItsWidget) {
  for (platform::Control* control : screen->Controls()) {
    if (!desktop::HasWidget(*control)) continue;
    EXPECT_NE(window->BindingOf(*control), nullptr) << control->FullName();
  }
}

TEST_F(Binder, WidgetsAreOfTheControlsKind) {
  EXPECT_NE(window->findChild<QLabel*>("lblName"), nullptr);
  EXPECT_NE(window->findChild<desktop::TabBar*>("SSIndexTab1"), nullptr);
  EXPECT_NE(window->findChild<desktop::ListView*>("grid"), nullptr);
  EXPECT_NE(window->findChild<desktop::TextEdit*>("txtPhone"), nullptr);
  EXPECT_NE(window->findChild<desktop::TextEdit*>("txtMoney"), nullptr);
  EXPECT_NE(window->findChild<desktop::MemoEdit*>("txtMemo"), nullptr);
  EXPECT_NE(window->findChild<desktop::ComboEdit*>("cboColour"), nullptr);
  EXPECT_NE(window->findChild<QRadioButton*>("optWay_2"), nullptr);
  EXPECT_NE(window->findChild<QAction*>("tb_Find"), nullptr);
  EXPECT_NE(window->findChild<QAction*>("miExit"), nullptr);
}

TEST_F(Binder, AControlWithoutAWidgetIsToldAndHarmless) {
  platform::TextBox extra(*screen, "txtNowhere");
  EXPECT_EQ(desktop::MakeBinding(*window, window->Shared(), extra), nullptr);
  extra.Text("still a model");
  EXPECT_EQ(extra.Text(), "still a model");
}

TEST_F(Binder, StartsWithWhatTheModelsHold) {
  EXPECT_EQ(window->windowTitle(), "Sample Screen");
  EXPECT_EQ(Widget<QLabel>("lblName").text(), "Customer && name");
  EXPECT_EQ(Widget<QGroupBox>("fraBox").title(), "Box:");
  EXPECT_EQ(Widget<QPushButton>("cmdGo").text(), "Go");
  EXPECT_TRUE(Widget<QRadioButton>("optWay_0").isChecked());
  EXPECT_EQ(Widget<QListWidget>("lstLines").count(), 2);
  EXPECT_EQ(Widget<QAction>("tb_Find").toolTip(), "Find Record (F3)");
}

TEST_F(Binder, ChangesInCodeShow) {
  screen->Caption("Other");
  screen->lblName.Caption("A & B");
  screen->fraBox.Caption("Search First");
  screen->chkOn.Value(1);
  screen->optWay[2].Value(true);
  screen->cmdGo.Enabled(false);
  screen->txtText.Visible(false);
  screen->txtPhone.ToolTipText("ten digits");
  screen->StatusBar1.Panel(1, "Saving, please wait!");
  screen->barDone.Value(40);
  screen->scrValue.Value(7);
  EXPECT_EQ(window->windowTitle(), "Other");
  EXPECT_EQ(Widget<QLabel>("lblName").text(), "A & B");
  EXPECT_EQ(Widget<QGroupBox>("fraBox").title(), "Search First");
  EXPECT_TRUE(Widget<QCheckBox>("chkOn").isChecked());
  EXPECT_TRUE(Widget<QRadioButton>("optWay_2").isChecked());
  EXPECT_FALSE(Widget<QRadioButton>("optWay_0").isChecked());
  EXPECT_FALSE(Widget<QPushButton>("cmdGo").isEnabled());
  EXPECT_TRUE(Widget<desktop::TextEdit>("txtText").isHidden());
  EXPECT_EQ(Widget<desktop::TextEdit>("txtPhone").toolTip(), "ten digits");
  EXPECT_EQ(Widget<QProgressBar>("barDone").value(), 40);
  EXPECT_EQ(Widget<QScrollBar>("scrValue").value(), 7);
  bool told = false;
  for (const QLabel* label : Widget<QStatusBar>("StatusBar1").findChildren<QLabel*>())
    if (label->text() == "Saving, please wait!") told = true;
  EXPECT_TRUE(told);
}

TEST_F(Binder, AnOptionTurnedOffInCodeLeavesNoneOn) {
  screen->optWay[0].Value(false);
  for (const char* name : {"optWay_0", "optWay_1", "optWay_2"}) EXPECT_FALSE(Widget<QRadioButton>(name).isChecked()) << name;
}

TEST_F(Binder, ClicksReachTheModels) {
  screen->SSIndexTab1.Tab(1);
  Process();
  hands->Click(screen->chkOn);
  EXPECT_EQ(screen->chkOn.Value(), 1);
  hands->Click(screen->optWay[1]);
  EXPECT_TRUE(screen->optWay[1].Value());
  EXPECT_FALSE(screen->optWay[0].Value());
  hands->Click(screen->cmdGo);
  hands->Click(screen->Toolbar1.Button("tb_Find"));
  hands->Click(screen->miFind);
  hands->Choose(screen->lstLines, 1);
  hands->Slide(screen->scrValue, 33);
  hands->Spin(screen->spnValue, true);
  hands->Spin(screen->spnValue, false);
  EXPECT_EQ(screen->scrValue.Value(), 33);
  EXPECT_EQ(screen->lstLines.ListIndex(), 1);
  for (const char* event : {"Click chkOn", "Click optWay(1)", "GotFocus cmdGo", "Click cmdGo", "ButtonClick tb_Find", "Click miFind",
                            "Click lstLines", "Change scrValue", "SpinUp", "SpinDown"})
    EXPECT_TRUE(Saw(event)) << event;
}

TEST_F(Binder, ASecondClickOnAnOptionLeavesItOn) {
  screen->SSIndexTab1.Tab(1);
  Process();
  hands->Click(screen->optWay[0]);
  EXPECT_TRUE(screen->optWay[0].Value());
  EXPECT_TRUE(Widget<QRadioButton>("optWay_0").isChecked());
  EXPECT_FALSE(Saw("Click optWay(0)"));
}

TEST_F(Binder, ClosedCommandsDoNothing) {
  screen->Toolbar1.Button("tb_Find").Enabled(false);
  screen->miFind.Enabled(false);
  Process();
  EXPECT_FALSE(Widget<QAction>("tb_Find").isEnabled());
  Widget<QAction>("tb_Find").trigger();
  Widget<QAction>("miFind").trigger();
  EXPECT_TRUE(screen->seen.empty());
}

TEST_F(Binder, AToolbarThatIsOffForAMomentTakesNoClicksAndDoesNotFlicker) {
  screen->Toolbar1.Enabled(false);
  Process();
  EXPECT_TRUE(Widget<QToolBar>("Toolbar1").isEnabled()) << "greyed only when it lasts";
  Widget<QAction>("tb_Find").trigger();
  EXPECT_TRUE(screen->seen.empty());
  QTest::qWait(300);
  EXPECT_FALSE(Widget<QToolBar>("Toolbar1").isEnabled());
  screen->Toolbar1.Enabled(true);
  EXPECT_TRUE(Widget<QToolBar>("Toolbar1").isEnabled());
}

TEST_F(Binder, HiddenKeysAndItemsAreNotSeen) {
  screen->Toolbar1.Button("tb_Find").Visible(false);
  screen->miFind.Visible(false);
  EXPECT_FALSE(Widget<QAction>("tb_Find").isVisible());
  EXPECT_FALSE(Widget<QAction>("miFind").isVisible());
}

TEST_F(Binder, MenusHoldTheirItemsWithShortcutsBeside) {
  const auto& menu = Widget<QMenu>("mnuFile");
  EXPECT_EQ(menu.title(), "&File");
  QStringList names;
  for (const QAction* action : menu.actions()) names << (action->isSeparator() ? "-" : action->objectName());
  EXPECT_EQ(names, QStringList({"miFind", "miPrint", "-", "miExit", "-", "exportListAction"}));
  EXPECT_EQ(Widget<QAction>("miFind").text(), "Find\tF3");
  EXPECT_EQ(Widget<QAction>("miExit").text(), "Exit\tCtrl+Q");
}

TEST_F(Binder, ListLinesFollow) {
  screen->lstLines.Clear();
  screen->lstLines.AddItem("only");
  ASSERT_EQ(Widget<QListWidget>("lstLines").count(), 1);
  EXPECT_EQ(Widget<QListWidget>("lstLines").item(0)->text(), "only");
}

TEST_F(Binder, HoveringIsTold) {
  screen->SSIndexTab1.Tab(1);
  Process();
  hands->Hover(screen->chkOn);
  EXPECT_TRUE(Saw("MouseMove chkOn"));
}

TEST_F(Binder, TabsFollowTheModelAlone) {
  auto& bar = Widget<desktop::TabBar>("SSIndexTab1");
  auto& pages = Widget<QStackedWidget>("SSIndexTab1_pages");
  EXPECT_EQ(bar.tabText(1), "Two") << "shown without the caption's blanks";
  hands->Tab(screen->SSIndexTab1, 1);
  EXPECT_EQ(screen->SSIndexTab1.Tab(), 1);
  EXPECT_EQ(bar.currentIndex(), 1);
  EXPECT_EQ(pages.currentWidget()->objectName(), "tab_1_page_0");
  screen->SSIndexTab1.Tab(0);
  screen->SSIndexTab1.Page(1);
  EXPECT_EQ(pages.currentWidget()->objectName(), "tab_0_page_1");
}

TEST_F(Binder, ARefusedTabStays) {
  screen->SSIndexTab1.BeforeTabClick = [](int, bool& cancel) { cancel = true; };
  hands->Tab(screen->SSIndexTab1, 2);
  EXPECT_EQ(screen->SSIndexTab1.Tab(), 0);
  EXPECT_EQ(Widget<desktop::TabBar>("SSIndexTab1").currentIndex(), 0);
  EXPECT_FALSE(Saw("Click SSIndexTab1 0"));
}

TEST_F(Binder, ClosedTabsAreGreyedAndTakeNoClick) {
  screen->SSIndexTab1.TabEnabled(1, false);
  EXPECT_FALSE(Widget<desktop::TabBar>("SSIndexTab1").isTabEnabled(1));
  hands->Tab(screen->SSIndexTab1, 1);
  EXPECT_EQ(screen->SSIndexTab1.Tab(), 0);
  screen->SSIndexTab1.Tab(1);
  EXPECT_EQ(Widget<desktop::TabBar>("SSIndexTab1").currentIndex(), 1) << "code may land on a closed tab";
}

}  // namespace
}  // namespace desktop_test
