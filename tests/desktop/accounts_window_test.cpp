#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>

#include "desktop/binding/binder.h"
#include "desktop/hands/input.h"
#include "desktop/list/list_view.h"
#include "desktop/window/front_end.h"
#include "engine/engine.h"
#include "entry/screens.h"
#include "session/CustSearch.h"
#include "session/ModCustSch.h"
#include "setup/accounts/accounts_picker.h"
#include "setup/accounts/frmAccounts.h"
#include "suite/error_log.h"
#include "suite/operating_system.h"
#include "support/company.h"
#include "support/temporary_folder.h"

// The list of accounts as its window shows it, and the keys that choose from it.
namespace {

using orcussch::frmAccounts;
using platform::ChosenAccount;

class AccountsWindow : public testing::Test {
 protected:
  AccountsWindow() {
    test_support::MakeCompany(folder.Path());
    platform::ApplicationParts parts;
    parts.engine = engine::MakeEngine();
    parts.system = suite::MakeNativeSystem(folder.Path());
    parts.errorLog = suite::MakeErrorLog(folder / "errors.log");
    auto made = std::make_unique<desktop::DesktopFrontEnd>(desktop::DesktopOptions{});
    front = made.get();
    parts.frontEnd = std::move(made);
    parts.path = folder.Path();
    app = std::make_unique<platform::Application>(std::move(parts));
    orcussch::AttachApplication(app.get());
    orcussch::ConnectScreens();
    hands = desktop::MakeHands(*front);
  }
  ~AccountsWindow() override { orcussch::AttachApplication(nullptr); }

  /// Shows the year's liability accounts; `user` acts while the window is up.
  ChosenAccount Ask(const std::function<void(frmAccounts&)>& user) {
    orcussch::CustSearch host(*app);
    host.Let("UserID", 1);
    host.Let("CompanyID", 1);
    bool acted = false;
    QTimer::singleShot(0, [&] {
      auto* screen = dynamic_cast<frmAccounts*>(app->ActiveForm());
      ASSERT_NE(screen, nullptr);
      window = front->WindowOf(*screen);
      user(*screen);
      acted = true;
      if (screen->Loaded()) app->Unload(*screen);
    });
    const ChosenAccount chosen = orcussch::MakeAccountsPicker()->Run({"Company 1", 1, 1, 2025, 2, false, false, 0, 0, 0, 0, false});
    EXPECT_TRUE(acted);
    return chosen;
  }
  void DoubleClickFirstRow() const {
    auto& list = *window->findChild<desktop::ListView*>("grid");
    list.Sync();
    desktop::input::DoubleClick(*list.viewport(), list.CellRect(0, 1).center());
    QApplication::processEvents();
  }
  QPushButton& Button(const char* name) const { return *window->findChild<QPushButton*>(name); }

  TemporaryFolder folder;
  desktop::DesktopFrontEnd* front = nullptr;
  std::unique_ptr<platform::Application> app;
  std::unique_ptr<platform::UserHands> hands;
  desktop::FormWindow* window = nullptr;
};

TEST_F(AccountsWindow, OpensOnTheSearchBoxWithItsListReadable) {
  Ask([&](frmAccounts& screen) {
    for (platform::Control* control : screen.Controls()) {
      if (!desktop::HasWidget(*control)) continue;
      EXPECT_NE(window->BindingOf(*control), nullptr) << control->FullName();
    }
    EXPECT_EQ(screen.Focus(), &screen.txtSearch);
    EXPECT_EQ(window->focusWidget()->objectName(), "txtSearch");
    EXPECT_LT(window->width(), 900);
    EXPECT_LT(window->height(), 600) << "as its layout was drawn, no large part of the screen";
    EXPECT_EQ(window->findChild<QLabel*>("lblYear")->text(), "Liability accounts of accounting year 2025");
    EXPECT_EQ(window->findChild<QWidget*>("txtSearch")->accessibleName(), "Number or Description");
    const auto& list = *window->findChild<desktop::ListView*>("grid");
    EXPECT_GE(list.WholeRowsShown(), 12);
  });
}

TEST_F(AccountsWindow, IsAllDoneByKeys) {
  const ChosenAccount chosen = Ask([&](frmAccounts& screen) {
    hands->Type(screen.txtSearch, "county", false);
    EXPECT_EQ(screen.txtSearch.Text(), "county");
    EXPECT_EQ(screen.data.Recordset()->RecordCount(), 11);
    hands->Key(screen.txtSearch, "Down");
    EXPECT_EQ(screen.Focus(), &screen.grid);
    hands->Key(screen.grid, "Down");
    hands->Key(screen.grid, "Down");
    EXPECT_EQ(screen.grid.ColumnValue(2), platform::Value("110"));
    hands->Key(screen.grid, "Enter");
    EXPECT_FALSE(screen.Loaded());
  });
  EXPECT_TRUE(chosen.chosen);
  EXPECT_EQ(chosen.account, "22100");
  EXPECT_EQ(chosen.department, "110");
  EXPECT_EQ(chosen.departmentText, "Drain Cleaning");
}

TEST_F(AccountsWindow, LettersTypedInTheListSearchAnew) {
  const ChosenAccount chosen = Ask([&](frmAccounts& screen) {
    hands->Type(screen.txtSearch, "county", false);
    hands->Key(screen.txtSearch, "Down");
    hands->Key(screen.grid, "p");
    EXPECT_EQ(screen.Focus(), &screen.txtSearch);
    EXPECT_EQ(screen.txtSearch.Text(), "p");
    hands->Type(screen.txtSearch, "ayroll", true);
    hands->Key(screen.txtSearch, "Enter");
    EXPECT_FALSE(screen.Loaded());
  });
  EXPECT_EQ(chosen.account, "21000");
}

TEST_F(AccountsWindow, EscapeLeavesFromBoxAndList) {
  EXPECT_FALSE(Ask([&](frmAccounts& screen) {
                 hands->Type(screen.txtSearch, "county", false);
                 hands->Key(screen.txtSearch, "Escape");
                 EXPECT_FALSE(screen.Loaded());
               }).chosen);
  EXPECT_FALSE(Ask([&](frmAccounts& screen) {
                 hands->Key(screen.grid, "Escape");
                 EXPECT_FALSE(screen.Loaded());
               }).chosen);
}

TEST_F(AccountsWindow, TheMouseChoosesToo) {
  ChosenAccount chosen = Ask([&](frmAccounts& screen) {
    hands->Type(screen.txtSearch, "city 400", false);
    EXPECT_EQ(screen.data.Recordset()->RecordCount(), 0) << "400 is a department, not an account";
    EXPECT_FALSE(Button("select_account").isEnabled());
    EXPECT_TRUE(Button("leave_accounts").isEnabled());
    EXPECT_EQ(window->findChild<QLabel*>("lblFound")->text(), "No account fits.");
    hands->Type(screen.txtSearch, "city remodel", false);
    EXPECT_TRUE(Button("select_account").isEnabled());
    DoubleClickFirstRow();
    EXPECT_FALSE(screen.Loaded());
  });
  EXPECT_EQ(chosen.account + chosen.department, "22200400");
  chosen = Ask([&](frmAccounts& screen) {
    Button("select_account").click();
    EXPECT_FALSE(screen.Loaded());
  });
  EXPECT_EQ(chosen.account, "20000");
  EXPECT_FALSE(Ask([&](frmAccounts&) { Button("leave_accounts").click(); }).chosen);
}

}  // namespace
