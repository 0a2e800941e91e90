#include "engine/sql/date_literal.h"

#include <gtest/gtest.h>

#include "platform/values/calendar.h"

namespace engine::sql {
namespace {

double Serial(std::string_view text) {
  const std::optional<platform::Date> date = ReadDateLiteral(text);
  EXPECT_TRUE(date.has_value()) << text;
  return date ? date->serial : -1e9;
}

double Day(int year, int month, int day) { return platform::DateSerial(year, month, day)->serial; }

TEST(DateLiteral, MonthComesFirst) {
  EXPECT_EQ(Serial("1/31/1999"), Day(1999, 1, 31));
  EXPECT_EQ(Serial("1/2/1999"), Day(1999, 1, 2));
  EXPECT_EQ(Serial(" 01-02-1999 "), Day(1999, 1, 2));
}

TEST(DateLiteral, ImpossibleMonthIsTheDay) { EXPECT_EQ(Serial("13/1/1999"), Day(1999, 1, 13)); }

TEST(DateLiteral, FourDigitsFirstAreReadAsWritten) {
  EXPECT_EQ(Serial("1999-01-31"), Day(1999, 1, 31));
  EXPECT_FALSE(ReadDateLiteral("1999-31-01").has_value());
}

TEST(DateLiteral, TwoDigitYears) {
  EXPECT_EQ(Serial("1/31/99"), Day(1999, 1, 31));
  EXPECT_EQ(Serial("1/31/30"), Day(1930, 1, 31));
  EXPECT_EQ(Serial("1/31/29"), Day(2029, 1, 31));
  EXPECT_EQ(Serial("1/31/00"), Day(2000, 1, 31));
}

TEST(DateLiteral, Time) {
  EXPECT_NEAR(Serial("1/31/1999 1:20:34 PM"), Day(1999, 1, 31) + (13 * 3600 + 20 * 60 + 34) / 86400.0, 1e-9);
  EXPECT_NEAR(Serial("1/31/1999 10:00"), Day(1999, 1, 31) + 10 / 24.0, 1e-9);
  EXPECT_NEAR(Serial("12:30 AM"), 0.5 / 24, 1e-9);
  EXPECT_NEAR(Serial("00:00 pm"), 0.5, 1e-9);
  EXPECT_FALSE(ReadDateLiteral("24:00").has_value());
  EXPECT_FALSE(ReadDateLiteral("1/1/1999 13:00 PM").has_value());
}

TEST(DateLiteral, MonthNames) {
  EXPECT_EQ(Serial("31 Jan 1999"), Day(1999, 1, 31));
  EXPECT_EQ(Serial("Jan 31, 1999"), Day(1999, 1, 31));
  EXPECT_EQ(Serial("31-January-1999"), Day(1999, 1, 31));
}

TEST(DateLiteral, BeforeTheEpochTheTimeStillAddsToTheDay) {
  EXPECT_NEAR(Serial("12/29/1899 6:00"), -1.25, 1e-9);
  EXPECT_EQ(PrintDateLiteral({-1.25}), "12/29/1899 6:00:00");
}

TEST(DateLiteral, NoDates) {
  for (const char* text :
       {"", " ", "abc", "__/__/____", "1", "1/2", "1/2/3/4", "2/30/1999", "1999", "1.1.1999", "0/1/1999", "12345/1/1", "1:60"})
    EXPECT_FALSE(ReadDateLiteral(text).has_value()) << text;
}

TEST(DateLiteral, PrintsWhatItReads) {
  for (const char* text : {"1/31/1999", "12/1/2029 13:20:34", "1/1/100", "12/31/9999 23:59:59", "12/30/1899"})
    EXPECT_EQ(PrintDateLiteral({Serial(text)}), text);
}

}  // namespace
}  // namespace engine::sql
