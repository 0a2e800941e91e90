#include "setup/tax/frmTaxSetup.h"

#include <sys/stat.h>

#include "session/ModCustSch.h"
#include "support/controls.h"
#include "support/main_screen_test.h"
#include "support/plain_user.h"

// The tax setup where a scenario can't lead: without a picker of accounts, and over files that can only be read.
namespace {

using orcussch::frmCustMain;
using orcussch::frmTaxSetup;

class TaxSetupTest : public MainScreenTest {
 protected:
  TaxSetupTest() {
    AddRows(CustomerFile(), "TaxTypes", {"TypeDescription", "TypeCode"}, {{"State Tax", "S"}, {"City Tax", "S"}});
    AddRows(CustomerFile(), "TaxEntities", {"EntityDescription"}, {{"Minnesota"}});
    AddRows(CustomerFile(), "TaxGrid", {"Description", "TaxType", "TaxEntity", "Mat", "GLMat"}, {{"Rate", 1, 1, 5.0, "22000000"}});
  }

  /// Opens the tax setup from the main screen's menu and closes it when the user has done his part.
  void ServeTaxes(const std::function<void(frmTaxSetup&)>& user) {
    bool served = false;
    Serve([&](frmCustMain& screen) {
      const auto mainScreen = frontEnd->serve;
      frontEnd->serve = [&](platform::Form& form) {
        served = true;
        user(dynamic_cast<frmTaxSetup&>(form));
      };
      screen.miSetupTaxes.UserClick();
      frontEnd->serve = mainScreen;
    });
    EXPECT_TRUE(served) << "the tax setup never came up";
  }
  void OpenToAll() const {
    ::chmod(folder.Path().c_str(), 0777);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Path()))
      ::chmod(entry.path().c_str(), entry.is_directory() ? 0777 : 0666);
  }
  static void Press(frmTaxSetup& screen, const char* key) { screen.Toolbar1.Button(key).UserClick(); }
  void ExpectReport(const char* literal, int number) {
    ASSERT_EQ(log->records.size(), 1U);
    EXPECT_EQ(log->records[0].module, literal);
    EXPECT_EQ(log->records[0].number, number);
    log->records.clear();
  }
};

TEST_F(TaxSetupTest, WithoutAPickerOfAccountsNothingHappens) {
  ASSERT_EQ(app->Accounts(), nullptr);
  ServeTaxes([&](frmTaxSetup& screen) {
    screen.SSIndexTab1.UserClick(orcussch::taxtab::Rates);
    Press(screen, "tb_EditRec");
    ASSERT_TRUE(screen.rates.classes[0].cmdCOATax.EffectivelyEnabled());
    screen.rates.classes[0].cmdCOATax.UserClick();
    EXPECT_EQ(screen.rates.classes[0].txtGlTax.Text(), "22000000");
    EXPECT_EQ(screen.rates.classes[0].lblGLTaxDesc.Caption(), "State Sales Tax Payable");
  });
  EXPECT_THAT(Reports(), testing::IsEmpty());
  EXPECT_THAT(Boxes(), testing::IsEmpty());
}

// The price book's file is closed again, so that other programs may have it alone.
TEST_F(TaxSetupTest, ThePriceBookIsOpenOnlyWhileItIsAsked) {
  frontEnd->answer = platform::box::Yes;
  ServeTaxes([&](frmTaxSetup& screen) {
    const int open = app->Engine().WorkspaceAt(0)->DatabaseCount();
    screen.SSIndexTab1.UserClick(orcussch::taxtab::Rates);
    Press(screen, "tb_DeleteRec");
    EXPECT_FALSE(screen.rates.list.HasRows()) << "the rate was asked about and deleted";
    EXPECT_EQ(app->Engine().WorkspaceAt(0)->DatabaseCount(), open);
  });
  EXPECT_THAT(Reports(), testing::IsEmpty());
}

TEST_F(TaxSetupTest, AFileThatCanOnlyBeReadIsToldAtEverySaveAndDeletion) {
  constexpr int kReadOnly = 3027;
  ServeTaxes([](frmTaxSetup&) {});  // the first session writes what every later one finds
  OpenToAll();
  ::chmod(CustomerFile().c_str(), 0444);
  {
    const PlainUser user;
    frontEnd->answer = platform::box::Yes;
    ServeTaxes([&](frmTaxSetup& screen) {
      ASSERT_TRUE(log->records.empty()) << log->records[0].module << ' ' << log->records[0].number;
      for (int tab = 0; tab < orcussch::taxtab::Count; ++tab) {
        screen.SSIndexTab1.UserClick(tab);
        Press(screen, "tb_EditRec");
        ASSERT_EQ(screen.SSIndexTab1.Page(), 1);
        Press(screen, "tb_SaveRec");
        ExpectReport("frmARSetup.RecordSave", kReadOnly);
        EXPECT_EQ(screen.SSIndexTab1.Page(), 1) << "the card stays open";
        Press(screen, "tb_CancelRec");
        EXPECT_EQ(screen.SSIndexTab1.Page(), 0);
      }
      Press(screen, "tb_DeleteRec");
      ExpectReport("RecordDelete", kReadOnly);
      EXPECT_EQ(screen.rates.list.data.Recordset()->RecordCount(), 1);
      screen.SSIndexTab1.UserClick(orcussch::taxtab::Types);
      screen.types.list.data.Recordset()->MoveLast();
      Press(screen, "tb_DeleteRec");
      ExpectReport("RecordDelete", kReadOnly);
      platform::Grid& list = screen.types.list.grid;
      ASSERT_TRUE(list.UserOpenCell(1));
      list.UserCellText("typed");
      EXPECT_FALSE(list.UserCloseCell());
      ExpectReport("frmCustMain.grid_BeforeColUpdate", kReadOnly);
      list.UserEscape();
    });
  }
  OpenToAll();
  EXPECT_EQ(Stored("SELECT Count(*) FROM TaxTypes"), "2");
  EXPECT_EQ(Stored("SELECT Count(*) FROM TaxTypes WHERE TypeDescription = 'typed'"), "0");
}

}  // namespace
