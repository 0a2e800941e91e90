#include <QGroupBox>
#include <QLabel>
#include <QScreen>

#include "desktop/binding/binder.h"
#include "desktop/controls/combo_edit.h"
#include "desktop/support/screen_window.h"
#include "setup/frmUserStartup.h"

// The window of the user's options.
namespace desktop_test {
namespace {

using OptionsWindow = ScreenWindow<orcussch::frmUserStartup>;

TEST_F(OptionsWindow, ItsTextsAreTheScreens) {
  EXPECT_EQ(window->findChild<QGroupBox*>("Frame2")->title(), "Startup Form:");
  EXPECT_EQ(window->findChild<QWidget*>("cboQuery")->accessibleName(), "Query Selection Field");
}

TEST_F(OptionsWindow, OpensAsSmallAsItIsAndWhereItWasLeft) {
  Show();
  EXPECT_LT(window->width(), 640);
  EXPECT_LT(window->height(), 420);
  EXPECT_GE(window->width(), window->minimumSizeHint().width());
  window->resize(600, 400);
  CloseScreen();
  MakeScreen();
  Show();
  EXPECT_EQ(window->size(), QSize(600, 400));
}

TEST_F(OptionsWindow, NothingOfItIsCutWhenItIsAsSmallAsItCanBe) {
  Show();
  window->resize(window->minimumSizeHint());
  QApplication::processEvents();
  for (const auto& binding : window->Bindings()) {
    const QWidget* widget = binding->Widget();
    if (!widget) continue;
    EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << widget->objectName().toStdString();
    EXPECT_TRUE(window->rect().contains(QRect(widget->mapTo(window, QPoint()), widget->size()))) << widget->objectName().toStdString();
  }
}

TEST_F(OptionsWindow, TheTwoFieldsOfOneNameAreTwoLines) {
  auto& combo = *window->findChild<desktop::ComboEdit*>("cboQuery");
  Show();
  combo.showPopup();
  int named = 0;
  for (int row = 0; row < combo.count(); ++row)
    if (combo.itemText(row) == "Max Paid This Year") ++named;
  EXPECT_EQ(named, 2);
  combo.hidePopup();
  const auto choose = [&](const char* code) {
    screen->cboQuery.BoundValue(code);
    screen->cboQuery.Text("Max Paid This Year");
    window->Changed(&screen->cboQuery, platform::Aspect::Text);
    return combo.currentIndex();
  };
  EXPECT_EQ(choose("209"), 22);
  EXPECT_EQ(choose("207"), 20);
}

}  // namespace
}  // namespace desktop_test
