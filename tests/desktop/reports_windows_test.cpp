#include <QAction>
#include <QMouseEvent>
#include <QPushButton>

#include "desktop/controls/spin_pair.h"
#include "desktop/controls/text_edit.h"
#include "desktop/support/screen_window.h"
#include "platform/values/convert.h"
#include "reports/frmCustReports.h"
#include "reports/frmCustStats.h"
#include "reports/frmMailLabel.h"

// The windows of the reports.
namespace desktop_test {
namespace {

using StatisticsWindow = ScreenWindow<orcussch::frmCustStats>;
using CatalogueWindow = ScreenWindow<orcussch::frmCustReports>;
using LabelWindow = ScreenWindow<orcussch::frmMailLabel>;

/// Nobody edits them, so they keep their format where the focus is.
TEST_F(StatisticsWindow, FiguresKeepTheirFormatUnderTheFocus) {
  screen->txtCurrBalance.Value(platform::CCur(1234.5));
  Show();
  auto* edit = window->findChild<desktop::TextEdit*>("txtCurrBalance");
  ASSERT_NE(edit, nullptr);
  edit->setFocus();
  QApplication::processEvents();
  EXPECT_EQ(edit->text(), "$1,234.50");
  EXPECT_TRUE(edit->isReadOnly());
}

TEST_F(StatisticsWindow, NoDayIsChosenHere) {
  Show();
  auto* edit = window->findChild<desktop::TextEdit*>("txtEntryDate");
  ASSERT_NE(edit, nullptr);
  EXPECT_TRUE(edit->actions().isEmpty()) << "no calendar's button";
}

TEST_F(CatalogueWindow, TheStopIsThereOnlyWhileLabelsAreMade) {
  Show();
  auto* stop = window->findChild<QPushButton*>("cmdStop");
  ASSERT_NE(stop, nullptr);
  EXPECT_FALSE(stop->isVisible());
  screen->cmdStop.Visible(true);
  window->Changed(&screen->cmdStop, platform::Aspect::Visible);
  EXPECT_TRUE(stop->isVisible());
}

/// The button passes the movement on to the window, whose hint would take the place of its own.
TEST_F(LabelWindow, AButtonsHintStays) {
  Show();
  auto* ok = window->findChild<QPushButton*>("cmdSort_0");
  ASSERT_NE(ok, nullptr);
  const auto move = [](QWidget& widget) {
    const QPointF at(widget.rect().center());
    QMouseEvent event(QEvent::MouseMove, at, widget.mapToGlobal(at), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
  };
  move(*ok);
  EXPECT_EQ(screen->StatusBar1.Panel(1), "Click 'Ok' to print mailing labels in the selected sort order");
  QMouseEvent event(QEvent::MouseMove, QPointF(2, 2), window->mapToGlobal(QPointF(2, 2)), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(window, &event);
  EXPECT_EQ(screen->StatusBar1.Panel(1), "Click the up/down arrow to change the sort order");
}

TEST_F(LabelWindow, TheArrowsMoveTheField) {
  screen->Form_Load();
  Show();
  auto* pair = window->findChild<desktop::SpinPair*>("CSSpin1");
  ASSERT_NE(pair, nullptr);
  pair->Arrow(false)->click();
  EXPECT_EQ(screen->DataSort.Recordset()->Field("Sort Order"), platform::Value("2"));
  EXPECT_EQ(screen->DataSort.Recordset()->Field("Sort Field"), platform::Value("Name"));
}

}  // namespace
}  // namespace desktop_test
