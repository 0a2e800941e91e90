#include "platform/values/error.h"
#include "support/every_control.h"

// What a data control does: opening anew, moves, pending rows.
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

template <class Act>
int ErrorOf(Act&& act) {
  try {
    act();
  } catch (const platform::Error& error) {
    return error.Number();
  }
  return 0;
}

class DataControls : public ScreenTest {
 protected:
  platform::RecordsetRef Rows() { return screen->data.Recordset(); }
};

TEST_F(DataControls, BeforeTheFirstRefreshThereIsNone) {
  EXPECT_EQ(ErrorOf([&] { Rows()->MoveFirst(); }), 91);
  screen->data.Refresh();
  EXPECT_EQ(ErrorOf([&] { Rows()->MoveFirst(); }), 91) << "without a statement Refresh has no effect";
  EXPECT_THAT(screen->Seen(), IsEmpty());
}

TEST_F(DataControls, RefreshFiresRepositionOnce) {
  OpenList();
  screen->data.Refresh();
  EXPECT_THAT(screen->Seen(), ElementsAre("Reposition"));
  EXPECT_EQ(Rows()->Field("Name"), platform::Value("Adams"));
  screen->data.RecordSource("SELECT * FROM People WHERE Number=99");
  EXPECT_GT(Rows()->RecordCount(), 0) << "the statement counts from the next Refresh on";
  screen->data.Refresh();
  EXPECT_THAT(screen->Seen(), ElementsAre("Reposition")) << "of an empty list too";
  EXPECT_EQ(Rows()->RecordCount(), 0);
  EXPECT_FALSE(screen->data.OnRecord());
}

TEST_F(DataControls, AFailedRefreshKeepsTheOldList) {
  OpenList();
  Rows()->MoveNext();
  screen->Seen();
  screen->data.RecordSource("SELECT * FROM Nothing");
  EXPECT_EQ(ErrorOf([&] { screen->data.Refresh(); }), 3078);
  EXPECT_EQ(Rows()->Field("Name"), platform::Value("Baker"));
  EXPECT_THAT(screen->Seen(), IsEmpty());
}

TEST_F(DataControls, RefreshDropsBookmarksMarksAndWhatWasPending) {
  OpenList();
  const auto old = Rows()->Bookmark();
  platform::RecordsetRef clone = Rows()->Clone();
  screen->grid.UserMark({old});
  screen->grid.ColumnValue(0, "Pending");
  screen->Seen();
  screen->data.Refresh();
  EXPECT_EQ(screen->grid.SelBookmarks.Count(), 0);
  EXPECT_FALSE(screen->grid.DataChanged());
  EXPECT_EQ(ErrorOf([&] { Rows()->SetBookmark(old); }), 3159);
  EXPECT_EQ(Stored("SELECT Name FROM People WHERE Number=1"), "Adams");
}

TEST_F(DataControls, MovesFireRepositionWhenARowIsCurrent) {
  OpenList();
  Rows()->MoveLast();
  Rows()->MovePrevious();
  Rows()->Move(-1);
  EXPECT_THAT(screen->Seen(), ElementsAre("Reposition", "Reposition", "Reposition"));
  Rows()->MovePrevious();
  EXPECT_THAT(screen->Seen(), IsEmpty()) << "before the first row there is none";
  Rows()->FindFirst("[Name]='Cole'");
  EXPECT_THAT(screen->Seen(), ElementsAre("Reposition"));
  Rows()->FindNext("[Name]='Adams'");
  Rows()->FindFirst("[Name]='Nobody'");
  EXPECT_THAT(screen->Seen(), IsEmpty());
  Rows()->SetBookmark(Rows()->Bookmark());
  EXPECT_THAT(screen->Seen(), ElementsAre("Reposition")) << "the same row too";
}

TEST_F(DataControls, ACloneStandsAloneAndFiresNothing) {
  OpenList();
  auto clone = Rows()->Clone();
  clone->MoveLast();
  EXPECT_THAT(screen->Seen(), IsEmpty());
  EXPECT_EQ(Rows()->Field("Name"), platform::Value("Adams"));
  Rows()->SetBookmark(clone->Bookmark());
  EXPECT_EQ(Rows()->Field("Name"), platform::Value("Cole"));
}

TEST_F(DataControls, AHandlerMayOpenAnotherList) {
  platform::DataControl child(*screen, "child");
  child.DatabaseName(folder / "people.zdb");
  child.RecordSource("SELECT * FROM People WHERE Number=3");
  child.Reposition = [this] { screen->seen.emplace_back("Reposition child"); };
  screen->data.Reposition = [&] {
    screen->seen.emplace_back("Reposition");
    child.Refresh();
    screen->seen.emplace_back("end");
  };
  OpenList();
  Rows()->MoveNext();
  EXPECT_THAT(screen->Seen(), ElementsAre("Reposition", "Reposition child", "end"));
}

TEST_F(DataControls, APendingEditIsSavedByAMove) {
  OpenList();
  Rows()->Edit();
  Rows()->SetField("Name", "Able");
  Rows()->MoveNext();
  EXPECT_EQ(Stored("SELECT Name FROM People WHERE Number=1"), "Able");
  Rows()->Edit();
  Rows()->SetField("Name", "Bell");
  Rows()->FindFirst("[Name]='Cole'");
  EXPECT_EQ(Stored("SELECT Name FROM People WHERE Number=2"), "Bell");
  Rows()->Edit();
  Rows()->SetField("Name", "Cork");
  Rows()->AddNew();
  EXPECT_EQ(Stored("SELECT Name FROM People WHERE Number=3"), "Cork");
  Rows()->SetField("Name", "New");
  Rows()->MoveFirst();
  EXPECT_EQ(Stored("SELECT Name FROM People WHERE Number=4"), "New");
}

TEST_F(DataControls, UpdateControlsThrowsPendingCellsAway) {
  OpenList();
  screen->grid.ColumnValue(0, "Pending");
  screen->data.UpdateControls();
  EXPECT_FALSE(screen->grid.DataChanged());
  EXPECT_THAT(screen->Seen(), IsEmpty());
  Rows()->MoveNext();
  EXPECT_EQ(Stored("SELECT Name FROM People WHERE Number=1"), "Adams");
}

TEST_F(DataControls, ARowThatAnotherUserDeletedStaysReadable) {
  OpenList();
  Elsewhere("DELETE * FROM People WHERE Number=1");
  EXPECT_EQ(Rows()->Field("Name"), platform::Value("Adams"));
  EXPECT_EQ(ErrorOf([&] { Rows()->Edit(); }), 3167);
  EXPECT_EQ(ErrorOf([&] { Rows()->Delete(); }), 3167);
  EXPECT_EQ(ErrorOf([&] { Rows()->Move(0); }), 3167);
  EXPECT_EQ(ErrorOf([&] { Rows()->SetBookmark(Rows()->Bookmark()); }), 3167);
  EXPECT_EQ(Rows()->Field("Name"), platform::Value("Adams"));
}

TEST_F(DataControls, AfterAnOwnDeleteTheRowIsDead) {
  OpenList();
  Rows()->MoveLast();
  EXPECT_EQ(Rows()->RecordCount(), 3);
  Rows()->MoveFirst();
  Rows()->Delete();
  EXPECT_EQ(ErrorOf([&] { Rows()->Field("Name"); }), 3167);
  EXPECT_EQ(Rows()->RecordCount(), 2);
  Rows()->MoveNext();
  EXPECT_EQ(Rows()->Field("Name"), platform::Value("Baker"));
}

TEST_F(DataControls, LabelsFollowTheRow) {
  platform::Label label(*screen, "lblName");
  screen->data.Bind(label, "Name");
  OpenList();
  EXPECT_EQ(label.Caption(), "Adams");
  Rows()->MoveLast();
  EXPECT_EQ(label.Caption(), "Cole");
  screen->data.RecordSource("SELECT * FROM People WHERE Number=99");
  screen->data.Refresh();
  EXPECT_EQ(label.Caption(), "");
}

}  // namespace
