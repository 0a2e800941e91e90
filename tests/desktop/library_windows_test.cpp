#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QToolBar>
#include <map>
#include <set>

#include "desktop/binding/binder.h"
#include "desktop/list/list_view.h"
#include "desktop/look/icons.h"
#include "desktop/support/screen_window.h"
#include "desktop/window/form_designs.h"
#include "desktop/window/front_end.h"
#include "maintenance/frmCustMain.h"
#include "mapping/frmMap.h"
#include "platform/controls/buttons.h"
#include "queries/frmCustQueries.h"
#include "relationships/frmChildParentCustomers.h"
#include "reports/frmCustReports.h"
#include "reports/frmCustStats.h"
#include "reports/frmMailLabel.h"
#include "setup/accounts/frmAccounts.h"
#include "setup/frmCreditCardSetup.h"
#include "setup/frmMapCode.h"
#include "setup/frmPhoneSetup.h"
#include "setup/frmUserStartup.h"
#include "setup/tax/frmTaxSetup.h"
#include "setup/tax/frmTaxSetupQueries.h"

// What holds for every window of the library: layout and screen fit each other.
namespace desktop_test {
namespace {

using Maker = std::unique_ptr<platform::Form> (*)(platform::Application&);

template <class Screen>
std::unique_ptr<platform::Form> Make(platform::Application& app) {
  return std::make_unique<Screen>(app);
}

std::unique_ptr<platform::Form> MakeAccounts(platform::Application& app) {
  return std::make_unique<orcussch::frmAccounts>(app, orcussch::AccountsAsked{});
}

const std::map<std::string, Maker> kScreens = {
    {"frmAccounts", MakeAccounts},
    {"frmChildParentCustomers", Make<orcussch::frmChildParentCustomers>},
    {"frmCreditCardSetup", Make<orcussch::frmCreditCardSetup>},
    {"frmCustMain", Make<orcussch::frmCustMain>},
    {"frmCustQueries", Make<orcussch::frmCustQueries>},
    {"frmCustReports", Make<orcussch::frmCustReports>},
    {"frmCustStats", Make<orcussch::frmCustStats>},
    {"frmMailLabel", Make<orcussch::frmMailLabel>},
    {"frmMap", Make<orcussch::frmMap>},
    {"frmMapCode", Make<orcussch::frmMapCode>},
    {"frmPhoneSetup", Make<orcussch::frmPhoneSetup>},
    {"frmTaxSetup", Make<orcussch::frmTaxSetup>},
    {"frmTaxSetupQueries", Make<orcussch::frmTaxSetupQueries>},
    {"frmUserStartup", Make<orcussch::frmUserStartup>},
};

class LibraryWindows : public ScreenWindow<platform::Form, testing::TestWithParam<std::string>> {
 protected:
  LibraryWindows() : ScreenWindow(kScreens.at(GetParam())) {}
  platform::Toolbar* Bar() const { return dynamic_cast<platform::Toolbar*>(screen->Find("Toolbar1")); }
};

TEST(LibraryDesigns, EveryLayoutIsTested) {
  std::set<std::string> tested;
  for (const auto& [name, make] : kScreens) tested.insert(name);
  for (const desktop::FormDesign& design : desktop::LibraryDesigns()) EXPECT_TRUE(tested.erase(design.screen)) << design.screen;
  EXPECT_TRUE(tested.empty()) << *tested.begin() << " has no layout";
}

TEST_P(LibraryWindows, EveryControlHasItsWidgetOfTheRightClass) {
  for (platform::Control* control : screen->Controls()) {
    if (!desktop::HasWidget(*control)) continue;
    EXPECT_NE(window->BindingOf(*control), nullptr) << control->FullName();
  }
}

TEST_P(LibraryWindows, EveryWidgetThatIsNamedLikeAControlHasItsControl) {
  static const QRegularExpression controlName(
      "^(txt|lbl|cbo|opt|chk|cmd|fra[A-Z]|Frame|lstMap$|Pwstreet|grid|grd|SSPanel|SSIndexTab1$|SSTab1$|Toolbar|StatusBar|mi|mnu|tb_)");
  std::set<QString> known;
  for (const platform::Control* control : screen->Controls()) known.insert(desktop::WidgetName(*control));
  int named = 0;
  for (const QObject* child : window->findChildren<QObject*>()) {
    if (!controlName.match(child->objectName()).hasMatch()) continue;
    ++named;
    EXPECT_EQ(known.count(child->objectName()), 1u) << child->objectName().toStdString();
  }
  EXPECT_GT(named, 5);
}

TEST_P(LibraryWindows, NoTwoWidgetsBearOneName) {
  std::set<QString> names;
  for (const QWidget* widget : window->findChildren<QWidget*>()) {
    const QString name = widget->objectName();
    if (name.isEmpty() || name.startsWith("qt_") || name.startsWith("Scroll")) continue;
    EXPECT_TRUE(names.insert(name).second) << name.toStdString();
  }
}

TEST_P(LibraryWindows, EveryInputHasANameForTheBlind) {
  for (const auto& binding : window->Bindings()) {
    if (!binding->Widget() || !binding->Model().TakesFocus() || dynamic_cast<platform::Grid*>(&binding->Model())) continue;
    const auto* button = qobject_cast<QAbstractButton*>(binding->Widget());
    const bool named = !binding->Widget()->accessibleName().isEmpty() || (button && !button->text().isEmpty());
    EXPECT_TRUE(named) << binding->Model().FullName();
  }
}

TEST_P(LibraryWindows, EveryToolbarKeyHasItsOwnDrawing) {
  if (!Bar()) return;
  std::set<QByteArray> drawings;
  for (const auto& key : Bar()->Keys()) {
    const QString name = QString::fromStdString(key.key);
    QFile file(QString(":/desktop/icons/%1/%2.svg").arg(QString::fromStdString(screen->Name()), name));
    if (!file.exists()) file.setFileName(QString(":/desktop/icons/%1.svg").arg(name));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << key.key;
    EXPECT_TRUE(drawings.insert(file.readAll()).second) << key.key << " looks like another key";
    auto* action = window->findChild<QAction*>(name);
    ASSERT_NE(action, nullptr) << key.key;
    EXPECT_FALSE(action->icon().isNull()) << key.key;
    EXPECT_TRUE(action->toolTip().toStdString().starts_with(key.toolTip)) << key.key;
  }
  EXPECT_EQ(drawings.size(), Bar()->Keys().size());
}

/// "E&xit" is pressed by Alt+X, and no ampersand is to be seen.
TEST_P(LibraryWindows, AButtonShowsTheLetterOfItsCaption) {
  for (const auto& binding : window->Bindings()) {
    const auto* button = dynamic_cast<const platform::CommandButton*>(&binding->Model());
    if (button == nullptr || button->Caption().find('&') == std::string::npos) continue;
    EXPECT_EQ(qobject_cast<QPushButton*>(binding->Widget())->text().toStdString(), button->Caption());
    EXPECT_FALSE(qobject_cast<QPushButton*>(binding->Widget())->shortcut().isEmpty()) << button->FullName();
  }
}

TEST_P(LibraryWindows, FitOnASmallScreen) {
  window->resize({1024, 768});
  window->show();
  QApplication::processEvents();
  EXPECT_LE(window->minimumSizeHint().width(), 1024);
  EXPECT_LE(window->minimumSizeHint().height(), 700);
}

/// Main screens take their share of the screen; the small ones, which say so, are as large as they were drawn, or as they need.
TEST_P(LibraryWindows, SmallScreensOpenAsTheyWereDrawn) {
  if (!window->property("opensAsDesigned").toBool()) return;
  const QSize drawn = window->size();
  const QSize room = window->screen()->availableGeometry().size();
  window->ShowAsScreen(false);
  EXPECT_EQ(window->size(), drawn.expandedTo(window->minimumSizeHint()).boundedTo(room));
}

INSTANTIATE_TEST_SUITE_P(Of, LibraryWindows, testing::ValuesIn([] {
                           std::vector<std::string> names;
                           for (const auto& [name, make] : kScreens) names.push_back(name);
                           return names;
                         }()),
                         [](const auto& tested) { return tested.param; });

}  // namespace
}  // namespace desktop_test
