#include "platform/values/convert.h"
#include "support/controls.h"
#include "support/main_screen_test.h"

// A cell that the user has typed into and not left yet: what he does next takes it, and its text reaches its own row or none.
namespace {

using orcussch::frmCustMain;
using platform::Value;
namespace tab = orcussch::tab;

constexpr int kPhoneColumn = 3;
constexpr int kCommentColumn = 6;
constexpr int kCityColumn = 6;
constexpr int kYearColumn = 5;

class OpenCell : public MainScreenTest {
 protected:
  OpenCell() {
    AddRows(CustomerFile(), "Customers", {"AcctNum", "LastName", "City", "Terms", "NonBillable"},
            {{1, "Hale", "Duluth", 2, false}, {2, "Reed", "Ely", 2, false}, {3, "Tran", "Hibbing", 2, false}});
    AddRows(CustomerFile(), "Phones", {"RecordID", "AcctNum", "Type", "Area", "Phone", "Comment"},
            {{1, 1, "F", "111", "5551111", "first"}, {2, 1, "F", "222", "5552222", "second"}, {3, 1, "F", "333", "5553333", "third"}});
    AddRows(CustomerFile(), "CustCreditCards", {"CreditCardID", "AcctNum", "CCType", "CCNumber", "CCMonth", "CCYear"},
            {{1, 1, "V", "4111", "1", "2026"}});
  }

  /// The user is on a tab's first row and has typed into one of its cells.
  static void TypeInto(frmCustMain& screen, int Tab, int column, const std::string& text) {
    if (screen.Tab() != Tab) screen.SSIndexTab1.UserClick(Tab);
    platform::Grid& grid = screen.grid[Tab];
    ASSERT_TRUE(grid.UserOpenCell(column));
    grid.UserCellText(text);
  }

  std::string Comments() const {
    return Stored("SELECT Comment FROM Phones WHERE RecordID=1") + "," + Stored("SELECT Comment FROM Phones WHERE RecordID=2") + "," +
           Stored("SELECT Comment FROM Phones WHERE RecordID=3");
  }
};

TEST_F(OpenCell, ASearchTakesItBeforeTheListMoves) {
  Serve([&](frmCustMain& screen) {
    TypeInto(screen, tab::Phones, kCommentColumn, "typed");
    screen.txtSearch[tab::Phones].Text("333");
    screen.Toolbar1.Button("tb_Find").UserClick();
    EXPECT_EQ(screen.data[tab::Phones].Recordset()->Field("RecordID"), Value(3));
    EXPECT_EQ(screen.grid[tab::Phones].OpenCell(), std::nullopt);
  });
  EXPECT_EQ(Comments(), "typed,second,third");
}

TEST_F(OpenCell, ADeletionTakesItAlongAndSparesTheNextRow) {
  frontEnd->answer = platform::box::Yes;
  Serve([&](frmCustMain& screen) {
    TypeInto(screen, tab::Phones, kCommentColumn, "typed");
    screen.miDeleteRec.UserClick();
  });
  EXPECT_EQ(Stored("SELECT Count(*) FROM Phones"), "2");
  EXPECT_EQ(Stored("SELECT Comment FROM Phones WHERE RecordID=2"), "second");
}

TEST_F(OpenCell, AnotherTabTakesIt) {
  Serve([&](frmCustMain& screen) {
    TypeInto(screen, tab::Phones, kCommentColumn, "typed");
    EXPECT_TRUE(screen.SSIndexTab1.UserClick(tab::Customers));
  });
  EXPECT_EQ(Comments(), "typed,second,third");
}

TEST_F(OpenCell, TheCardShowsIt) {
  Serve([&](frmCustMain& screen) {
    TypeInto(screen, tab::Phones, kCommentColumn, "typed");
    screen.miEditRec.UserClick();
    EXPECT_EQ(EditOf(screen, "txtPhoneComment").Text(), "typed");
  });
  EXPECT_EQ(Comments(), "typed,second,third");
}

TEST_F(OpenCell, EveryCommandThatMovesOrRebuildsTakesIt) {
  using Act = std::function<void(frmCustMain&)>;
  const std::vector<Act> acts = {
      [](frmCustMain& screen) { screen.miRefresh.UserClick(); },
      [](frmCustMain& screen) { screen.Toolbar1.Button("tb_Refresh").UserClick(); },
      [](frmCustMain& screen) { OptionOf(screen, "optOrder1", 1).UserClick(); },
      [](frmCustMain& screen) { screen.grid[tab::Phones].UserHeadClick(kPhoneColumn); },
      [](frmCustMain& screen) { screen.grid[tab::Phones].UserMove(1); },
      [](frmCustMain& screen) { screen.grid[tab::Phones].UserLast(); },
      [](frmCustMain& screen) { screen.Toolbar1.Button("tb_AddRec").UserClick(); },
      [](frmCustMain& screen) { screen.txtSearch[tab::Phones].Owner().UserFocus(screen.txtSearch[tab::Phones]); },
      [](frmCustMain& screen) { screen.data[tab::Phones].Recordset()->MoveNext(); },
      [](frmCustMain& screen) { screen.data[tab::Phones].Recordset()->FindFirst("[RecordID]=3"); },
      [](frmCustMain& screen) { screen.miExit.UserClick(); },
      [](frmCustMain& screen) { screen.UserClose(); },
  };
  int number = 0;
  for (const Act& act : acts) {
    const std::string text = "typed " + std::to_string(++number);
    Serve([&](frmCustMain& screen) {
      screen.SSIndexTab1.UserClick(tab::Phones);
      screen.data[tab::Phones].Recordset()->FindFirst("[RecordID]=1");
      TypeInto(screen, tab::Phones, kCommentColumn, text);
      act(screen);
      EXPECT_EQ(screen.grid[tab::Phones].OpenCell(), std::nullopt) << text;
    });
    EXPECT_EQ(Comments(), text + ",second,third");
  }
  EXPECT_THAT(Reports(), testing::IsEmpty());
}

TEST_F(OpenCell, ARefusedOneKeepsTheCommandFromStarting) {
  Serve([&](frmCustMain& screen) {
    TypeInto(screen, tab::CreditCards, kYearColumn, "99");
    EXPECT_FALSE(screen.SSIndexTab1.UserClick(tab::Phones));
    EXPECT_EQ(screen.Tab(), tab::CreditCards);
    ASSERT_EQ(frontEnd->boxes.size(), 1U);
    EXPECT_EQ(frontEnd->boxes[0].text, "You must enter a 4 digit numeric credit card expiration year!");
    EXPECT_EQ(screen.grid[tab::CreditCards].OpenCell(), kYearColumn);

    screen.grid[tab::CreditCards].UserCellText("98");
    screen.miEditRec.UserClick();
    EXPECT_EQ(screen.SSIndexTab1.Page(), 0) << "no card opens";
    screen.grid[tab::CreditCards].UserCellText("97");
    screen.Form::UserFocus(screen.txtSearch[tab::CreditCards]);
    EXPECT_EQ(screen.Focus(), &screen.grid[tab::CreditCards]);
    EXPECT_EQ(frontEnd->boxes.size(), 3U);

    screen.grid[tab::CreditCards].UserCellText("96");
    EXPECT_THROW(screen.data[tab::CreditCards].Recordset()->MoveLast(), platform::Error) << "3426 for a move by code";
  });
  EXPECT_EQ(Stored("SELECT CCYear FROM CustCreditCards"), "2026");
}

TEST_F(OpenCell, WhatIsRefusedGoesWithTheScreen) {
  Serve([&](frmCustMain& screen) {
    TypeInto(screen, tab::CreditCards, kYearColumn, "99");
    screen.UserClose();
    EXPECT_FALSE(screen.Loaded());
  });
  EXPECT_EQ(frontEnd->boxes.size(), 1U);
  EXPECT_EQ(Stored("SELECT CCYear FROM CustCreditCards"), "2026");
}

TEST_F(OpenCell, ItGoesWithARowThatAnotherUserDeletes) {
  Serve([&](frmCustMain& screen) {
    TypeInto(screen, tab::Phones, kCommentColumn, "typed");
    Stored("SELECT Count(*) FROM Phones");
    const auto other = app->Engine().CreateWorkspace("other", "Admin", "", 2);
    other->OpenDatabase(CustomerFile())->Execute("DELETE FROM Phones WHERE RecordID=1");
    EXPECT_FALSE(screen.SSIndexTab1.UserClick(tab::Customers)) << "told first";
    EXPECT_EQ(screen.grid[tab::Phones].OpenCell(), std::nullopt);
    EXPECT_FALSE(screen.grid[tab::Phones].DataChanged());
    EXPECT_TRUE(screen.SSIndexTab1.UserClick(tab::Customers));
    other->Close();
  });
  EXPECT_THAT(Reports(), testing::ElementsAre("frmCustMain.grid_AfterColEdit"));
  EXPECT_EQ(Stored("SELECT Comment FROM Phones WHERE RecordID=2"), "second");
}

/// The format is for looking at: the hyphen of "555-1111" is neither edited nor stored.
TEST_F(OpenCell, ItHoldsTheStoredValue) {
  Serve([&](frmCustMain& screen) {
    platform::Grid& grid = screen.grid[tab::Phones];
    screen.SSIndexTab1.UserClick(tab::Phones);
    ASSERT_TRUE(grid.UserOpenCell(kPhoneColumn));
    EXPECT_EQ(grid.OpenText(), "5551111");
    grid.UserCellText("5551112");
    EXPECT_TRUE(grid.UserCloseCell());
    EXPECT_EQ(grid.ShownText(kPhoneColumn, grid.ColumnValue(kPhoneColumn)), "555-1112");
  });
  EXPECT_THAT(Reports(), testing::IsEmpty());
  EXPECT_EQ(Stored("SELECT Phone FROM Phones WHERE RecordID=1"), "5551112");
}

TEST_F(OpenCell, ACustomersCellDoesNotReachTheNextCustomer) {
  Serve([&](frmCustMain& screen) {
    TypeInto(screen, tab::Customers, kCityColumn, "Fargo");
    screen.txtSearch[tab::Customers].Text("Reed");
    screen.miFind.UserClick();
    EXPECT_EQ(screen.lblCustomer.Caption(), "Reed");
  });
  EXPECT_EQ(Stored("SELECT City FROM Customers WHERE AcctNum=1"), "Fargo");
  EXPECT_EQ(Stored("SELECT City FROM Customers WHERE AcctNum=2"), "Ely");
}

/// A LostFocus that fails is told and ends there: tab, list and heading stay together.
TEST_F(OpenCell, AFailingLostFocusDoesNotSplitTheTab) {
  Serve([&](frmCustMain& screen) {
    screen.SSIndexTab1.UserClick(tab::Phones);
    screen.grid[tab::Phones].SetFocus();
    screen.grid[tab::Phones].LostFocus = [] { throw platform::Error(3218, "Couldn't update; currently locked."); };
    EXPECT_TRUE(screen.SSIndexTab1.UserClick(tab::CreditCards));
    EXPECT_EQ(screen.grid[tab::CreditCards].Caption(), "Hale - Credit Cards");
    EXPECT_EQ(screen.data[tab::CreditCards].Recordset()->RecordCount(), 1);
    ASSERT_EQ(frontEnd->boxes.size(), 1U);
    EXPECT_EQ(frontEnd->boxes[0].text, "Couldn't update; currently locked.");
  });
}

}  // namespace
