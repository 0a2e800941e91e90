#include "streets/index/shape.h"

#include <gtest/gtest.h>

#include "streets/ground/simplify.h"

namespace streets {
namespace {

Line Unpacked(std::span<const std::byte> bytes) {
  Line line;
  UnpackShape(bytes, line);
  return line;
}

TEST(ShapeTest, ComesBackAsItWas) {
  for (const Line& line : {Line{{-110'900'000, 46'500'000}, {-110'900'001, 46'500'063}, {-110'900'065, 46'499'999}},
                           Line{{180'000'000, 90'000'000}, {-180'000'000, -90'000'000}}, Line{{1, 1}, {1, 1}}, Line{}}) {
    EXPECT_EQ(Unpacked(PackShape(line)), line);
  }
}

TEST(ShapeTest, NeighboursTakeAByteEach) {
  EXPECT_EQ(PackShape(Line{{0, 0}, {63, -64}, {0, -1}}).size(), 6u);
}

TEST(ShapeTest, ACutShapeEndsWhereItIsCut) {
  const Line line{{-110'900'000, 46'500'000}, {-110'905'000, 46'505'000}};
  const auto bytes = PackShape(line);
  for (std::size_t size = 0; size < bytes.size(); ++size) EXPECT_LT(Unpacked(std::span(bytes).first(size)).size(), line.size());
}

TEST(ShapeTest, AShapeThatLeavesTheEarthEndsThere) {
  auto bytes = PackShape(Line{{179'000'000, 0}});
  const auto step = PackShape(Line{{2'000'000, 0}});
  bytes.insert(bytes.end(), step.begin(), step.end());
  EXPECT_EQ(Unpacked(bytes), (Line{{179'000'000, 0}}));
  EXPECT_TRUE(Unpacked(std::vector<std::byte>(20, std::byte{0xff})).empty());
}

TEST(SimplifyTest, LeavesOutWhatLiesNearTheLine) {
  const Line line{{0, 0}, {100, 4}, {200, 0}, {300, 50}, {400, 0}};
  EXPECT_EQ(Simplified(line, 5), (Line{{0, 0}, {200, 0}, {300, 50}, {400, 0}}));
  EXPECT_EQ(Simplified(line, 60), (Line{{0, 0}, {400, 0}}));
  EXPECT_EQ(Simplified(line, 0), line);
}

TEST(SimplifyTest, ARingKeepsItsFarthestPoint) {
  EXPECT_EQ(Simplified({{0, 0}, {10, 10}, {500, 0}, {0, 0}}, 100), (Line{{0, 0}, {500, 0}, {0, 0}}));
}

}  // namespace
}  // namespace streets
