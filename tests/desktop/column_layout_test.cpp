#include "desktop/list/column_layout.h"

#include <gtest/gtest.h>

namespace {

using desktop::ColumnLayout;

ColumnLayout FiveColumns() {
  ColumnLayout layout;
  layout.Reset({{"A", 100, true}, {"B", 50, true}, {"C", 80, true}, {"D", 60, false}, {"E", 70, true}}, 2);
  return layout;
}

TEST(ColumnLayout, HiddenColumnsHaveNoPlace) {
  const ColumnLayout layout = FiveColumns();
  EXPECT_EQ(layout.PlaceCount(), 4);
  EXPECT_EQ(layout.PlaceOf(3), std::nullopt);
  EXPECT_EQ(layout.PlaceOf(4), 3);
}

TEST(ColumnLayout, FixedColumnsDoNotScroll) {
  const ColumnLayout layout = FiveColumns();
  EXPECT_EQ(layout.FixedWidth(), 150);
  EXPECT_EQ(layout.ScrolledWidth(), 150);
  EXPECT_EQ(layout.ShownLeft(1, 40), 100);
  EXPECT_EQ(layout.ShownLeft(2, 40), 110);
  EXPECT_EQ(layout.PlaceAt(149, 40), 1);
  EXPECT_EQ(layout.PlaceAt(150, 40), 2);
  EXPECT_EQ(layout.PlaceAt(150, 90), 3);
  EXPECT_EQ(layout.PlaceAt(400, 0), std::nullopt);
}

TEST(ColumnLayout, ColumnUnderAScrolledEdge) {
  const ColumnLayout layout = FiveColumns();
  EXPECT_EQ(layout.ScrolledPlaceAt(0), 2);
  EXPECT_EQ(layout.ScrolledPlaceAt(79), 2);
  EXPECT_EQ(layout.ScrolledPlaceAt(80), 3);
  EXPECT_EQ(layout.ScrolledPlaceAt(9999), 3);
}

TEST(ColumnLayout, MovesStayInTheirGroup) {
  ColumnLayout layout = FiveColumns();
  EXPECT_TRUE(layout.Move(4, 0));
  EXPECT_EQ(layout.PlaceOf(4), 2);
  EXPECT_EQ(layout.PlaceOf(2), 3);
  EXPECT_TRUE(layout.Move(0, 3));
  EXPECT_EQ(layout.PlaceOf(0), 1);
  EXPECT_FALSE(layout.Move(0, 1));
  EXPECT_FALSE(layout.Move(3, 0)) << "a hidden column can't be moved";
}

TEST(ColumnLayout, KeptOrderNamesFields) {
  ColumnLayout layout = FiveColumns();
  layout.OrderBy({"E", "B", "Gone", "C"});
  EXPECT_EQ(layout.FieldsInOrder(), (std::vector<std::string>{"B", "A", "E", "C"}));
}

TEST(ColumnLayout, WidthsHaveALeastValue) {
  ColumnLayout layout = FiveColumns();
  layout.Width(0, -5);
  EXPECT_EQ(layout.Width(0), ColumnLayout::kLeastWidth);
}

TEST(ColumnLayout, ColumnsThatTheUserHidesKeepTheirPlacesAmongTheOthers) {
  ColumnLayout layout = FiveColumns();
  layout.Hide({"B", "C"});
  EXPECT_EQ(layout.PlaceCount(), 2);
  EXPECT_EQ(layout.FixedCount(), 1) << "what scrolls does not become fixed";
  EXPECT_EQ(layout.HiddenFields(), (std::vector<std::string>{"B", "C"}));
  EXPECT_EQ(layout.FieldsInOrder(), (std::vector<std::string>{"A", "B", "C", "E"}));
  layout.Hide({"C"});
  EXPECT_TRUE(layout.Move(1, 0));
  EXPECT_EQ(layout.FieldsInOrder(), (std::vector<std::string>{"B", "A", "C", "E"}));
  layout.Hide({});
  EXPECT_EQ(layout.FixedCount(), 2);
  EXPECT_EQ(layout.ColumnAt(0), 1);
}

TEST(ColumnLayout, TheLastColumnStays) {
  ColumnLayout layout = FiveColumns();
  layout.Hide({"A", "B", "C", "E"});
  EXPECT_EQ(layout.PlaceCount(), 1);
}

}  // namespace
