#include "support/controls.h"
#include "support/main_screen_test.h"

namespace {

using orcussch::frmCustMain;

/// The design has no column for the comments; a column chooser could bring one in.
void AddCommentColumn(frmCustMain& screen) {
  std::vector<platform::GridColumn> columns;
  for (int i = 0; i < screen.grid[0].ColumnCount(); ++i) columns.push_back(screen.grid[0].Column(i));
  platform::GridColumn comments = columns[1];
  comments.caption = "Comments";
  comments.dataField = "Comments";
  columns.push_back(comments);
  screen.grid[0].DefineColumns(std::move(columns));
}

TEST_F(MainScreenTest, CustomersAreNotOrderedByTheirComments) {
  AddRows(CustomerFile(), "Customers", {"LastName", "Comments"}, {{"Ames", "b"}, {"Bell", "a"}});
  Serve([&](frmCustMain& screen) {
    AddCommentColumn(screen);
    screen.txtSearch[0].Text("Am");
    const int builds = screen.data[0].RefreshCount();
    screen.grid[0].UserHeadClick(screen.grid[0].ColumnCount() - 1);

    ASSERT_EQ(frontEnd->boxes.size(), 1U);
    EXPECT_EQ(frontEnd->boxes[0].text,
              "Customer records cannot be ordered by the comment field because it is a memo field in the database!");
    EXPECT_EQ(frontEnd->boxes[0].title, "Customer Order");
    EXPECT_EQ(frontEnd->boxes[0].style, 64);
    // The search has gone to the comments, order and options stay.
    EXPECT_EQ(screen.txtSearch[0].Text(), "");
    EXPECT_EQ(screen.fraSearch[0].Tag(), "Comments");
    EXPECT_EQ(screen.lblSearch[0].Caption(), "Comments");
    EXPECT_EQ(screen.fraOrder[0].Tag(), "LastName");
    EXPECT_EQ(OptionOf(screen, "optOrder0", 0).Caption(), "Ascending Customer Last Name");
    EXPECT_EQ(screen.data[0].RefreshCount(), builds);
    EXPECT_EQ(screen.data[0].RecordSource(), "SELECT * FROM Customers ORDER BY LastName;");
  });
  EXPECT_THAT(Reports(), testing::IsEmpty());
}

TEST_F(MainScreenTest, TheFieldOfTheCommentsIsKnownInAnyCase) {
  AddRows(CustomerFile(), "Customers", {"LastName"}, {{"Ames"}});
  Serve([&](frmCustMain& screen) {
    AddCommentColumn(screen);
    screen.grid[0].DesignColumn(screen.grid[0].ColumnCount() - 1).dataField = "COMMents";
    screen.grid[0].UserHeadClick(screen.grid[0].ColumnCount() - 1);
    EXPECT_EQ(frontEnd->boxes.size(), 1U);
    EXPECT_EQ(screen.fraOrder[0].Tag(), "LastName");
  });
}

}  // namespace
