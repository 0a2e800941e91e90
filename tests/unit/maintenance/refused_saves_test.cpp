#include "maintenance/tabs/data_codes.h"
#include "support/controls.h"
#include "support/main_screen_test.h"

// What a command has opened for its own use is closed when it ends, however it ends.
namespace {

using orcussch::frmCustMain;
using platform::Value;

class OpenedRows : public MainScreenTest {
 protected:
  OpenedRows() {
    AddRows(CustomerFile(), "Customers", {"AcctNum", "LastName", "Addr1", "Addr2", "City", "State", "Terms", "LaborRateType"},
            {{11, "Hale", "1 Elm St", "", "Duluth", "MN", std::int16_t{1}, "N"}});
    AddRows(CustomerFile(), "CustLaborRates", {"AcctNum", "Dept", "Adjustment"}, {{11, "100", 5.0}});
  }

  /// Recordsets that are open in the session's databases.
  static int Open() {
    int open = 0;
    for (const platform::DatabaseRef* db : {&orcussch::dbCustomer, &orcussch::dbTemp, &orcussch::dbARTrans, &orcussch::dbDat})
      open += (*db)->RecordsetCount();
    return open;
  }
  static void FillCard(frmCustMain& screen) {
    EditOf(screen, "txtLastName").Text("Reed");
    EditOf(screen, "txtAddr1").Text("1 Elm St");
    EditOf(screen, "txtCity").Text("Duluth");
    EditOf(screen, "txtState").Text("MN");
    ComboOf(screen, "cboTerms").BoundValue(std::int16_t{1});
  }
  void DeleteElsewhere(const std::string& sql) const {
    const auto other = engine::MakeEngine();
    other->OpenControlDatabase(CustomerFile())->Execute(sql, platform::dbFailOnError);
  }
  std::string LastBox() const { return frontEnd->boxes.empty() ? "" : frontEnd->boxes.back().text; }
};

TEST_F(OpenedRows, ASaveThatTheDuplicateQuestionRefuses) {
  frontEnd->answer = platform::box::No;
  Serve([&](frmCustMain& screen) {
    screen.miAddRec.UserClick();
    FillCard(screen);
    const int before = Open();
    screen.miSaveRec.UserClick();
    EXPECT_TRUE(LastBox().starts_with("The following Customer")) << LastBox();
    EXPECT_EQ(Open(), before);
  });
  EXPECT_THAT(Reports(), testing::IsEmpty());
}

TEST_F(OpenedRows, ASaveWhoseCustomerIsGone) {
  Serve([&](frmCustMain& screen) {
    screen.miEditRec.UserClick();
    ComboOf(screen, "cboTerms").BoundValue(std::int16_t{1});
    DeleteElsewhere("DELETE * FROM Customers");
    const int before = Open();
    screen.miSaveRec.UserClick();
    EXPECT_TRUE(LastBox().starts_with("The edited customer can no longer be found")) << LastBox();
    EXPECT_EQ(Open(), before);
  });
  EXPECT_THAT(Reports(), testing::IsEmpty());
}

TEST_F(OpenedRows, ASaveThatGoesThrough) {
  frontEnd->answer = platform::box::Yes;
  Serve([&](frmCustMain& screen) {
    screen.miEditRec.UserClick();
    ComboOf(screen, "cboTerms").BoundValue(std::int16_t{1});
    const int before = Open();
    screen.miSaveRec.UserClick();
    EXPECT_EQ(screen.SSIndexTab1.Page(), 0);
    EXPECT_EQ(Open(), before);
    screen.miAddRec.UserClick();
    FillCard(screen);
    screen.miSaveRec.UserClick();
    EXPECT_EQ(screen.data[0].Recordset()->RecordCount(), 2);
    EXPECT_EQ(Open(), before);
  });
  EXPECT_THAT(Reports(), testing::IsEmpty());
}

TEST_F(OpenedRows, ANumberForATypeThatCanNotBeGiven) {
  AddRows(CustomerFile(), "DataCodes", {"Code", "Description"}, {{std::int16_t{32767}, "last"}});
  Serve([&](frmCustMain&) {
    const int before = Open();
    orcussch::NextDataCode();
    EXPECT_EQ(Open(), before);
  });
  EXPECT_THAT(Reports(), testing::ElementsAre("frmCustMain.NextDataCode"));
}

TEST_F(OpenedRows, ADeletionWithAndWithoutTransactions) {
  frontEnd->answer = platform::box::Yes;
  AddRows(folder / "data/orv1/artrans.zdb", "Transactions", {"AcctNum"}, {{11}});
  Serve([&](frmCustMain& screen) {
    const int before = Open();
    screen.miDeleteRec.UserClick();
    EXPECT_TRUE(LastBox().starts_with("Accounts Receivable Transactions exist")) << LastBox();
    EXPECT_EQ(Open(), before);
  });
  EXPECT_THAT(Reports(), testing::IsEmpty());
}

}  // namespace
