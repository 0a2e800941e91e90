#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabBar>
#include <set>

#include "desktop/binding/binder.h"
#include "desktop/list/list_view.h"
#include "desktop/support/query_screen.h"
#include "platform/controls/form/control.h"

namespace desktop_test {
namespace {

TEST_F(QueryScreen, EveryInputHasANameOfItsOwnForTheBlind) {
  std::set<QString> names;
  for (const auto& binding : window->Bindings()) {
    const platform::Control& model = binding->Model();
    if (!binding->Widget() || !model.TakesFocus() || dynamic_cast<const platform::OptionButton*>(&model)) continue;
    if (&model == &screen->chkSelectAll || dynamic_cast<const platform::Grid*>(&model)) continue;
    const QString name = binding->Widget()->accessibleName();
    EXPECT_FALSE(name.isEmpty()) << model.FullName();
    EXPECT_TRUE(names.insert(name).second) << model.FullName() << " sounds like another: " << name.toStdString();
  }
}

TEST_F(QueryScreen, CommandsHaveDrawingsKeysAndButtons) {
  EXPECT_EQ(window->findChild<QAction*>("tb_RunQuery")->toolTip(), "Run Query (F5)");
  EXPECT_EQ(window->findChild<QAction*>("tb_Cancel")->toolTip(), "Cancel running query (Esc)");
  for (const char* key : {"tb_RunQuery", "tb_Cancel"}) EXPECT_FALSE(window->findChild<QAction*>(key)->icon().isNull()) << key;
  const auto* run = window->findChild<QPushButton*>("button_Run");
  EXPECT_TRUE(run->isEnabled());
  window->findChild<QAction*>("tb_RunQuery")->setEnabled(false);
  EXPECT_FALSE(run->isEnabled());
}

/// At the smallest screen no text of any tab is cut, on or off, and nothing reaches beyond the window.
TEST_F(QueryScreen, NoTextIsClippedOnASmallScreen) {
  ShowAt({1024, 700});
  EXPECT_LE(window->minimumSizeHint().width(), 1000);
  EXPECT_LE(window->minimumSizeHint().height(), 700);
  for (const int on : {0, 1}) {
    for (platform::Control* control : screen->Controls())
      if (auto* box = dynamic_cast<platform::CheckBox*>(control)) box->Value(on);
    for (int tab = 0; tab < 4; ++tab) {
      ShowTab(tab);
      for (const QWidget* widget : window->findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        if (!widget->isVisible() || !((label && !label->text().isEmpty()) || (button && !button->text().isEmpty()))) continue;
        if (button && button->parentWidget()->objectName() == "Toolbar1") continue;
        EXPECT_GE(widget->width(), widget->sizeHint().width() - 1) << tab << " " << widget->objectName().toStdString();
        EXPECT_GE(widget->height(), widget->sizeHint().height() - 3) << tab << " " << widget->objectName().toStdString();
      }
      for (const QGroupBox* group : window->findChildren<QGroupBox*>()) {
        if (!group->isVisible()) continue;
        EXPECT_GE(group->width(), group->fontMetrics().horizontalAdvance(group->title()) + 20) << group->objectName().toStdString();
      }
    }
  }
}

TEST_F(QueryScreen, ACriterionThatIsOnStandsOutAndItsTabToo) {
  const auto on = [this](const char* name) { return window->findChild<QGroupBox*>(name)->property("on").toBool(); };
  const auto* tabs = window->findChild<QTabBar*>("SSTab1");
  Follow();
  EXPECT_FALSE(on("fraSQL_0"));
  EXPECT_TRUE(tabs->tabIcon(0).isNull());
  screen->chkSelectNameAdd[0].Value(1);
  screen->chkSelectAmount[3].Value(1);
  Follow();
  EXPECT_TRUE(on("fraSQL_0"));
  EXPECT_FALSE(on("fraSQL_11"));
  EXPECT_TRUE(on("fraAmount_1"));
  EXPECT_FALSE(tabs->tabIcon(0).isNull());
  EXPECT_EQ(tabs->tabToolTip(0), "1 on");
  EXPECT_TRUE(tabs->tabIcon(1).isNull());
  EXPECT_FALSE(tabs->tabIcon(2).isNull());
  screen->chkSelectNameAdd[0].Value(0);
  Follow();
  EXPECT_FALSE(on("fraSQL_0"));
  EXPECT_TRUE(tabs->tabIcon(0).isNull());
}

/// One stop after the other goes down a column: never up, but where the next column begins.
TEST_F(QueryScreen, TheTabKeyGoesDownTheColumns) {
  ShowAt({1024, 700});
  for (platform::Control* control : screen->Controls()) {
    if (auto* box = dynamic_cast<platform::CheckBox*>(control)) box->Value(1);
  }
  for (int tab = 0; tab < 4; ++tab) {
    ShowTab(tab);
    QPoint before(-1, -1);
    QString nameBefore;
    for (const platform::Control* control : screen->Controls()) {
      const auto* binding = window->BindingOf(*control);
      if (!binding || !binding->Widget() || !control->TakesFocus() || !binding->Widget()->isVisible()) continue;
      if (control == &screen->chkSelectAll || dynamic_cast<const platform::OptionButton*>(control)) continue;
      const QWidget* frame = binding->Widget()->parentWidget();
      const QPoint at = frame->mapTo(window, QPoint());
      EXPECT_TRUE(at.y() >= before.y() || at.x() > before.x()) << nameBefore.toStdString() << " then " << control->FullName();
      before = at;
      nameBefore = binding->Widget()->objectName();
    }
  }
}

TEST_F(QueryScreen, ListsMarkRowsByClicks) {
  for (int i = 0; i < 2; ++i) {
    const auto* list = window->findChild<desktop::ListView*>(QString("grid_%1").arg(i));
    ASSERT_NE(list, nullptr);
    EXPECT_TRUE(list->MarksRows());
    EXPECT_TRUE(list->Model()->MarksByClick());
    EXPECT_EQ(list->Model()->SearchBox(), &screen->txtSearch[i]);
  }
}

}  // namespace
}  // namespace desktop_test
