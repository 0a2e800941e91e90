#include <sys/stat.h>

#include "setup/frmPhoneSetup.h"
#include "support/controls.h"
#include "support/main_screen_test.h"
#include "support/plain_user.h"

// What of a setup screen no scripted user comes to: writes at the same moment, a list that is opened anew under a card, a file that
// can't be written.
namespace {

using orcussch::frmCustMain;
using orcussch::frmPhoneSetup;

class SetupScreensTest : public MainScreenTest {
 protected:
  /// What the user does with the phone types.
  void SetUpPhones(const std::function<void(frmPhoneSetup&)>& user) {
    bool served = false;
    Serve([&](frmCustMain& main) {
      frontEnd->serve = [&](platform::Form& form) {
        served = true;
        user(dynamic_cast<frmPhoneSetup&>(form));
      };
      main.miSetupPhones.UserClick();
    });
    EXPECT_TRUE(served);
  }
  static void Press(frmPhoneSetup& screen, const char* key) { screen.Toolbar1.Button(key).UserClick(); }
  void ExpectReport(const char* literal, int number) {
    ASSERT_EQ(log->records.size(), 1U);
    EXPECT_EQ(log->records[0].module, literal);
    EXPECT_EQ(log->records[0].number, number);
    log->records.clear();
  }
};

/// The other user's row is not there yet when the number is looked for, and is when it is stored: the key refuses a second one, the
/// card stays, and the next save takes the number behind.
TEST_F(SetupScreensTest, TheSameNumberTakenByTwoAtATime) {
  const auto engine = engine::MakeEngine();
  const auto workspace = engine->CreateWorkspace("Other", "Admin", "", 2);
  engine->AppendWorkspace(workspace);
  const auto file = workspace->OpenDatabase(CustomerFile());
  bool open = false;
  SetUpPhones([&](frmPhoneSetup& screen) {
    Press(screen, "tb_AddRec");
    screen.txtPhone.Text("Ours");
    workspace->BeginTrans();
    file->Execute("INSERT INTO PhoneTypes (Type, TypeDescription) VALUES ('1', 'Theirs')", platform::dbFailOnError);
    open = true;
    app->Engine().OnWait([&] {
      if (open) workspace->CommitTrans();
      open = false;
    });
    Press(screen, "tb_SaveRec");
    EXPECT_FALSE(open) << "nobody waited for the other one's write";
    ExpectReport("frmPhoneSetup.RecordSave", 3022);
    EXPECT_TRUE(screen.txtPhone.EffectivelyVisible());
    Press(screen, "tb_SaveRec");
    EXPECT_TRUE(screen.list.grid.EffectivelyVisible());
    app->Engine().OnWait([] {});
  });
  EXPECT_THAT(Reports(), testing::IsEmpty());
  EXPECT_EQ(Stored("SELECT TypeDescription FROM PhoneTypes WHERE Type = '1'"), "Theirs");
  EXPECT_EQ(Stored("SELECT TypeDescription FROM PhoneTypes WHERE Type = '2'"), "Ours");
}

TEST_F(SetupScreensTest, AListThatWasEmptiedUnderACardIsReportedAndTheCardStays) {
  SetUpPhones([&](frmPhoneSetup& screen) {
    Press(screen, "tb_EditRec");
    engine::MakeEngine()->OpenControlDatabase(CustomerFile())->Execute("DELETE * FROM PhoneTypes", platform::dbFailOnError);
    screen.list.Reload();
    Press(screen, "tb_SaveRec");
    ExpectReport("frmPhoneSetup.RecordSave", 3021);
    EXPECT_TRUE(screen.txtPhone.EffectivelyVisible());
    EXPECT_TRUE(screen.Toolbar1.Enabled());
    EXPECT_FALSE(screen.RecordsChanged);
  });
}

TEST_F(SetupScreensTest, AFileThatCantBeWrittenIsReported) {
  constexpr int kReadOnly = 3027;
  AddRows(CustomerFile(), "PhoneTypes", {"Type", "TypeDescription"}, {{"1", "Barn"}});
  Serve([](frmCustMain&) {});  // the first session writes the links
  const auto open = [this](unsigned mode) { ::chmod(CustomerFile().c_str(), mode); };
  ::chmod(folder.Path().c_str(), 0777);
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Path()))
    ::chmod(entry.path().c_str(), entry.is_directory() ? 0777 : 0666);
  open(0444);
  {
    const PlainUser user;
    SetUpPhones([&](frmPhoneSetup& screen) {
      for (const char* begin : {"tb_AddRec", "tb_EditRec"}) {
        Press(screen, begin);
        screen.txtPhone.Text("New");
        Press(screen, "tb_SaveRec");
        ExpectReport("frmPhoneSetup.RecordSave", kReadOnly);
        EXPECT_EQ(screen.txtPhone.Text(), "New");
        frontEnd->answer = platform::box::Yes;
        Press(screen, "tb_CancelRec");
        EXPECT_TRUE(screen.list.grid.EffectivelyVisible());
      }
      screen.list.data.Recordset()->FindFirst("[Type]='1'");
      Press(screen, "tb_DeleteRec");
      ExpectReport("frmPhoneSetup.RecordDelete", kReadOnly);
      ASSERT_TRUE(screen.list.grid.UserOpenCell(1));
      screen.list.grid.UserCellText("Stable");
      const std::size_t boxes = frontEnd->boxes.size();
      screen.list.grid.UserLeaveRow();
      EXPECT_EQ(frontEnd->boxes.size(), boxes + 1);
      EXPECT_TRUE(screen.list.grid.DataChanged());
      screen.list.grid.UserEscape();
    });
  }
  open(0666);
  EXPECT_EQ(Stored("SELECT Count(*) FROM PhoneTypes"), "6");
  EXPECT_EQ(Stored("SELECT TypeDescription FROM PhoneTypes WHERE Type = '1'"), "Barn");
}

}  // namespace
