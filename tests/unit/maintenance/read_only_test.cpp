#include <sys/stat.h>

#include <algorithm>
#include <fstream>

#include "platform/values/convert.h"
#include "setup/frmUserStartup.h"
#include "support/controls.h"
#include "support/main_screen_test.h"
#include "support/plain_user.h"

// A customer file that can be read and not written: what the main screen's user sees of it.
namespace {

using orcussch::frmCustMain;
namespace fs = std::filesystem;

/// The customers' file alone; or the company's folder and every file in it, as an archive has it.
enum class Closed { File, Archive };

constexpr int kReadOnly = 3027;

class ReadOnlyTest : public MainScreenTest, public testing::WithParamInterface<Closed> {
 protected:
  ReadOnlyTest() {
    AddRows(CustomerFile(), "Customers", {"LastName", "Terms", "NonBillable", "DefaultPhoneNumber"}, {{"Abel", 2, false, 0}});
    AddRows(CustomerFile(), "Phones", {"AcctNum", "Type", "Comment"}, {{1, "F", "old"}});
    // The first session writes what every later one finds: the links and the company's row of receivables.
    Serve([](frmCustMain&) {});
    Open();
  }
  ~ReadOnlyTest() override { Open(); }

  std::string Folder() const { return folder / "data/orv1"; }
  /// Everybody may do everything.
  void Open() const {
    ::chmod(folder.Path().c_str(), 0777);
    for (const auto& entry : fs::recursive_directory_iterator(folder.Path()))
      ::chmod(entry.path().c_str(), entry.is_directory() ? 0777 : 0666);
  }
  void Close() const {
    ::chmod(CustomerFile().c_str(), 0444);
    if (GetParam() == Closed::File) return;
    for (const auto& entry : fs::directory_iterator(Folder())) ::chmod(entry.path().c_str(), 0444);
    ::chmod(Folder().c_str(), 0555);
  }

  static void Press(frmCustMain& screen, const char* key) { dynamic_cast<platform::ToolbarButton&>(*screen.Find(key)).UserClick(); }
  static void Enter(platform::TextBox& edit, const char* text) { edit.UserReplaceAll(text, 0); }

  /// One refusal, and nothing about the fields of a row that was not begun.
  void ExpectRefusal() {
    ASSERT_EQ(log->records.size(), 1U);
    EXPECT_EQ(log->records[0].module, "frmCustMain.RecordAdd");
    EXPECT_EQ(log->records[0].number, kReadOnly);
    EXPECT_EQ(frontEnd->boxes.size(), log->records.size()) << "one box each";
    log->records.clear();
    frontEnd->boxes.clear();
  }
  static void ExpectCommonEnd(const frmCustMain& screen) {
    EXPECT_EQ(screen.SSIndexTab1.Page(), 0);
    EXPECT_TRUE(screen.mToolbarReady);
    EXPECT_FALSE(screen.Find("tb_SaveRec")->EffectivelyEnabled());
    EXPECT_TRUE(screen.Find("tb_EditRec")->EffectivelyEnabled());
    EXPECT_EQ(screen.StatusBar1.Panel(1), "");
  }
};

TEST_P(ReadOnlyTest, ASaveIsRefusedAndTheCardKeepsItsContent) {
  const std::string before = ReadAll(CustomerFile());
  Close();
  {
    const PlainUser user;
    Serve([&](frmCustMain& screen) {
      ASSERT_TRUE(log->records.empty()) << log->records[0].module << ' ' << log->records[0].number;
      Press(screen, "tb_EditRec");
      Enter(EditOf(screen, "txtLastName"), "Abelson");
      Press(screen, "tb_SaveRec");
      ExpectRefusal();
      ExpectCommonEnd(screen);
      EXPECT_EQ(EditOf(screen, "txtLastName").Text(), "Abelson");
      EXPECT_EQ(screen.data[0].Recordset()->Field("LastName"), platform::Value("Abel"));

      screen.SSIndexTab1.UserClick(orcussch::tab::Phones);
      Press(screen, "tb_AddRec");
      ComboOf(screen, "cboPhoneTypes").UserPick(ComboOf(screen, "cboPhoneTypes").Rows().at(1));
      Enter(EditOf(screen, "txtPhoneComment"), "new");
      Press(screen, "tb_SaveRec");
      ExpectRefusal();
      ExpectCommonEnd(screen);
      EXPECT_EQ(EditOf(screen, "txtPhoneComment").Text(), "new");
      EXPECT_EQ(screen.data[1].Recordset()->RecordCount(), 1);
    });
  }
  EXPECT_EQ(ReadAll(CustomerFile()), before) << "not a byte of the file has changed";
}

TEST_P(ReadOnlyTest, ADeletionAndACellAreRefused) {
  Close();
  {
    const PlainUser user;
    frontEnd->answer = platform::box::Yes;
    Serve([&](frmCustMain& screen) {
      screen.SSIndexTab1.UserClick(orcussch::tab::Phones);
      Press(screen, "tb_DeleteRec");
      ASSERT_EQ(log->records.size(), 1U);
      EXPECT_EQ(log->records[0].module, "frmCustMain.RecordDelete");
      EXPECT_EQ(log->records[0].number, kReadOnly);
      EXPECT_EQ(screen.data[1].Recordset()->RecordCount(), 1);
      EXPECT_TRUE(screen.mToolbarReady);
      log->records.clear();
      const int comment = 6;
      ASSERT_TRUE(screen.grid[1].UserOpenCell(comment));
      screen.grid[1].UserCellText("typed");
      screen.grid[1].UserCloseCell();
      ASSERT_GE(log->records.size(), 1U);
      EXPECT_EQ(log->records[0].module, "frmCustMain.grid_AfterColEdit");
      EXPECT_EQ(log->records[0].number, kReadOnly);
      screen.grid[1].UserEscape();
    });
  }
  EXPECT_EQ(Stored("SELECT Comment FROM Phones"), "old");
}

TEST_P(ReadOnlyTest, TheUsersOptionsAreRefused) {
  AddRows(CustomerFile(), "UserStartup", {"UserNum", "StartGrid", "QueryTab", "QueryField", "AddPhone"}, {{1, true, 0, 4, true}});
  const std::string before = ReadAll(CustomerFile());
  Close();
  bool saved = false;
  {
    const PlainUser user;
    Serve([&](frmCustMain& screen) {
      const auto mainScreen = frontEnd->serve;
      frontEnd->serve = [&](platform::Form& form) {
        auto& options = dynamic_cast<orcussch::frmUserStartup&>(form);
        EXPECT_EQ(options.cboQuery.Text(), "City");
        options.chkAddPhone.UserClick();
        options.cmdSave.UserClick();
        ASSERT_EQ(log->records.size(), 1U);
        EXPECT_EQ(log->records[0].module, "frmUserStartup.cmdSave_Click");
        EXPECT_EQ(log->records[0].number, kReadOnly);
        EXPECT_TRUE(options.Loaded());
        EXPECT_FALSE(options.cmdSave.Enabled());
        saved = true;
      };
      screen.mnuUserStartup.UserClick();
      frontEnd->serve = mainScreen;
    });
  }
  EXPECT_TRUE(saved);
  EXPECT_EQ(ReadAll(CustomerFile()), before) << "not a byte of the file has changed";
}

TEST_P(ReadOnlyTest, TheNextSessionSavesOnceTheFileIsOpenAgain) {
  Close();
  {
    const PlainUser user;
    Serve([&](frmCustMain& screen) {
      Press(screen, "tb_EditRec");
      Enter(EditOf(screen, "txtLastName"), "Refused");
      Press(screen, "tb_SaveRec");
    });
  }
  Open();
  log->records.clear();
  const PlainUser user;
  Serve([&](frmCustMain& screen) {
    Press(screen, "tb_EditRec");
    Enter(EditOf(screen, "txtLastName"), "Stored");
    Press(screen, "tb_SaveRec");
  });
  EXPECT_TRUE(log->records.empty());
  EXPECT_EQ(Stored("SELECT LastName FROM Customers"), "Stored");
}

INSTANTIATE_TEST_SUITE_P(Closed, ReadOnlyTest, testing::Values(Closed::File, Closed::Archive),
                         [](const auto& made) { return made.param == Closed::File ? "File" : "Archive"; });

/// Others may write these files, so that reading them past their log could show rows that were never there: the user is told.
TEST_P(ReadOnlyTest, AFolderWithoutRightsHoldingFilesOfOthersIsToldAtOnce) {
  ::chmod(Folder().c_str(), 0555);
  const PlainUser user;
  orcussch::CustSearch host(*app);
  host.Let("UserID", 1);
  host.Let("CompanyID", 1);
  ASSERT_FALSE(log->records.empty());
  EXPECT_EQ(log->records[0].module, "modCustSch.OpenFiles");
  EXPECT_EQ(log->records[0].number, 3051);
}

}  // namespace
