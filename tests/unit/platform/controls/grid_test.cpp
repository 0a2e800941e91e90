#include "platform/values/error.h"
#include "support/every_control.h"

// The bound list: the order of a cell's events, when its row is written, what fires and what does not.
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Grids : public ScreenTest {
 protected:
  Grids() {
    auto& grid = screen->grid;
    grid.BeforeColEdit = [this](int, bool&) { Note("BeforeColEdit"); };
    grid.ColEdit = [this](int) { Note("ColEdit"); };
    grid.BeforeColUpdate = [this](int, const platform::Value& old, bool&) { Note("BeforeColUpdate " + Text(old)); };
    grid.AfterColUpdate = [this](int column) { Note("AfterColUpdate " + Text(screen->grid.ColumnValue(column))); };
    grid.AfterColEdit = [this](int) { Note("AfterColEdit"); };
    grid.BeforeUpdate = [this](bool&) { Note("BeforeUpdate"); };
    grid.AfterUpdate = [this] { Note("AfterUpdate"); };
    grid.SelChange = [this](bool&) { Note("SelChange"); };
    grid.HeadClick = [this](int column) { Note("HeadClick " + std::to_string(column)); };
    OpenList();
  }
  void Note(const std::string& what) { screen->seen.push_back(what); }
  static std::string Text(const platform::Value& value) { return value.IsText() ? value.As<std::string>() : "-"; }
  void Type(const std::string& text) {
    ASSERT_TRUE(screen->grid.UserOpenCell(0));
    screen->grid.UserCellText(text);
  }
  std::string First() { return Stored("SELECT Name FROM People WHERE Number=1"); }
};

TEST_F(Grids, OneCellInItsOrder) {
  Type("Able");
  EXPECT_TRUE(screen->grid.UserCloseCell());
  EXPECT_THAT(screen->Seen(), ElementsAre("BeforeColEdit", "ColEdit", "BeforeColUpdate Adams", "AfterColUpdate Able", "AfterColEdit"));
  EXPECT_TRUE(screen->grid.DataChanged());
  EXPECT_EQ(Text(screen->data.Recordset()->Field("Name")), "Adams") << "the row holds the old value until it is written";
  EXPECT_EQ(First(), "Adams");
}

TEST_F(Grids, LeavingTheRowWritesIt) {
  Type("Able");
  screen->grid.UserMove(1);
  EXPECT_THAT(screen->Seen(), ElementsAre("BeforeColEdit", "ColEdit", "BeforeColUpdate Adams", "AfterColUpdate Able", "AfterColEdit",
                                          "BeforeUpdate", "AfterUpdate", "Reposition"));
  EXPECT_FALSE(screen->grid.DataChanged());
  EXPECT_EQ(First(), "Able");
}

TEST_F(Grids, ACancelledCellStaysOpenOnItsOldText) {
  screen->grid.BeforeColUpdate = [](int, const platform::Value&, bool& cancel) { cancel = true; };
  Type("Able");
  screen->Seen();
  EXPECT_FALSE(screen->grid.UserCloseCell());
  EXPECT_THAT(screen->Seen(), IsEmpty());
  EXPECT_EQ(screen->grid.OpenCell(), 0);
  EXPECT_EQ(screen->grid.OpenText(), "Adams");
  EXPECT_FALSE(screen->grid.DataChanged());
  screen->grid.UserMove(1);
  EXPECT_THAT(screen->Seen(), ElementsAre("Reposition")) << "unchanged now, so the row can be left";
}

TEST_F(Grids, ACellWhoseTestFailsStaysOpenAndReachesNoRow) {
  screen->grid.BeforeColUpdate = [](int, const platform::Value&, bool&) { throw platform::error::TypeMismatch(); };
  Type("Able");
  EXPECT_FALSE(screen->grid.UserCloseCell());
  EXPECT_THAT(Boxes(), ElementsAre("Type mismatch"));
  EXPECT_EQ(screen->grid.OpenCell(), 0);
  EXPECT_EQ(screen->grid.OpenText(), "Able");
  EXPECT_FALSE(screen->grid.DataChanged());
  screen->grid.UserEscape();
  screen->grid.UserMove(1);
  EXPECT_EQ(First(), "Adams");
}

TEST_F(Grids, AMoveBehindACellThatEmptiedTheListGoesNowhere) {
  screen->grid.AfterColEdit = [this](int) {
    screen->data.RecordSource("SELECT * FROM People WHERE Number=0 ORDER BY Name");
    screen->data.Refresh();
  };
  for (const auto move : {+[](platform::Grid& grid) { grid.UserMove(1); }, +[](platform::Grid& grid) { grid.UserFirst(); },
                          +[](platform::Grid& grid) { grid.UserLast(); }}) {
    OpenList();
    Type("Able");
    move(screen->grid);
    EXPECT_THAT(Boxes(), IsEmpty());
  }
}

TEST_F(Grids, ACellTakesNoMoreCharactersThanItsColumn) {
  std::vector<platform::GridColumn> columns(1);
  columns[0].caption = columns[0].dataField = "Name";
  columns[0].open = true;
  columns[0].entryLimit = 4;
  screen->grid.DefineColumns(columns);
  Type("J\u00f6rgen");
  EXPECT_EQ(screen->grid.OpenText(), "J\u00f6rg");
  screen->grid.UserMove(1);
  EXPECT_EQ(First(), "J\u00f6rg");
}

TEST_F(Grids, AnUnchangedCellFiresNothing) {
  Type("Adams");
  screen->Seen();
  EXPECT_TRUE(screen->grid.UserCloseCell());
  EXPECT_THAT(screen->Seen(), IsEmpty());
  EXPECT_FALSE(screen->grid.DataChanged());
}

TEST_F(Grids, AHandlerMayWriteTheCellAtOnce) {
  screen->grid.AfterColEdit = [this](int) {
    screen->data.Recordset()->Edit();
    screen->data.Recordset()->Update();
  };
  Type("Able");
  EXPECT_TRUE(screen->grid.UserCloseCell());
  EXPECT_FALSE(screen->grid.DataChanged());
  EXPECT_EQ(First(), "Able");
}

TEST_F(Grids, ARowThatCanNotBeWrittenKeepsItsCells) {
  Type("Baker");
  EXPECT_TRUE(screen->grid.UserCloseCell());
  screen->grid.UserMove(1);
  ASSERT_EQ(Boxes().size(), 1U) << "the list shows the error itself";
  EXPECT_TRUE(Boxes()[0].starts_with("The changes you requested to the table were not successful"));
  EXPECT_TRUE(screen->grid.DataChanged());
  EXPECT_EQ(Text(screen->data.Recordset()->Field("Name")), "Baker");
  screen->grid.UserEscape();
  EXPECT_FALSE(screen->grid.DataChanged());
  EXPECT_EQ(First(), "Adams");
}

TEST_F(Grids, ACellSetInCodeIsPendingWithoutEvents) {
  screen->grid.ColumnValue(0, "Able");
  EXPECT_THAT(screen->Seen(), IsEmpty());
  EXPECT_TRUE(screen->grid.DataChanged());
  screen->grid.CurrentBookmark(screen->grid.CurrentBookmark());
  EXPECT_THAT(screen->Seen(), ElementsAre("BeforeUpdate", "AfterUpdate", "Reposition")) << "written though the row is the same";
  EXPECT_EQ(First(), "Able");
}

TEST_F(Grids, ARefusedRowWriteStopsTheMove) {
  screen->grid.BeforeUpdate = [](bool& cancel) { cancel = true; };
  screen->grid.ColumnValue(0, "Able");
  try {
    screen->data.Recordset()->MoveNext();
    FAIL();
  } catch (const platform::Error& error) {
    EXPECT_EQ(error.Number(), 3426);
    EXPECT_EQ(error.Description(), "The action was cancelled by an associated object.");
  }
  EXPECT_EQ(Text(screen->data.Recordset()->Field("Number")), "-");
  EXPECT_EQ(First(), "Adams");
}

TEST_F(Grids, MarksKeepTheirOrderAndOnlyTheUsersFire) {
  const auto rows = screen->data.Window()->RowsAt(0, 3);
  screen->grid.SelBookmarks.Add(rows[2].bookmark);
  screen->grid.SelBookmarks.Add(rows[0].bookmark);
  EXPECT_THAT(screen->Seen(), IsEmpty());
  EXPECT_EQ(screen->grid.SelBookmarks.Item(0), rows[2].bookmark);
  screen->grid.SelBookmarks.Remove(0);
  EXPECT_EQ(screen->grid.SelBookmarks.Count(), 1);
  EXPECT_THAT(screen->Seen(), IsEmpty());
  screen->grid.UserMark({rows[1].bookmark, rows[0].bookmark});
  EXPECT_THAT(screen->Seen(), ElementsAre("SelChange"));
  EXPECT_EQ(screen->grid.SelBookmarks.Count(), 2);
  EXPECT_EQ(Text(screen->data.Recordset()->Field("Name")), "Adams") << "the current row stays";
}

TEST_F(Grids, AHeadingSortsNothingByItself) {
  screen->grid.UserHeadClick(1);
  EXPECT_THAT(screen->Seen(), ElementsAre("HeadClick 1"));
  EXPECT_EQ(Text(screen->data.Recordset()->Field("Name")), "Adams");
}

TEST_F(Grids, TheLastOpenCellIsWrittenBeforeTheScreenGoes) {
  Type("Able");
  screen->Seen();
  app->Unload(*screen);
  EXPECT_THAT(screen->Seen(),
              ElementsAre("BeforeColUpdate Adams", "AfterColUpdate Able", "AfterColEdit", "BeforeUpdate", "AfterUpdate", "Form_Unload"));
  EXPECT_EQ(First(), "Able");
}

}  // namespace
