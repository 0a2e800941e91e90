#include "support/controls.h"
#include "support/main_screen_test.h"

// Lists that are opened anew, or left, in the middle of a procedure that walks through them: the walk ends with one report, and
// nothing is written to another customer.
namespace {

using orcussch::frmCustMain;
namespace tab = orcussch::tab;

class VanishingLists : public MainScreenTest {
 protected:
  VanishingLists() {
    AddRows(CustomerFile(), "Customers", {"AcctNum", "LastName", "Terms", "NonBillable", "LaborRateType"},
            {{1, "Hale", 2, false, "D"}, {2, "Reed", 2, false, "D"}});
    AddRows(folder / "data/orv1/GL.zdb", "Departments", {"DeptNumber", "DeptDescription", "DefaultLaborRate"},
            {{"701", "North", platform::Currency{500000}}, {"702", "South", platform::Currency{600000}}});
    AddRows(CustomerFile(), "CustLaborRates", {"AcctNum", "Dept", "Adjustment"}, {{1, "701", 0.0}, {1, "702", 0.0}, {2, "701", 0.0}});
    AddRows(CustomerFile(), "DataCodes", {"Code", "Description"}, {{std::int16_t{1}, "a"}, {std::int16_t{2}, "b"}, {std::int16_t{3}, "c"}});
  }

  /// Runs an act of the user at the Nth yield of another.
  void AtYield(int number, std::function<void()> act) {
    const int at = frontEnd->yields + number;
    frontEnd->onYield = [this, at, act = std::move(act)] {
      if (frontEnd->yields != at) return;
      frontEnd->onYield = nullptr;
      act();
    };
  }

  void ExpectOneReport(const std::string& module, int number) {
    ASSERT_EQ(log->records.size(), 1U);
    EXPECT_EQ(log->records[0].module, module);
    EXPECT_EQ(log->records[0].number, number);
  }
};

TEST_F(VanishingLists, APercentageEndsWhereTheListIsReadAnew) {
  Serve([&](frmCustMain& screen) {
    screen.SSIndexTab1.UserClick(tab::LaborRates);
    OptionOf(screen, "optAllDept", 1).UserClick();
    EditOf(screen, "txtAdjustAllDept").Text("5");
    AtYield(2, [&] { screen.miRefresh.UserClick(); });
    ButtonOf(screen, "cmdAddAllDepts").UserClick();
    EXPECT_TRUE(ButtonOf(screen, "cmdAddAllDepts").Enabled());
    EXPECT_EQ(app->MousePointer(), 0);
  });
  ExpectOneReport("frmCustMain.cmdAddAllDepts_Click", 3420);
  EXPECT_EQ(Stored("SELECT Count(*) FROM CustLaborRates WHERE Adjustment=5"), "1");
}

TEST_F(VanishingLists, AddingAllDepartmentsGoesToTheCustomerWhomTheUserSaw) {
  Serve([&](frmCustMain& screen) {
    screen.SSIndexTab1.UserClick(tab::LaborRates);
    AtYield(1, [&] {
      screen.SSIndexTab1.UserClick(tab::Customers);
      screen.data[tab::Customers].Recordset()->MoveLast();
    });
    ButtonOf(screen, "cmdAddAllDepts").UserClick();
  });
  EXPECT_EQ(Stored("SELECT Count(*) FROM CustLaborRates WHERE AcctNum=2"), "1");
}

TEST_F(VanishingLists, SelectingEndsWhereTheListIsReadAnew) {
  Serve([&](frmCustMain& screen) {
    screen.SSIndexTab1.UserClick(tab::CustomerTypes);
    AtYield(3, [&] {
      screen.SSIndexTab1.UserClick(tab::KeyWords);
      screen.SSIndexTab1.UserClick(tab::CustomerTypes);
      screen.grid[tab::CustomerTypes].UserHeadClick(1);
    });
    screen.Toolbar1.Button("tb_SelectAll").UserClick();
    EXPECT_EQ(screen.grid[tab::CustomerTypes].SelBookmarks.Count(), 0);
  });
  ExpectOneReport("frmCustMain,SelectAllRecords", 3420);
}

TEST_F(VanishingLists, AssigningEndsWhereTheListIsReadAnew) {
  Serve([&](frmCustMain& screen) {
    screen.SSIndexTab1.UserClick(tab::CustomerTypes);
    screen.Toolbar1.Button("tb_SelectAll").UserClick();
    AtYield(4, [&] { screen.miRefresh.UserClick(); });
    screen.miAssignSelected.UserClick();
  });
  ExpectOneReport("frmCustMain.UnassignSelected", 3159);
}

/// The ticks on the screen belong to the customer for whom the list was filled, wherever the customers' list stands by now.
TEST_F(VanishingLists, AssigningGoesToTheCustomerWhomTheUserSaw) {
  Serve([&](frmCustMain& screen) {
    screen.SSIndexTab1.UserClick(tab::CustomerTypes);
    screen.Toolbar1.Button("tb_SelectAll").UserClick();
    AtYield(2, [&] {
      screen.SSIndexTab1.UserClick(tab::Customers);
      screen.data[tab::Customers].Recordset()->MoveLast();
    });
    screen.miAssignSelected.UserClick();
  });
  EXPECT_EQ(Stored("SELECT Count(*) FROM CustCodes WHERE AcctNum=1"), "3");
  EXPECT_EQ(Stored("SELECT Count(*) FROM CustCodes WHERE AcctNum=2"), "0");
}

TEST_F(VanishingLists, ATabThatWasLeftWhileItLoadedDoesNotCloseTheQueries) {
  Serve([&](frmCustMain& screen) {
    AtYield(1, [&] { screen.SSIndexTab1.UserClick(tab::Customers); });
    screen.SSIndexTab1.UserClick(tab::Phones);
    EXPECT_EQ(screen.Tab(), tab::Customers);
    EXPECT_TRUE(screen.Toolbar1.Button("tb_Queries").Enabled());
    EXPECT_TRUE(screen.miQueries.Enabled());
  });
  EXPECT_THAT(Reports(), testing::IsEmpty());
}

/// A second key press in the first one's yield: one customer is added, not two.
TEST_F(VanishingLists, ASaveInTheMiddleOfASaveWritesOnce) {
  Serve([&](frmCustMain& screen) {
    screen.miAddRec.UserClick();
    EditOf(screen, "txtLastName").Text("Tran");
    ComboOf(screen, "cboTerms").BoundValue(2);
    AtYield(1, [&] { screen.miSaveRec.UserClick(); });
    screen.miSaveRec.UserClick();
    EXPECT_EQ(screen.SSIndexTab1.Page(), 0);
    EXPECT_FALSE(screen.Toolbar1.Button("tb_SaveRec").Enabled());
    EXPECT_TRUE(screen.mToolbarReady);
  });
  EXPECT_THAT(Reports(), testing::IsEmpty());
  EXPECT_EQ(Stored("SELECT Count(*) FROM Customers WHERE LastName='Tran'"), "1");
}

/// Between the lines of a save stands the question about departmental rates, with yields of its own.
TEST_F(VanishingLists, ASaveWritesTheCustomerOfItsCard) {
  frontEnd->answer = platform::box::Yes;
  Serve([&](frmCustMain& screen) {
    screen.miEditRec.UserClick();
    ComboOf(screen, "cboTerms").BoundValue(2);
    EditOf(screen, "txtCity").Text("Duluth");
    OptionOf(screen, "optLaborRate", 0).UserClick();
    frontEnd->onBox = [&] {
      frontEnd->onBox = nullptr;
      screen.data[tab::Customers].Recordset()->MoveLast();
      orcussch::rsCustomers->SetIndex("ByAcct");
      orcussch::rsCustomers->Seek("=", {2});
    };
    screen.miSaveRec.UserClick();
  });
  EXPECT_EQ(Stored("SELECT City FROM Customers WHERE AcctNum=1"), "Duluth");
  EXPECT_EQ(Stored("SELECT City FROM Customers WHERE AcctNum=2"), "");
  EXPECT_EQ(Stored("SELECT LastName FROM Customers WHERE AcctNum=2"), "Reed");
}

TEST_F(VanishingLists, AnEditThatLosesItsRowOpensNoCard) {
  Serve([&](frmCustMain& screen) {
    AtYield(3, [&] { screen.grid[tab::Customers].UserMove(1); });  // while the taxes are loaded
    screen.miEditRec.UserClick();
    EXPECT_EQ(screen.SSIndexTab1.Page(), 0);
    EXPECT_FALSE(screen.Toolbar1.Button("tb_SaveRec").Enabled());
    EXPECT_TRUE(screen.mToolbarReady);
    EXPECT_EQ(screen.lblCustomer.Caption(), "Reed");
  });
  EXPECT_THAT(Reports(), testing::IsEmpty());
}

TEST_F(VanishingLists, ADeletionTakesTheRowThatWasAskedAbout) {
  frontEnd->answer = platform::box::Yes;
  Serve([&](frmCustMain& screen) {
    const int yields = frontEnd->yields;
    frontEnd->onBox = [&] {
      frontEnd->onBox = nullptr;
      screen.data[tab::Customers].Recordset()->MoveLast();
    };
    screen.miDeleteRec.UserClick();
    EXPECT_GT(frontEnd->yields, yields);
  });
  EXPECT_EQ(Stored("SELECT LastName FROM Customers"), "Reed");
}

TEST_F(VanishingLists, ADeletionFromAListThatWasReadAnewIsReportedAndDeletesNothing) {
  frontEnd->answer = platform::box::Yes;
  Serve([&](frmCustMain& screen) {
    AtYield(2, [&] { screen.data[tab::Customers].Refresh(); });  // behind the look at the transactions
    screen.miDeleteRec.UserClick();
    EXPECT_TRUE(screen.mToolbarReady);
  });
  ExpectOneReport("frmCustMain.RecordDelete", 3420);
  EXPECT_EQ(Stored("SELECT Count(*) FROM Customers"), "2");
}

}  // namespace
