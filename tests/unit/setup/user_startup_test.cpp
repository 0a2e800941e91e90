#include "setup/frmUserStartup.h"

#include "support/main_screen_test.h"

// The user's options beside another program that stores them too.
namespace {

using orcussch::frmCustMain;
using orcussch::frmUserStartup;

class UserStartupTest : public MainScreenTest {
 protected:
  /// Opens the options over the main screen.
  void Options(frmCustMain& screen, const std::function<void(frmUserStartup&)>& user) {
    const auto mainScreen = frontEnd->serve;
    bool served = false;
    frontEnd->serve = [&](platform::Form& form) {
      served = true;
      user(dynamic_cast<frmUserStartup&>(form));
    };
    screen.mnuUserStartup.UserClick();
    frontEnd->serve = mainScreen;
    EXPECT_TRUE(served);
  }
  void AddRow(std::int16_t field) const {
    AddRows(CustomerFile(), "UserStartup", {"UserNum", "StartGrid", "QueryTab", "QueryField", "AddPhone"},
            {{1, true, std::int16_t{0}, field, true}});
  }
  std::string Rows() const { return Stored("SELECT Count(*) FROM UserStartup"); }
};

/// The rows of a session are those that stood there at its start, so that neither program sees the row that the other adds.
TEST_F(UserStartupTest, TwoFirstSavesAreTwoRowsAndTheFirstOneCountsLater) {
  Serve([&](frmCustMain& screen) {
    Options(screen, [&](frmUserStartup& options) {
      AddRow(5);
      options.cboQuery.UserPick(options.cboQuery.Rows().at(6));
      options.cmdSave.UserClick();
    });
    EXPECT_EQ(Rows(), "2");
    Options(screen, [](frmUserStartup& options) { EXPECT_EQ(options.cboQuery.Text(), "Zip"); });
  });
  Serve([&](frmCustMain& screen) {
    Options(screen, [](frmUserStartup& options) {
      EXPECT_EQ(options.cboQuery.Text(), "State");
      options.cboQuery.UserPick(options.cboQuery.Rows().at(2));
      options.cmdSave.UserClick();
    });
  });
  EXPECT_EQ(Rows(), "2");
  EXPECT_EQ(Stored("SELECT Count(*) FROM UserStartup WHERE QueryField = 2"), "1");
  EXPECT_EQ(Stored("SELECT Count(*) FROM UserStartup WHERE QueryField = 6"), "1");
  EXPECT_TRUE(log->records.empty());
}

/// A session that ends while the options are up takes them down.
TEST_F(UserStartupTest, GoesWithTheMainScreen) {
  Serve([&](frmCustMain& screen) {
    Options(screen, [&](frmUserStartup& options) {
      app->Unload(screen);
      EXPECT_FALSE(options.Loaded());
    });
    EXPECT_FALSE(screen.Loaded());
  });
  EXPECT_TRUE(log->records.empty());
  EXPECT_TRUE(frontEnd->boxes.empty());
}

}  // namespace
