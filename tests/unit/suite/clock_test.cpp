#include "suite/clock.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <ctime>

namespace {

TEST(Clock, ShowsLocalTimeAsDaysSince1899) {
  ::setenv("TZ", "UTC", 1);
  ::tzset();
  const suite::Clock clock;
  const auto before = std::time(nullptr);
  const double now = clock.Now().serial;
  const auto after = std::time(nullptr);
  // 1 January 1970 is day 25569.
  const double earliest = 25569.0 + static_cast<double>(before) / 86400.0;
  const double latest = 25569.0 + static_cast<double>(after) / 86400.0;
  EXPECT_GE(now, earliest - 1e-6);
  EXPECT_LE(now, latest + 1e-6);
  EXPECT_EQ(clock.Today().serial, std::floor(clock.Today().serial));
  EXPECT_NEAR(clock.Today().serial, now, 1.0);
}

TEST(Clock, ASetDayIsTodayAndTimeGoesOn) {
  suite::Clock clock;
  clock.SetToday(platform::Date{36191.75});
  EXPECT_EQ(clock.Today().serial, 36191);
  EXPECT_GE(clock.Now().serial, 36191);
  EXPECT_LT(clock.Now().serial, 36192);
  clock.SetToday({});
  EXPECT_GT(clock.Today().serial, 45000);
}

TEST(Clock, ADayBeforeTheEpochCountsItsTimeAway) {
  suite::Clock clock;
  clock.SetToday(platform::Date{-10});
  EXPECT_EQ(clock.Today().serial, -10);
  EXPECT_LE(clock.Now().serial, -10);
  EXPECT_GT(clock.Now().serial, -11);
}

}  // namespace
