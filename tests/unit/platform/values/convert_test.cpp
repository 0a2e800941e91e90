#include "platform/values/convert.h"
#include "platform/values/calendar.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "platform/values/currency.h"
#include "platform/values/error.h"

namespace platform {
namespace {

Currency Money(std::int64_t tenThousandths) { return {tenThousandths}; }

/// Number of the error that the call raises, 0 for none.
int ErrorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    return error.Number();
  }
  return 0;
}

TEST(Val, ReadsTheLongestNumericStart) {
  EXPECT_EQ(Val(""), 0);
  EXPECT_EQ(Val("-1"), -1);
  EXPECT_EQ(Val(".1"), 0.1);
  EXPECT_EQ(Val("1.1.1"), 1.1);
  EXPECT_EQ(Val("1..1"), 1);
  EXPECT_EQ(Val("24 and 57"), 24);
  EXPECT_EQ(Val("$5"), 0);
  EXPECT_EQ(Val("1,000"), 1);
  EXPECT_EQ(Val("abc"), 0);
  EXPECT_EQ(Val("-"), 0);
  EXPECT_EQ(Val("."), 0);
  EXPECT_EQ(Val("+7x"), 7);
}

TEST(Val, SkipsBlanksAnywhere) {
  EXPECT_EQ(Val("1. 1"), 1.1);
  EXPECT_EQ(Val("    1615 198th Street N.E."), 1615198);
  EXPECT_EQ(Val("1\t2\n3"), 123);
}

TEST(Val, ReadsExponents) {
  EXPECT_EQ(Val("1e-3"), 0.001);
  EXPECT_EQ(Val("1e+1+"), 10);
  EXPECT_EQ(Val("1eA"), 1);
  EXPECT_EQ(Val("1d2"), 100);
  EXPECT_EQ(ErrorOf([] { Val("1e999"); }), 6);
}

TEST(Val, ReadsHexadecimalAndOctal) {
  EXPECT_EQ(Val("&H F"), 15);
  EXPECT_EQ(Val("&O177"), 127);
  EXPECT_EQ(Val("&HFFFF"), -1);
  EXPECT_EQ(Val("&H7FFF"), 32767);
  EXPECT_EQ(Val("&H10000"), 65536);
  EXPECT_EQ(Val("&HFFFFFFFF"), -1);
  EXPECT_EQ(Val("&HFFFF&"), 65535);
  EXPECT_EQ(Val("&H100000000"), 4294967296.0);
  EXPECT_EQ(Val("&"), 0);
  EXPECT_EQ(Val("&H"), 0);
  EXPECT_EQ(Val("&HG"), 0);
  EXPECT_EQ(Val("&O8"), 0);
}

TEST(Val, OfNullIsRefused) {
  EXPECT_EQ(ErrorOf([] { Val(Null); }), 94);
  EXPECT_EQ(Val(12.5), 12.5);
  EXPECT_EQ(Val(Value()), 0);
}

TEST(IsNumeric, TakesWholeNumbersOnly) {
  EXPECT_TRUE(IsNumeric("459.95"));
  EXPECT_FALSE(IsNumeric("45 Help"));
  EXPECT_FALSE(IsNumeric(""));
  EXPECT_FALSE(IsNumeric(" "));
  EXPECT_FALSE(IsNumeric("12x"));
  EXPECT_FALSE(IsNumeric("4111 1111"));
  EXPECT_TRUE(IsNumeric("  12  "));
  EXPECT_TRUE(IsNumeric("5."));
  EXPECT_TRUE(IsNumeric(".5"));
  EXPECT_FALSE(IsNumeric("."));
  EXPECT_FALSE(IsNumeric("1.2.3"));
}

TEST(IsNumeric, TakesSignsParenthesesAndCurrency) {
  EXPECT_TRUE(IsNumeric("(5)"));
  EXPECT_TRUE(IsNumeric("$1,000.50"));
  EXPECT_TRUE(IsNumeric("5-"));
  EXPECT_TRUE(IsNumeric("-$5"));
  EXPECT_TRUE(IsNumeric("($5)"));
  EXPECT_FALSE(IsNumeric("-5-"));
  EXPECT_FALSE(IsNumeric("--5"));
  EXPECT_FALSE(IsNumeric("(5"));
  EXPECT_FALSE(IsNumeric("5)"));
  EXPECT_FALSE(IsNumeric("-(5)"));
  EXPECT_FALSE(IsNumeric("$"));
  EXPECT_FALSE(IsNumeric(",5"));
  EXPECT_FALSE(IsNumeric("1.0,0"));
}

TEST(IsNumeric, TakesExponentsAndPrefixes) {
  EXPECT_TRUE(IsNumeric("1e5"));
  EXPECT_TRUE(IsNumeric("1E-5"));
  EXPECT_FALSE(IsNumeric("1e"));
  EXPECT_FALSE(IsNumeric("1e400"));
  EXPECT_TRUE(IsNumeric("&H123"));
  EXPECT_TRUE(IsNumeric("&o17"));
  EXPECT_FALSE(IsNumeric("&H"));
  EXPECT_FALSE(IsNumeric("&HXY"));
  EXPECT_FALSE(IsNumeric("-&H1"));
  EXPECT_FALSE(IsNumeric("0x10"));
}

TEST(IsNumeric, OfOtherKinds) {
  EXPECT_FALSE(IsNumeric(Null));
  EXPECT_TRUE(IsNumeric(true));
  EXPECT_TRUE(IsNumeric(Value()));
  EXPECT_TRUE(IsNumeric(Money(1)));
  EXPECT_FALSE(IsNumeric(Date{1}));
}

TEST(CInt, RoundsHalfToEven) {
  EXPECT_EQ(CInt("0.5"), 0);
  EXPECT_EQ(CInt("0.6"), 1);
  EXPECT_EQ(CInt("1.5"), 2);
  EXPECT_EQ(CInt("2.5"), 2);
  EXPECT_EQ(CInt("-1.5"), -2);
  EXPECT_EQ(CInt("2.50000000000000000001"), 3);
  EXPECT_EQ(CInt("0.05e1"), 0);
  EXPECT_EQ(CInt("25e-1"), 2);
  EXPECT_EQ(CInt(2.5), 2);
  EXPECT_EQ(CInt(-3.5), -4);
  EXPECT_EQ(CInt(Money(25'000)), 2);
  EXPECT_EQ(CInt(Money(-15'000)), -2);
  EXPECT_EQ(CInt(Money(-25'001)), -3);
}

TEST(CInt, RefusesWhatDoesNotFit) {
  EXPECT_EQ(ErrorOf([] { CInt("32768"); }), 6);
  EXPECT_EQ(ErrorOf([] { CInt("-32769"); }), 6);
  EXPECT_EQ(CInt("-32768"), -32768);
  EXPECT_EQ(ErrorOf([] { CInt(32767.5); }), 6);
  EXPECT_EQ(CInt(32767.4), 32767);
  EXPECT_EQ(ErrorOf([] { CInt("1e30"); }), 6);
  EXPECT_EQ(ErrorOf([] { CInt(NAN); }), 6);
  EXPECT_EQ(ErrorOf([] { CInt(Null); }), 94);
  EXPECT_EQ(ErrorOf([] { CInt(""); }), 13);
}

TEST(CLng, Converts) {
  EXPECT_EQ(CLng(25427.45), 25427);
  EXPECT_EQ(CLng(25427.55), 25428);
  EXPECT_EQ(ErrorOf([] { CLng(""); }), 13);
  EXPECT_EQ(ErrorOf([] { CLng("abc"); }), 13);
  EXPECT_EQ(ErrorOf([] { CLng("1/2/1999"); }), 13);
  EXPECT_EQ(CLng("-2147483648"), INT32_MIN);
  EXPECT_EQ(ErrorOf([] { CLng("2147483648"); }), 6);
  EXPECT_EQ(ErrorOf([] { CLng(2147483647.5); }), 6);
  EXPECT_EQ(CLng("$1,234"), 1234);
  EXPECT_EQ(CLng("(12)"), -12);
  EXPECT_EQ(CLng("12-"), -12);
  EXPECT_EQ(CLng(true), -1);
  EXPECT_EQ(CLng(Value()), 0);
  EXPECT_EQ(CLng(Date{36191.6}), 36192);
  EXPECT_EQ(CLng("1e-400"), 0);
  EXPECT_EQ(CLng("0e999999"), 0);
  EXPECT_EQ(ErrorOf([] { CLng("18446744073709551615.5"); }), 6) << "rounded up beyond the widest number";
}

TEST(CLng, BitsThatFillTheTargetTurnNegative) {
  EXPECT_EQ(CInt("&HFFFF"), -1);
  EXPECT_EQ(CLng("&HFFFF"), 65535);
  EXPECT_EQ(CLng("&HFFFFFFFF"), -1);
  EXPECT_EQ(ErrorOf([] { CInt("&H10000"); }), 6);
}

TEST(CDbl, Converts) {
  EXPECT_EQ(CDbl("1.25"), 1.25);
  EXPECT_EQ(CDbl(" $1,000.5 "), 1000.5);
  EXPECT_EQ(CDbl("-1e3"), -1000);
  EXPECT_EQ(CDbl(Money(12'345)), 1.2345);
  EXPECT_EQ(CDbl(true), -1);
  EXPECT_EQ(CDbl(Date{2.5}), 2.5);
  EXPECT_EQ(ErrorOf([] { CDbl("x"); }), 13);
  EXPECT_EQ(ErrorOf([] { CDbl(Null); }), 94);
  EXPECT_EQ(ErrorOf([] { CDbl("1e400"); }), 6);
  EXPECT_EQ(CDbl("1e-400"), 0);
}

TEST(CCur, RoundsHalfToEvenAtTheFourthDecimal) {
  EXPECT_EQ(CCur(0.00005), Money(0));
  EXPECT_EQ(CCur(0.00009), Money(1));
  EXPECT_EQ(CCur(1.00009), Money(10'001));
  EXPECT_EQ(CCur(-1.00005), Money(-10'000));
  EXPECT_EQ(CCur(543.214588 * 2), Money(10'864'292));
  EXPECT_EQ(CCur(1.00005), Money(10'000));
  EXPECT_EQ(CCur(1.00015), Money(10'002));
  EXPECT_EQ(CCur(12345678901.25), Money(123'456'789'012'500));
  EXPECT_EQ(CCur(-0.0), Money(0));
  EXPECT_EQ(CCur("-922337203685477.58075"), Money(INT64_MIN));
  EXPECT_EQ(ErrorOf([] { CCur("-922337203685477.58086"); }), 6);
  EXPECT_EQ(ErrorOf([] { CCur("1844674407370955.16155"); }), 6);
  EXPECT_EQ(CCur(1e-300), Money(0));
  EXPECT_EQ(CCur("0.00015"), Money(2));
  EXPECT_EQ(CCur("0.00025"), Money(2));
  EXPECT_EQ(CCur(33.33 + 33.33 * 12.5 / 100), Money(374'962));
  EXPECT_EQ(Money(333'300).tenThousandths + CCur(33.33 * 12.5 / 100).tenThousandths, 374'962);
}

TEST(CCur, IsExactOverItsWholeRange) {
  EXPECT_EQ(CCur("922337203685477.5807"), Money(INT64_MAX));
  EXPECT_EQ(CCur("-922337203685477.5808"), Money(INT64_MIN));
  EXPECT_EQ(ErrorOf([] { CCur("922337203685477.5808"); }), 6);
  EXPECT_EQ(ErrorOf([] { CCur("-922337203685477.5809"); }), 6);
  EXPECT_EQ(ErrorOf([] { CCur(1e15); }), 6);
  EXPECT_EQ(ErrorOf([] { CCur(""); }), 13);
  EXPECT_EQ(ErrorOf([] { CCur(Null); }), 94);
  EXPECT_EQ(CCur("$ (1,234.5)"), Money(-12'345'000));
}

TEST(CBool, Converts) {
  EXPECT_TRUE(CBool("true"));
  EXPECT_FALSE(CBool("False"));
  EXPECT_TRUE(CBool("2"));
  EXPECT_FALSE(CBool("0.0"));
  EXPECT_TRUE(CBool(-1));
  EXPECT_TRUE(CBool(Money(1)));
  EXPECT_FALSE(CBool(Value()));
  EXPECT_EQ(ErrorOf([] { CBool("x"); }), 13);
  EXPECT_EQ(ErrorOf([] { CBool(Null); }), 94);
}

TEST(CStr, OfNumbers) {
  EXPECT_EQ(CStr(459), "459");
  EXPECT_EQ(CStr(-1), "-1");
  EXPECT_EQ(CStr(std::uint8_t{255}), "255");
  EXPECT_EQ(CStr(0.1), "0.1");
  EXPECT_EQ(CStr(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(CStr(2.0 / 3), "0.666666666666667");
  EXPECT_EQ(CStr(0.1 + 0.2), "0.3");
  EXPECT_EQ(CStr(100.0), "100");
  EXPECT_EQ(CStr(123456789012345.0), "123456789012345");
  EXPECT_EQ(CStr(1e15), "1E+15");
  EXPECT_EQ(CStr(1.5e20), "1.5E+20");
  EXPECT_EQ(CStr(0.0001), "0.0001");
  EXPECT_EQ(CStr(0.00001), "1E-05");
  EXPECT_EQ(CStr(-1.25e-7), "-1.25E-07");
  EXPECT_EQ(CStr(1e100), "1E+100");
  EXPECT_EQ(CStr(-0.0), "0");
  EXPECT_EQ(CStr(-12.5), "-12.5");
}

TEST(CStr, OfAmounts) {
  EXPECT_EQ(CStr(Money(0)), "0");
  EXPECT_EQ(CStr(Money(12'345)), "1.2345");
  EXPECT_EQ(CStr(Money(10'000)), "1");
  EXPECT_EQ(CStr(Money(-5)), "-0.0005");
  EXPECT_EQ(CStr(Money(1'500)), "0.15");
  EXPECT_EQ(CStr(Money(INT64_MIN)), "-922337203685477.5808");
}

TEST(CStr, OfOtherKinds) {
  EXPECT_EQ(CStr(true), "True");
  EXPECT_EQ(CStr(false), "False");
  EXPECT_EQ(CStr("as is "), "as is ");
  EXPECT_EQ(CStr(Value()), "");
  EXPECT_EQ(ErrorOf([] { CStr(Null); }), 94);
}

TEST(Str, LeavesAPlaceForTheSign) {
  EXPECT_EQ(Str(459), " 459");
  EXPECT_EQ(Str(-459.65), "-459.65");
  EXPECT_EQ(Str(0), " 0");
  EXPECT_EQ(Str(Money(12'500)), " 1.25");
  EXPECT_EQ(Str("12"), " 12");
  EXPECT_EQ(ErrorOf([] { Str(Null); }), 94);
}

TEST(Concat, NullCountsAsNothingUnlessBothAre) {
  EXPECT_EQ(Concat("a", "b"), Value("ab"));
  EXPECT_EQ(Concat(Null, "x"), Value("x"));
  EXPECT_EQ(Concat("x", Null), Value("x"));
  EXPECT_TRUE(Concat(Null, Null).IsNull());
  EXPECT_EQ(Concat(1, true), Value("1True"));
  EXPECT_EQ(Concat(*DateSerial(1999, 1, 2), ""), Value("1/2/1999"));
}

TEST(TextFunctions, TrimTakesBlanksOnly) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(LTrim("  a "), "a ");
  EXPECT_EQ(RTrim("  a "), "  a");
  EXPECT_EQ(Trim("\ta\r\n"), "\ta\r\n");
  EXPECT_EQ(Trim("    "), "");
  EXPECT_EQ(Trim(""), "");
}

TEST(TextFunctions, Cases) {
  EXPECT_EQ(UCase("a\u00E9z1"), "A\u00C9Z1");
  EXPECT_EQ(LCase("A\u00C9\u0416"), "a\u00E9\u0436");
}

TEST(TextFunctions, LeftAndRight) {
  EXPECT_EQ(Left("Hello", 2), "He");
  EXPECT_EQ(Left("Hello", 99), "Hello");
  EXPECT_EQ(Left("Hello", 0), "");
  EXPECT_EQ(Left("\u00E9t\u00E9", 1), "\u00E9");
  EXPECT_EQ(Right("Hello World", 6), " World");
  EXPECT_EQ(Right("Hello", 99), "Hello");
  EXPECT_EQ(Right("\u00E9t\u00E9", 2), "t\u00E9");
  EXPECT_EQ(ErrorOf([] { Left("a", -1); }), 5);
  EXPECT_EQ(ErrorOf([] { Right("a", -1); }), 5);
}

TEST(TextFunctions, Mid) {
  EXPECT_EQ(Mid("Mid Function Demo", 14, 4), "Demo");
  EXPECT_EQ(Mid("Mid Function Demo", 5), "Function Demo");
  EXPECT_EQ(Mid("abc", 4), "");
  EXPECT_EQ(Mid("abc", 2, 0), "");
  EXPECT_EQ(Mid("abc", 2, 99), "bc");
  EXPECT_EQ(Mid("\u00E9t\u00E9", 2, 1), "t");
  EXPECT_EQ(ErrorOf([] { Mid("abc", 0); }), 5);
  EXPECT_EQ(ErrorOf([] { Mid("abc", 1, -1); }), 5);
}

TEST(TextFunctions, InStr) {
  EXPECT_EQ(InStr(1, "XXpXXpXXPXXP", "P"), 9);
  EXPECT_EQ(InStr(4, "XXpXXpXXPXXP", "p"), 6);
  EXPECT_EQ(InStr(1, "abc", ""), 1);
  EXPECT_EQ(InStr(3, "abc", ""), 3);
  EXPECT_EQ(InStr(1, "", "a"), 0);
  EXPECT_EQ(InStr(1, "", ""), 0);
  EXPECT_EQ(InStr(9, "abc", "a"), 0);
  EXPECT_EQ(InStr(1, "abc", "d"), 0);
  EXPECT_EQ(InStr(1, "\u00E9t\u00E9s", "s"), 4);
  EXPECT_EQ(ErrorOf([] { InStr(0, "a", "a"); }), 5);
}

TEST(TextFunctions, LenAndFixedText) {
  EXPECT_EQ(Len("\u00E9t\u00E9"), 3);
  EXPECT_EQ(FixedText("abc", 5), "abc  ");
  EXPECT_EQ(FixedText("abcdef", 5), "abcde");
  EXPECT_EQ(FixedText("\u00E9t\u00E9", 2), "\u00E9t");
  EXPECT_EQ(FixedText("", 2), "  ");
}

TEST(Amounts, AreAddedExactlyOrOverflow) {
  constexpr std::int64_t greatest = std::numeric_limits<std::int64_t>::max();
  constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
  EXPECT_EQ(Money(1'2345) + Money(-5), Money(1'2340));
  EXPECT_EQ(Money(greatest - 1) + Money(1), Money(greatest));
  EXPECT_EQ(Money(least) + Money(greatest), Money(-1));
  EXPECT_EQ(ErrorOf([] { Money(greatest) + Money(1); }), 6);
  EXPECT_EQ(ErrorOf([] { Money(least) + Money(-1); }), 6);
}

}  // namespace
}  // namespace platform
