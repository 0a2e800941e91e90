#include "platform/values/format.h"

#include <gtest/gtest.h>

#include "platform/values/calendar.h"
#include "platform/values/error.h"

namespace platform {
namespace {

Currency Money(std::int64_t tenThousandths) { return {tenThousandths}; }
Date Day(int year, int month, int day) { return *DateSerial(year, month, day); }

TEST(Format, NullAndEmptyTextAreNothing) {
  for (const char* format : {"0", "#,##0.00", "Currency", "Short Date", "@@@", "(@@@)", "<"}) {
    EXPECT_EQ(Format(Null, format), "") << format;
    EXPECT_EQ(Format("", format), "") << format;
  }
  EXPECT_EQ(Format(Null, "@@;none"), "none");
  EXPECT_EQ(Format("", "@@;none"), "none");
  EXPECT_EQ(Format("x", "@@;none"), " x");
}

TEST(Format, WithoutAFormatIsPlainText) {
  EXPECT_EQ(Format(1.5, ""), "1.5");
  EXPECT_EQ(Format("abc", ""), "abc");
}

TEST(Format, ZeroAlwaysShowsADigitAndNumberSignOnlySignificantOnes) {
  EXPECT_EQ(Format(17, "#000"), "017");
  EXPECT_EQ(Format(0, "#"), "");
  EXPECT_EQ(Format(1, "#.#"), "1.");
  EXPECT_EQ(Format(0.099, "#.#"), ".1");
  EXPECT_EQ(Format(1.7, "#0"), "2");
  EXPECT_EQ(Format(7, "0.0#"), "7.0");
  EXPECT_EQ(Format(7.25, "0.0##"), "7.25");
  EXPECT_EQ(Format(0.5, ".00"), ".50");
  EXPECT_EQ(Format(12.3, ".00"), "12.30");
}

TEST(Format, WholePartMayBeLongerThanTheFormat) {
  EXPECT_EQ(Format(12345, "0"), "12345");
  EXPECT_EQ(Format("16125551234", "###-####"), "1612555-1234");
}

TEST(Format, RoundsHalfAwayFromZero) {
  EXPECT_EQ(Format(0.5, "0"), "1");
  EXPECT_EQ(Format(-0.5, "0"), "-1");
  EXPECT_EQ(Format(2.5, "0"), "3");
  EXPECT_EQ(Format(Money(10'050), "0.00"), "1.01");
  EXPECT_EQ(Format(9.995, "0.00"), "10.00");
  EXPECT_EQ(Format(0.004, "0.00"), "0.00");
}

TEST(Format, ThousandsMarks) {
  EXPECT_EQ(Format(100000, "#,###,###,###"), "100,000");
  EXPECT_EQ(Format(5459.4, "##,##0.00"), "5,459.40");
  EXPECT_EQ(Format(334.9, "###0.00"), "334.90");
  EXPECT_EQ(Format(1234567, "#,##0"), "1,234,567");
  EXPECT_EQ(Format(999.999, "#,##0.00"), "1,000.00");
  EXPECT_EQ(Format(1234567, "#,##0,"), "1,235");
}

TEST(Format, NegativeNumbersBearASignUnlessASectionIsTheirs) {
  EXPECT_EQ(Format(-1.57, "0.00"), "-1.57");
  EXPECT_EQ(Format(-5, "$0.00"), "-$5.00");
  EXPECT_EQ(Format(-0.001, "0.00"), "0.00");
  EXPECT_EQ(Format(-5, "0;(0)"), "(5)");
  EXPECT_EQ(Format(5, "0;(0);zero"), "5");
  EXPECT_EQ(Format(0, "0;(0);\"zero\""), "zero");
  EXPECT_EQ(Format(-5, "0;;\\z"), "-5");
  EXPECT_EQ(Format(0, "0;(0)"), "0");
}

TEST(Format, LiteralsStandAsTheyAre) {
  EXPECT_EQ(Format("12345678", "#####-###"), "12345-678");
  EXPECT_EQ(Format("00000000", "#####-###"), "-");
  EXPECT_EQ(Format("00001001", "#####-###"), "1-001");
  EXPECT_EQ(Format("612", "(###)"), "(612)");
  EXPECT_EQ(Format("012", "(###)"), "(12)");
  EXPECT_EQ(Format("5551234", "###-####"), "555-1234");
  EXPECT_EQ(Format("0551234", "###-####"), "55-1234");
  EXPECT_EQ(Format(5, "\\#0"), "#5");
  EXPECT_EQ(Format(5, "0\" of #\""), "5 of #");
  EXPECT_EQ(Format(1999, "####"), "1999");
}

TEST(Format, PercentMultipliesByAHundred) {
  EXPECT_EQ(Format(5, "0.00%"), "500.00%");
  EXPECT_EQ(Format(0.125, "0%"), "13%");
  EXPECT_EQ(Format(0.5, "Percent"), "50.00%");
}

TEST(Format, NamedNumberFormats) {
  EXPECT_EQ(Format(1.234, "Currency"), "$1.23");
  EXPECT_EQ(Format(-1.234, "Currency"), "($1.23)");
  EXPECT_EQ(Format(Money(12'345'678'900), "currency"), "$1,234,567.89");
  EXPECT_EQ(Format(0, "Currency"), "$0.00");
  EXPECT_EQ(Format(1.234, "Fixed"), "1.23");
  EXPECT_EQ(Format(0.5, "Fixed"), "0.50");
  EXPECT_EQ(Format(1234.5, "Standard"), "1,234.50");
  EXPECT_EQ(Format(1.5, "0.0000"), "1.5000");
  EXPECT_EQ(Format(1.5, "General Number"), "1.5");
  EXPECT_EQ(Format(true, "Yes/No"), "Yes");
  EXPECT_EQ(Format(false, "True/False"), "False");
}

TEST(Format, LargestAmountIsExact) {
  EXPECT_EQ(Format(Money(INT64_MAX), "0.0000"), "922337203685477.5807");
  EXPECT_EQ(Format(Money(INT64_MIN), "#,##0.0000"), "-922,337,203,685,477.5808");
}

TEST(Format, TextInANumberFormatIsANumberFirst) {
  EXPECT_EQ(Format("0012", "0"), "12");
  EXPECT_EQ(Format("$1,000.5", "0.00"), "1000.50");
  EXPECT_EQ(Format("(5)", "0"), "-5");
  EXPECT_EQ(Format("abc", "0.00"), "abc");
  EXPECT_EQ(Format("12x", "Currency"), "12x");
  EXPECT_EQ(Format("1e999", "0"), "1e999");
}

TEST(Format, VeryLargeAndVerySmallNumbers) {
  EXPECT_EQ(Format(1e20, "0"), "100000000000000000000");
  EXPECT_EQ(Format(1e-20, "0.00"), "0.00");
  EXPECT_EQ(Format(1e-300, "0"), "0");
  EXPECT_EQ(Format("1e-99999", "0.0"), "0.0");
}

TEST(Format, ShortDate) {
  EXPECT_EQ(Format(Day(1999, 1, 31), "Short Date"), "1/31/1999");
  EXPECT_EQ(Format("1999-1-31", "Short Date"), "1/31/1999");
  EXPECT_EQ(Format(Date{Day(1999, 1, 31).serial + 0.5}, "short date"), "1/31/1999");
  EXPECT_EQ(Format(Date{Day(1999, 1, 31).serial + 0.5}, "General Date"), "1/31/1999 12:00:00 PM");
  EXPECT_EQ(Format("never", "Short Date"), "never");
  EXPECT_EQ(Format(36191, "Short Date"), "1/31/1999");
}

TEST(Format, TextPlacesAreFilledFromTheRight) {
  EXPECT_EQ(Format("testing", "@@@@@@@@"), " testing");
  EXPECT_EQ(Format("testing", "@\\x@@@@@@@"), " xtesting");
  EXPECT_EQ(Format("6125551234", "(@@@) @@@-@@@@"), "(612) 555-1234");
  EXPECT_EQ(Format("5551234", "(@@@) @@@-@@@@"), "(   ) 555-1234");
  EXPECT_EQ(Format("ab", "&&&&"), "ab");
  EXPECT_EQ(Format(5, "@@@"), "  5");
}

TEST(Format, SurplusCharactersStandInFront) {
  EXPECT_EQ(Format("Wednesday", "@-@"), "Wednesda-y");
  EXPECT_EQ(Format("16125551234", "(@@@) @@@-@@@@"), "(1612) 555-1234");
  EXPECT_EQ(Format("Wednesday", "!@-@"), "W-ednesday");
}

TEST(Format, TextPlacesCanBeFilledFromTheLeft) { EXPECT_EQ(Format("ab", "!@@@@x"), "ab  x"); }

TEST(Format, TextPlacesCountCharacters) { EXPECT_EQ(Format("\u00E9\u00E8", "@-@-@"), " -\u00E9-\u00E8"); }

TEST(Format, LowerAndUpperCase) {
  EXPECT_EQ(Format("HELLO", "<"), "hello");
  EXPECT_EQ(Format("hello", ">"), "HELLO");
  EXPECT_EQ(Format("\u00E9a", ">@-@"), "\u00C9-A");
}

TEST(Format, ADateWithoutAYearIsOfTheYearGiven) {
  EXPECT_EQ(Format("7/4", "Short Date", 2031), "7/4/2031");
  EXPECT_EQ(Format("7/4", "General Date", 2031), "7/4/2031");
  EXPECT_EQ(Format("7/4", "Short Date"), "7/4");
}

TEST(Format, DatesByAFormatOfOnesOwn) {
  const Value day = *DateSerial(2026, 3, 5);  // a Thursday
  EXPECT_EQ(Format(day, "m/d/yyyy"), "3/5/2026");
  EXPECT_EQ(Format(day, "mm/dd/yy"), "03/05/26");
  EXPECT_EQ(Format(day, "mmmm yyyy"), "March 2026");
  EXPECT_EQ(Format(day, "ddd, d mmm"), "Thu, 5 Mar");
  EXPECT_EQ(Format(day, "dddd \\d \"in my year\" yyyy"), "Thursday d in my year 2026");
  EXPECT_EQ(Format(Value(Date{-1}), "dddd m/d/yyyy"), "Friday 12/29/1899");
  EXPECT_EQ(Format(Value("March"), "mmmm"), "March") << "a text is no date";
}

TEST(Format, NamedDateFormats) {
  const Value moment = Date{Day(1999, 1, 31).serial + 15.0 / 24 + 4.0 / 1440 + 5.0 / 86400};  // a Sunday, 3:04:05 PM
  EXPECT_EQ(Format(moment, "Long Date"), "Sunday, January 31, 1999");
  EXPECT_EQ(Format(moment, "medium date"), "31-Jan-99");
  EXPECT_EQ(Format(moment, "Long Time"), "3:04:05 PM");
  EXPECT_EQ(Format(moment, "Medium Time"), "03:04 PM");
  EXPECT_EQ(Format(moment, "Short Time"), "15:04");
  EXPECT_EQ(Format("1/31/1999", "Long Date"), "Sunday, January 31, 1999");
  EXPECT_EQ(Format("soon", "Long Date"), "soon");
  EXPECT_EQ(Format(Value(Null), "Long Date"), "");
}

TEST(Format, TimesByAFormatOfOnesOwn) {
  const auto at = [](int hour, int minute, int second) { return Value(Date{Day(2026, 3, 5).serial + (hour * 3600 + minute * 60 + second) / 86400.0}); };
  EXPECT_EQ(Format(at(9, 5, 7), "h:mm:ss"), "9:05:07") << "m behind hours is minutes";
  EXPECT_EQ(Format(at(9, 5, 7), "hh:nn"), "09:05");
  EXPECT_EQ(Format(at(21, 5, 7), "h:mm am/pm"), "9:05 pm");
  EXPECT_EQ(Format(at(0, 5, 7), "h:mm AM/PM"), "12:05 AM");
  EXPECT_EQ(Format(at(12, 0, 0), "h A/P"), "12 P");
  EXPECT_EQ(Format(at(21, 5, 7), "m/d h:m"), "3/5 21:5") << "in front of them it is the month";
  EXPECT_EQ(Format(at(21, 5, 7), "h \"AM/PM\""), "21 AM/PM") << "a literal is no mark";
}

TEST(Format, QuartersWeeksAndDaysOfTheYear) {
  const Value day = *DateSerial(2026, 3, 5);  // a Thursday; the year began with one
  EXPECT_EQ(Format(day, "q"), "1");
  EXPECT_EQ(Format(day, "w"), "5");
  EXPECT_EQ(Format(day, "ww"), "10");
  EXPECT_EQ(Format(day, "y"), "64");
  EXPECT_EQ(Format(*DateSerial(2026, 1, 3), "ww"), "1");
  EXPECT_EQ(Format(*DateSerial(2026, 1, 4), "ww"), "2");
  EXPECT_EQ(Format(*DateSerial(2025, 12, 31), "q y"), "4 365");
  EXPECT_EQ(Format(day, "ddddd"), "3/5/2026");
  EXPECT_EQ(Format(day, "dddddd"), "Thursday, March 5, 2026");
}

TEST(Format, NumberFormatsOfDatesAreNoDateFormats) { EXPECT_EQ(Format(Value(Date{2}), "0.00"), "2.00"); }

}  // namespace
}  // namespace platform
