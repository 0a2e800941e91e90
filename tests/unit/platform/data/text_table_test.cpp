#include "platform/data/text_table.h"

#include "platform/values/error.h"
#include "support/every_control.h"

// A list of texts without a file, alone and behind a data control.
namespace {

using platform::Value;
using testing::ElementsAre;

template <class Act>
int ErrorOf(Act&& act) {
  try {
    act();
  } catch (const platform::Error& error) {
    return error.Number();
  }
  return 0;
}

platform::TextTable Sample() { return {{"Word", "Number"}, {{"One", "1"}, {"Two", "2"}, {"Three", "3"}}}; }

TEST(TextTable, CellsChangePlaces) {
  platform::TextTable table = Sample();
  table.Swap(0, 2, 0);
  EXPECT_EQ(table.At(0, 0), "Three");
  EXPECT_EQ(table.At(0, 1), "1");
  EXPECT_EQ(table.At(2, 0), "One");
  EXPECT_EQ(ErrorOf([&] { table.At(3, 0); }), 9);
  EXPECT_EQ(ErrorOf([&] { table.At(0, 2); }), 9);
  EXPECT_EQ(ErrorOf([&] { table.Swap(-1, 0, 0); }), 9);
}

TEST(TextTable, ACursorMovesAsAnyOther) {
  const auto rows = Sample().Open();
  EXPECT_EQ(rows->RecordCount(), 3);
  EXPECT_EQ(rows->Field("word"), Value("One"));
  rows->MovePrevious();
  EXPECT_TRUE(rows->Bof());
  EXPECT_EQ(ErrorOf([&] { rows->Field(0); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rows->MovePrevious(); }), 3021);
  rows->MoveLast();
  EXPECT_FALSE(rows->Bof());
  EXPECT_EQ(rows->Field("Number"), Value("3"));
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof());
  rows->MoveFirst();
  rows->Move(1);
  EXPECT_EQ(rows->Field(0), Value("Two"));
  EXPECT_EQ(ErrorOf([&] { rows->Field("Other"); }), 3265);
  EXPECT_EQ(ErrorOf([&] { rows->Edit(); }), 438);
  const auto none = platform::TextTable({"Word"}, {}).Open();
  EXPECT_TRUE(none->Bof() && none->Eof());
  EXPECT_EQ(ErrorOf([&] { none->MoveFirst(); }), 3021);
}

TEST(TextTable, ListsLookAtAnyPartOfIt) {
  const platform::TextTable table = Sample();
  const auto rows = table.Open();
  platform::RowWindow& window = rows->Window();
  const auto words = [](const std::vector<platform::ListRow>& found) {
    std::vector<std::string> texts;
    for (const auto& row : found) texts.push_back(row.cells.at(0).As<std::string>());
    return texts;
  };
  EXPECT_THAT(words(window.RowsAt(1, 9)), ElementsAre("Two", "Three"));
  EXPECT_THAT(words(window.LastRows(2)), ElementsAre("Two", "Three"));
  const auto second = window.RowsAt(1, 1).at(0).bookmark;
  EXPECT_THAT(words(window.RowsBefore(second, 5)), ElementsAre("One"));
  EXPECT_THAT(words(window.RowsAfter(second, 5)), ElementsAre("Three"));
  const auto around = window.Around(second, 1);
  ASSERT_TRUE(around.has_value());
  EXPECT_THAT(words(around->rows), ElementsAre("One", "Two", "Three"));
  EXPECT_EQ(around->before, 1u);
  EXPECT_EQ(around->ordinal, 1);
  EXPECT_EQ(window.OrdinalOf(second), 1);
  EXPECT_FALSE(window.RowOf({7, "1"}).has_value());
  const auto other = table.Open();
  other->SetBookmark(second);
  EXPECT_EQ(other->Field(0), Value("Two"));
}

class ShownTables : public ScreenTest {};

TEST_F(ShownTables, ADataControlShowsThemAsAnOpenedList) {
  platform::TextTable table({"Name", "Number"}, {{"Adams", "1"}, {"Baker", "2"}});
  screen->data.Show(table);
  EXPECT_THAT(screen->Seen(), ElementsAre("Reposition"));
  EXPECT_EQ(screen->data.Recordset()->Field("Name"), Value("Adams"));
  screen->grid.Row(1);
  EXPECT_EQ(screen->data.Recordset()->Field("Name"), Value("Baker"));
  table.Swap(0, 1, 0);
  screen->data.Show(table);
  EXPECT_EQ(screen->data.Recordset()->Field("Name"), Value("Baker")) << "it stands on the first row again";
  EXPECT_EQ(screen->data.Recordset()->Field("Number"), Value("1"));
  EXPECT_EQ(screen->data.RefreshCount(), 2);
  EXPECT_TRUE(screen->data.OnRecord());
}

TEST_F(ShownTables, TheyLeaveForAStatement) {
  screen->data.Show(platform::TextTable({"Name"}, {{"Nobody"}}));
  OpenList();
  EXPECT_EQ(screen->data.Recordset()->Field("Name"), Value("Adams"));
}

}  // namespace
