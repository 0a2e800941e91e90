#include <gtest/gtest.h>

#include <optional>
#include <string_view>

#include "platform/values/calendar.h"
#include "platform/values/convert.h"
#include "platform/values/error.h"

namespace platform {
namespace {

constexpr int kThisYear = 2001;

std::optional<double> Serial(std::string_view text) {
  const auto date = ParseDate(text, kThisYear);
  return date ? std::optional(date->serial) : std::nullopt;
}

std::optional<double> SerialOf(int year, int month, int day) {
  const auto date = DateSerial(year, month, day);
  return date ? std::optional(date->serial) : std::nullopt;
}

TEST(DateSerial, CountsDaysFromTheEpoch) {
  EXPECT_EQ(SerialOf(1899, 12, 30), 0);
  EXPECT_EQ(SerialOf(1900, 1, 1), 2);
  EXPECT_EQ(SerialOf(1970, 1, 2), 25570);
  EXPECT_EQ(SerialOf(100, 1, 1), -657434);
  EXPECT_EQ(SerialOf(9999, 12, 31), 2958465);
}

TEST(DateSerial, RefusesImpossibleDays) {
  EXPECT_FALSE(SerialOf(1999, 2, 29));
  EXPECT_TRUE(SerialOf(2000, 2, 29));
  EXPECT_FALSE(SerialOf(1900, 2, 29));
  EXPECT_FALSE(SerialOf(1999, 13, 1));
  EXPECT_FALSE(SerialOf(1999, 0, 1));
  EXPECT_FALSE(SerialOf(1999, 4, 31));
  EXPECT_FALSE(SerialOf(1999, 1, 0));
  EXPECT_FALSE(SerialOf(99, 1, 1));
  EXPECT_FALSE(SerialOf(10000, 1, 1));
}

TEST(CalendarOf, IsTheReverseOfDateSerial) {
  for (double serial = -657434; serial <= 2958465; serial += 97) {
    const CalendarDay day = CalendarOf({serial});
    ASSERT_EQ(SerialOf(day.year, day.month, day.day), serial);
  }
}

TEST(CalendarOf, TimeRoundsToSecondsAndCarriesToTheNextDay) {
  EXPECT_EQ(CalendarOf({25570.9999999}).day, 3);
  EXPECT_EQ(SecondsOf({25570.9999999}), 0);
  EXPECT_EQ(SecondsOf({25570.5}), 43200);
  EXPECT_EQ(SecondsOf({-1.25}), 21600);
  EXPECT_EQ(CalendarOf({-1.25}).day, 29);
}

TEST(IsDate, TakesMonthDayYear) {
  EXPECT_EQ(Serial("1/2/1970"), 25570);
  EXPECT_EQ(Serial("1 2 3"), 37623);
  EXPECT_EQ(Serial("1 2 29"), 47120);
  EXPECT_EQ(Serial("1 2 30"), 10960);
  EXPECT_EQ(Serial("1,2,1970"), 25570);
  EXPECT_EQ(Serial(" 01/02/1970 "), 25570);
}

TEST(IsDate, TriesOtherOrdersWhereTheMonthIsImpossible) {
  EXPECT_EQ(Serial("13-1-1970"), 25581);
  EXPECT_EQ(Serial("1970-1-13"), 25581);
  EXPECT_EQ(Serial("14 2 3"), 41673);
  EXPECT_EQ(Serial("31/1/99"), SerialOf(1999, 1, 31));
}

TEST(IsDate, NeverReadsYearDayMonth) { EXPECT_FALSE(Serial("1999-31-01")); }

TEST(IsDate, TakesMonthNames) {
  EXPECT_EQ(Serial("2 January, 1970"), 25570);
  EXPECT_EQ(Serial("January 2, 1970"), 25570);
  EXPECT_EQ(Serial("jan 2 70"), 25570);
  EXPECT_EQ(Serial("2-JAN-1970"), 25570);
  EXPECT_EQ(Serial("1970 Jan 2"), 25570);
  EXPECT_FALSE(Serial("2 Janu 1970"));
  EXPECT_FALSE(Serial("32 Jan 1970"));
  EXPECT_FALSE(Serial("Jan Feb 1970"));
  EXPECT_FALSE(Serial("Friday 2 Jan 1970"));
}

TEST(IsDate, TwoPartsAreOfThisYear) {
  EXPECT_EQ(Serial("1/2"), SerialOf(2001, 1, 2));
  EXPECT_EQ(Serial("31/1"), SerialOf(2001, 1, 31));
  EXPECT_EQ(Serial("Jan 5"), SerialOf(2001, 1, 5));
  EXPECT_EQ(Serial("5 Jan"), SerialOf(2001, 1, 5));
  EXPECT_EQ(Serial("1/1999"), SerialOf(1999, 1, 1));
  EXPECT_EQ(Serial("Feb 1999"), SerialOf(1999, 2, 1));
  EXPECT_FALSE(Serial("2/29"));
  EXPECT_FALSE(Serial("13/32"));
}

TEST(IsDate, WithoutAYearToBelongToTwoPartsAreNoDate) {
  for (const char* text : {"1/2", "31/1", "Jan 5", "5 Jan", "1/2 6:00"}) {
    EXPECT_FALSE(ParseDate(text, 0)) << text;
    EXPECT_FALSE(IsDate(text)) << text;
    EXPECT_TRUE(IsDate(text, 2001)) << text;
    EXPECT_THROW(CDate(text), Error) << text;
  }
  EXPECT_TRUE(ParseDate("1/1999", 0));
  EXPECT_TRUE(ParseDate("6:00", 0));
  EXPECT_FALSE(IsDate("2/29", 2031));
  EXPECT_TRUE(IsDate("2/29", 2028));
}

TEST(IsDate, TakesTimes) {
  EXPECT_EQ(Serial("00:00 pm"), 0.5);
  EXPECT_EQ(Serial("6:00"), 0.25);
  EXPECT_EQ(Serial("12:00 AM"), 0);
  EXPECT_EQ(Serial("6 PM"), 0.75);
  EXPECT_EQ(Serial("18:00:00"), 0.75);
  EXPECT_FALSE(Serial("24:00"));
  EXPECT_FALSE(Serial("12:60"));
  EXPECT_FALSE(Serial("12:00:60"));
  EXPECT_FALSE(Serial("13:00 AM"));
  EXPECT_FALSE(Serial("13:00 PM"));
  EXPECT_FALSE(Serial("12:"));
  EXPECT_FALSE(Serial("1:2:3:4"));
}

TEST(IsDate, TakesADateWithATime) {
  EXPECT_NEAR(*Serial("6/30/2011 01:20:34 PM"), 40724.5559491, 1e-7);
  EXPECT_EQ(Serial("6:00 1/2/1970"), 25570.25);
  EXPECT_EQ(Serial("Jan 2 1970 6:00 AM"), 25570.25);
  EXPECT_EQ(Serial("12/29/1899 6:00"), -1.25);
  EXPECT_FALSE(Serial("6:00 1/2/1970 6:00"));
  EXPECT_FALSE(Serial("1/2/1970 25:00"));
}

TEST(IsDate, RefusesTheRest) {
  for (const char* text : {"1", "02.01.1970", "", "  ", "__/__/____", "2 32 3", "abc", "1/2/", "/1/2", "1//2", "1/2/3/4", "1/2/19700",
                           "12/1970/5", "pm", "PM 5", "5p", "$5", "1/2/000"})
    EXPECT_FALSE(Serial(text)) << text;
}

TEST(IsDate, OfOtherKinds) {
  EXPECT_TRUE(IsDate(Date{1}));
  EXPECT_FALSE(IsDate(Null));
  EXPECT_FALSE(IsDate(36000));
  EXPECT_TRUE(IsDate("1/2/1970"));
  EXPECT_FALSE(IsDate("36000"));
}

TEST(CDate, ConvertsTextsAndSerials) {
  EXPECT_EQ(CDate("1/2/1970").serial, 25570);
  EXPECT_EQ(CDate("1/2", 1970).serial, 25570);
  EXPECT_EQ(CDate(25570.5).serial, 25570.5);
  EXPECT_EQ(CDate(-657434).serial, -657434);
  for (const auto& [value, number] : {std::pair<Value, int>{"no", 13}, {"", 13}, {Null, 94}, {2958466, 6}, {-657435, 6}}) {
    try {
      CDate(value);
      FAIL();
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), number);
    }
  }
}

TEST(CStr, OfDates) {
  EXPECT_EQ(CStr(*DateSerial(1999, 1, 31)), "1/31/1999");
  EXPECT_EQ(CStr(CDate("1/31/1999 1:20:34 PM")), "1/31/1999 1:20:34 PM");
  EXPECT_EQ(CStr(CDate("1/31/1999 0:05")), "1/31/1999 12:05:00 AM");
  EXPECT_EQ(CStr(CDate("12:00 PM")), "12:00:00 PM");
  EXPECT_EQ(CStr(Date{0}), "12:00:00 AM");
}

TEST(CStr, OfDatesReadsBackTheSame) {
  for (double serial : {25570.0, 25570.25, 40724.0 + 48034 / 86400.0, -1.5, 2958465.75}) EXPECT_EQ(Serial(CStr(Date{serial})), serial);
}

}  // namespace
}  // namespace platform
