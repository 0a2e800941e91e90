#include <sqlite3.h>

#include "support/controls.h"
#include "support/main_screen_test.h"

// Texts in data files that no screen would have written: the screens go on with them.
namespace {

using orcussch::frmCustMain;
using platform::Value;

/// Sets a customer's first address line to raw bytes, as a damaged file or another program might.
void WriteRawAddress(const std::string& file, int account, const std::string& bytes) {
  sqlite3* store = nullptr;
  ASSERT_EQ(sqlite3_open_v2(file.c_str(), &store, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
  sqlite3_stmt* statement = nullptr;
  ASSERT_EQ(sqlite3_prepare_v2(store, "UPDATE Customers SET Addr1 = ?1 WHERE AcctNum = ?2", -1, &statement, nullptr), SQLITE_OK)
      << sqlite3_errmsg(store);
  sqlite3_bind_text(statement, 1, bytes.data(), static_cast<int>(bytes.size()), SQLITE_TRANSIENT);
  sqlite3_bind_int(statement, 2, account);
  EXPECT_EQ(sqlite3_step(statement), SQLITE_DONE) << sqlite3_errmsg(store);
  sqlite3_finalize(statement);
  sqlite3_close(store);
}

class HostileDataTest : public MainScreenTest {
 protected:
  HostileDataTest() {
    AddRows(CustomerFile(), "Customers", {"AcctNum", "LastName", "Addr1"},
            {{1, "Ames", "1 A St"}, {2, "Bell", ""}, {3, "Cole", ""}, {4, "Dunn", ""}, {5, "East", "9 Z St"}});
    WriteRawAddress(CustomerFile(), 2, "\xff\xfe\x80 Rd");
    WriteRawAddress(CustomerFile(), 3, std::string("1\0 B St", 7));
    WriteRawAddress(CustomerFile(), 4, "\xc3");
  }
  int AccountOf(const frmCustMain& screen) const { return screen.data[0].Recordset()->Field("AcctNum").As<std::int32_t>(); }
};

TEST_F(HostileDataTest, EveryRowIsThereInEveryOrder) {
  Serve([&](frmCustMain& screen) {
    for (int column : {4, 0, 1, 4}) {
      screen.grid[0].UserHeadClick(column);
      std::multiset<int> accounts;
      for (const platform::ListRow& row : screen.data[0].Window()->RowsAt(0, 100))
        accounts.insert(row.cells[static_cast<std::size_t>(screen.grid[0].FieldIndexOf(0))].As<std::int32_t>());
      EXPECT_THAT(accounts, testing::ElementsAre(1, 2, 3, 4, 5)) << "column " << column;
    }
    OptionOf(screen, "optOrder0", 1).UserClick();
    EXPECT_EQ(screen.data[0].Window()->RowsAt(0, 100).size(), 5U);
  });
  EXPECT_THAT(Reports(), testing::IsEmpty());
  EXPECT_TRUE(frontEnd->boxes.empty());
}

TEST_F(HostileDataTest, TheRowsCanBeStoodOnSearchedAndSelected) {
  Serve([&](frmCustMain& screen) {
    for (int account = 1; account <= 5; ++account) {
      EXPECT_EQ(AccountOf(screen), account);
      for (int column = 0; column < screen.grid[0].ColumnCount(); ++column)
        screen.grid[0].ShownText(column, screen.grid[0].ColumnValue(column));
      screen.grid[0].UserMove(1);
    }
    screen.grid[0].UserHeadClick(4);
    screen.txtSearch[0].Text("9 Z");
    screen.miFind.UserClick();
    EXPECT_EQ(AccountOf(screen), 5);
    screen.grid[0].UserHeadClick(1);
    screen.txtSearch[0].Text("Bell");
    screen.miFind.UserClick();
    EXPECT_EQ(AccountOf(screen), 2);
    screen.miSelect.UserClick();
  });
  EXPECT_EQ(orcussch::gSelAcctNum, 2);
  EXPECT_EQ(orcussch::gCustomerLastName, "Bell");
  EXPECT_THAT(Reports(), testing::IsEmpty());
  EXPECT_TRUE(frontEnd->boxes.empty());
}

TEST_F(HostileDataTest, TheCardOpensOnThem) {
  Serve([&](frmCustMain& screen) {
    screen.grid[0].UserMove(1);
    screen.miEditRec.UserClick();
    EXPECT_EQ(screen.SSIndexTab1.Page(), 1);
    EXPECT_EQ(EditOf(screen, "txtLastName").Text(), "Bell");
  });
  EXPECT_THAT(Reports(), testing::IsEmpty());
}

/// A search text can reach the screen from a program too, with signs that no keyboard has.
TEST_F(HostileDataTest, SearchTextsThatNobodyCanType) {
  Serve([&](frmCustMain& screen) {
    for (const std::string& text :
         {std::string("A\0B", 3), std::string("\xff\xfe"), std::string("\xed\xa0\x80"), std::string("\xf0\x9f\x98")}) {
      screen.txtSearch[0].Text(text);
      screen.miFind.UserClick();
      EXPECT_EQ(screen.fraSearch[0].Caption(), "Search First") << "found something";
      EXPECT_EQ(app->MousePointer(), 0);
    }
    screen.txtSearch[0].Text("Col");
    screen.miFind.UserClick();
    EXPECT_EQ(AccountOf(screen), 3);
  });
}

/// What the keyboard can't bring, pasting does not either: line ends fall away, what is no character becomes the sign for that.
TEST_F(HostileDataTest, PastedTextIsCleaned) {
  Serve([&](frmCustMain& screen) {
    screen.txtSearch[0].UserPaste("Co\tle\r\n");
    EXPECT_EQ(screen.txtSearch[0].Text(), "Cole");
    screen.txtSearch[0].UserKey(U'\0');
    EXPECT_EQ(screen.txtSearch[0].Text(), "Cole");
    screen.miFind.UserClick();
    EXPECT_EQ(AccountOf(screen), 3);
    screen.txtSearch[0].UserPaste(std::string_view("\0\xff", 2));
    EXPECT_EQ(screen.txtSearch[0].Text(), "Cole\xef\xbf\xbd\xef\xbf\xbd");
    screen.miFind.UserClick();
    EXPECT_EQ(screen.fraSearch[0].Caption(), "Search First");
  });
}

}  // namespace
