#include "streets/geocoder/geometry.h"

#include <gtest/gtest.h>

namespace {

using streets::BesideLine;
using streets::Feet;
using streets::Line;
using streets::Position;
using streets::Side;

/// A millionth of a degree along a meridian is 0.3648 feet.
constexpr double kFoot = 1 / 0.364813;

TEST(Geometry, FeetOnTheMeanSphere) {
  EXPECT_NEAR(Feet({0, 0}, {0, 1'000'000}), 364'813, 5);
  EXPECT_NEAR(Feet({0, 60'000'000}, {1'000'000, 60'000'000}), 182'400, 20);
  EXPECT_NEAR(Feet({-73'985'700, 40'748'400}, {-118'243'700, 34'052'200}), 12'914'700, 4'000);
  EXPECT_EQ(Feet({5, 5}, {5, 5}), 0);
  EXPECT_NEAR(Feet({179'999'000, 0}, {-179'999'000, 0}), 730, 1);
  EXPECT_NEAR(Feet({0, 0}, {180'000'000, 0}), 65'667'000, 5'000);
}

TEST(Geometry, BesideALineThatRunsNorth) {
  const Line line{{0, 0}, {0, 10'000}};
  const Position right = *BesideLine(line, 0.5, Side::Right);
  EXPECT_EQ(right.latitude, 5'000);
  EXPECT_NEAR(right.longitude, 30 * kFoot, 1);
  EXPECT_NEAR(BesideLine(line, 0.5, Side::Left)->longitude, -30 * kFoot, 1);
  EXPECT_NEAR(BesideLine(line, 0, Side::Right)->latitude, 25 * kFoot, 1);
  EXPECT_NEAR(BesideLine(line, 1, Side::Right)->latitude, 10'000 - 25 * kFoot, 1);
  EXPECT_EQ(BesideLine(line, 7, Side::Right), BesideLine(line, 1, Side::Right));
}

TEST(Geometry, ThePartIsOfTheTrueLength) {
  // East for 10,000 at 60 degrees north is as long as north for 5,000.
  const Line line{{0, 60'000'000}, {10'000, 60'000'000}, {10'000, 60'005'000}};
  const Position middle = *streets::MiddleOf(line);
  EXPECT_NEAR(middle.longitude, 10'000, 3);
  EXPECT_NEAR(middle.latitude, 60'000'000, 3);
}

TEST(Geometry, LinesWithoutLengthAndWithoutPoints) {
  EXPECT_EQ(BesideLine({{5, 7}, {5, 7}}, 0.5, Side::Right), (Position{5, 7}));
  EXPECT_EQ(BesideLine({{5, 7}}, 0.5, Side::Left), (Position{5, 7}));
  EXPECT_FALSE(BesideLine({}, 0.5, Side::Left));
  EXPECT_FALSE(streets::MiddleOf({}));
}

TEST(Geometry, LinesThatReturnToTheirStart) {
  const Line loop{{0, 0}, {0, 1'000}, {1'000, 1'000}, {1'000, 0}, {0, 0}};
  const Position first = *BesideLine(loop, 0.125, Side::Left);
  EXPECT_LT(first.longitude, 0);
  EXPECT_GT(first.latitude, 0);
  // A figure of eight.
  const Line eight{{0, 0}, {1'000, 1'000}, {1'000, 0}, {0, 1'000}};
  EXPECT_TRUE(BesideLine(eight, 0.5, Side::Right));
}

TEST(Geometry, LinesAcrossTheHundredAndEightiethDegree) {
  const Line line{{179'999'000, 51'000'000}, {-179'997'000, 51'000'000}};
  const Position middle = *streets::MiddleOf(line);
  EXPECT_EQ(middle.longitude, -179'999'000);
  EXPECT_EQ(middle.latitude, 51'000'000);
  EXPECT_GT(BesideLine(line, 0, Side::Right)->longitude, 179'999'000);
}

TEST(Geometry, MapPointsAreRounded) {
  EXPECT_EQ(streets::MapPointOf({-110'123'456, 46'123'454}), (platform::MapPoint{4'612'345, -11'012'346}));
  EXPECT_EQ(streets::MapPointOf({5, -5}), (platform::MapPoint{-1, 1}));
}

}  // namespace
