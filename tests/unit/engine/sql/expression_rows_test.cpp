#include <gtest/gtest.h>

#include <string>

#include "unit/engine/sql/corpus_company.h"
#include "unit/engine/sql/expect_error.h"

// What expressions give when the store works them out: over the row of Numbers with every field filled (ID 1), one with
// other values (ID 2) and one of Nulls (ID 3).
namespace {

class ExpressionRows : public ::testing::Test {
 protected:
  std::string Give(const std::string& expression, int id = 1) {
    const std::vector<std::string> rows = company_.Query("SELECT " + expression + " AS X FROM Numbers WHERE ID=" + std::to_string(id));
    return rows.size() == 1 ? rows[0] : "rows: " + std::to_string(rows.size());
  }

  // Whether a condition selects the row.
  bool Selects(const std::string& condition, int id = 1) {
    return company_.Query("SELECT ID FROM Numbers WHERE ID=" + std::to_string(id) + " And (" + condition + ")").size() == 1;
  }

  // What fails in a condition.
  void ExpectFailure(int number, const std::string& expression, int id = 1) {
    SCOPED_TRACE(expression);
    ExpectError(number, "", [&] { Selects("(" + expression + ") Is Null", id); });
  }

  // What fails for a row: as a cell it is empty.
  void ExpectEmptyCell(int number, const std::string& expression, int id = 1) {
    ExpectFailure(number, expression, id);
    EXPECT_EQ(Give(expression, id), "Null") << expression;
  }

  CorpusCompany company_;
};

TEST_F(ExpressionRows, LikeVectors) {
  const auto expectLike = [&](const std::string& text, const std::string& pattern, const std::string& expected) {
    EXPECT_EQ(Give("'" + text + "' Like '" + pattern + "'"), expected) << text << " Like " << pattern;
  };
  expectLike("XABX", "*ab*", "True");
  expectLike("aZb", "*ab*", "False");
  expectLike("a*a", "a[*]a", "True");
  expectLike("aaa", "a[*]a", "False");
  expectLike("a3a", "a?a", "True");
  expectLike("aBBBa", "a?a", "False");
  expectLike("a0a", "a#a", "True");
  expectLike("a10a", "a#a", "False");
  expectLike("f", "[a-z]", "True");
  expectLike("&", "[a-z]", "False");
  expectLike("9", "[!a-z]", "True");
  expectLike("b", "[!a-z]", "False");
  expectLike("A", "[!0-9]", "True");
  expectLike("0", "[!0-9]", "False");
  expectLike("An9", "a[!b-m]#", "True");
  expectLike("abc", "a[!b-m]#", "False");
  expectLike("abcdefg", "ab*", "True");
  expectLike("a [xyz", "a [[]*", "True");
  expectLike("", "*", "True");
  expectLike("", "?", "False");
  expectLike("O''Brien", "O?Brien*", "True");
  expectLike("SMITH", "smi*", "True");
  expectLike("50%", "50%", "True");
  expectLike("smith  ", "smith", "True");
  EXPECT_EQ(Give("Null Like '*'"), "Null");
  EXPECT_EQ(Give("T Like '*'", 3), "Null");
  ExpectFailure(93, "'x' Like 'a [*'");
  ExpectEmptyCell(93, "'x' Like 'a' & '[*'");
  ExpectFailure(93, "T Like '[z-a]'");
}

TEST_F(ExpressionRows, LikeOnOtherTypesTestsTheirText) {
  EXPECT_TRUE(Selects("L Like '2147*'"));
  EXPECT_TRUE(Selects("D Like '0.5'"));
  EXPECT_TRUE(Selects("C Like '0.0001'"));
  EXPECT_TRUE(Selects("C Like '-2.5'", 2));
  EXPECT_TRUE(Selects("W Like '1/1/1999'"));
  EXPECT_TRUE(Selects("W Like '1/1/1999 6:00:00 PM'", 2));
  EXPECT_TRUE(Selects("(ID=1) Like '-1'"));
  EXPECT_TRUE(Selects("(ID=2) Like '0'"));
}

TEST_F(ExpressionRows, TextComparison) {
  EXPECT_EQ(Give("'abc' = 'ABC'"), "True");
  EXPECT_EQ(Give("'abc' = 'abc  '"), "True");
  EXPECT_EQ(Give("' abc' = 'abc'"), "False");
  EXPECT_EQ(Give("'O''Brien' < 'OBrien'"), "True");
  EXPECT_EQ(Give("'a-b' < 'ab'"), "True");
  EXPECT_EQ(Give("'resume' < 'r\xC3\xA9sum\xC3\xA9'"), "True");
  EXPECT_EQ(Give("'r\xC3\xA9sum\xC3\xA9' < 'resumf'"), "True");
  EXPECT_EQ(Give("'10' < '9'"), "True");
  EXPECT_EQ(Give("T & '' > '33'"), "True");
  EXPECT_EQ(Give("'b' In ('A', 'B ')"), "True");
  EXPECT_EQ(Give("'b' Between 'C' And 'A'"), "True");
  EXPECT_EQ(Give("T Between '9' And T & ''"), "True");
}

TEST_F(ExpressionRows, ArithmeticTypes) {
  EXPECT_EQ(Give("L - 1"), "2147483646");
  EXPECT_EQ(Give("B + B"), "14");
  EXPECT_EQ(Give("S * 2.5", 2), "-7.5");
  EXPECT_EQ(Give("L / 4", 2), "2.5");
  EXPECT_EQ(Give("L / 5", 2), "2.0");
  EXPECT_EQ(Give("7 \\ 2"), "3");
  EXPECT_EQ(Give("-7 \\ 2"), "-3");
  EXPECT_EQ(Give("7.5 \\ 2"), "4");
  EXPECT_EQ(Give("7 Mod 3"), "1");
  EXPECT_EQ(Give("-7 Mod 3"), "-1");
  EXPECT_EQ(Give("2 ^ 10"), "1024.0");
  EXPECT_EQ(Give("-2 ^ 2"), "-4.0");
  EXPECT_EQ(Give("2 + 3 * 4"), "14");
  EXPECT_EQ(Give("(2 + 3) * 4"), "20");
  EXPECT_EQ(Give("10 - 4 - 3"), "3");
  EXPECT_EQ(Give("10 - (4 - 3)"), "9");
  EXPECT_EQ(Give("2 - -3"), "5");
  EXPECT_EQ(Give("--3"), "3");
  EXPECT_EQ(Give("-(-L)", 2), "10");
  EXPECT_EQ(Give("- -S", 2), "-3");
  EXPECT_EQ(Give("True + 1"), "0");
  EXPECT_EQ(Give("(1=1) + (2=2)"), "-2");
}

TEST_F(ExpressionRows, Overflow) {
  ExpectEmptyCell(6, "L + 1");
  ExpectEmptyCell(6, "S + S");
  ExpectEmptyCell(6, "B + B", 2);
  ExpectEmptyCell(6, "B - 255 * 2 - 2147483647");
  ExpectEmptyCell(6, "L * L");
  ExpectEmptyCell(6, "10 ^ 400");
}

TEST_F(ExpressionRows, DivisionByZero) {
  ExpectEmptyCell(11, "1 / 0");
  ExpectEmptyCell(11, "L / (ID - 1)");
  ExpectEmptyCell(11, "1 \\ 0");
  ExpectEmptyCell(11, "1 Mod 0");
  ExpectEmptyCell(11, "1 \\ 0.4");
  EXPECT_EQ(Give("1 / L", 3), "Null");
}

TEST_F(ExpressionRows, CurrencyIsExact) {
  EXPECT_EQ(Give("C + C"), "$0.0002");
  EXPECT_EQ(Give("C + 1", 2), "$-1.5");
  EXPECT_EQ(Give("C + 0.25", 2), "$-2.25");
  EXPECT_EQ(Give("C * 3", 2), "$-7.5");
  EXPECT_EQ(Give("C * C", 2), "$6.25");
  EXPECT_EQ(Give("C * 2.0", 2), "-5.0");
  EXPECT_EQ(Give("C / 2", 2), "-1.25");
  EXPECT_EQ(Give("-C", 2), "$2.5");
  EXPECT_EQ(Give("CCur(33.33) + (CCur(33.33) * 12.5 / 100)"), "$37.4962");
  EXPECT_EQ(Give("CCur(0.00005)"), "$0");
  EXPECT_EQ(Give("CCur(0.00015)"), "$0.0002");
  EXPECT_EQ(Give("CCur(1.00009)"), "$1.0001");
  EXPECT_EQ(Give("CCur(-1.00005)"), "$-1");
  EXPECT_EQ(Give("C * 0.5"), "5e-05");
}

TEST_F(ExpressionRows, CurrencyComparesByValue) {
  EXPECT_TRUE(Selects("C = 0.0001"));
  EXPECT_TRUE(Selects("C < 0.00011"));
  EXPECT_TRUE(Selects("C > 0.00009"));
  EXPECT_FALSE(Selects("C = 0.00011"));
  EXPECT_TRUE(Selects("C = -2.5", 2));
  EXPECT_TRUE(Selects("C < S + 1", 2));
  EXPECT_TRUE(Selects("C + 5 = D", 2));
  EXPECT_TRUE(Selects("C Between -2.4999 And -3", 2));
  EXPECT_TRUE(Selects("C In (1, -2.5)", 2));
  EXPECT_FALSE(Selects("C = True"));
}

TEST_F(ExpressionRows, BooleanComparesAsMinusOneAndZero) {
  EXPECT_EQ(Give("True = -1"), "True");
  EXPECT_EQ(Give("False = 0"), "True");
  EXPECT_EQ(Give("True < False"), "True");
  EXPECT_EQ(Give("(ID = 1) = True"), "True");
}

TEST_F(ExpressionRows, ThreeValuedLogic) {
  EXPECT_EQ(Give("Not Null"), "Null");
  EXPECT_EQ(Give("True And Null"), "Null");
  EXPECT_EQ(Give("False And Null"), "False");
  EXPECT_EQ(Give("True Or Null"), "True");
  EXPECT_EQ(Give("False Or Null"), "Null");
  EXPECT_EQ(Give("True Xor Null"), "Null");
  EXPECT_EQ(Give("True Xor True"), "False");
  EXPECT_EQ(Give("True Xor False"), "True");
  EXPECT_EQ(Give("True Eqv False"), "False");
  EXPECT_EQ(Give("False Eqv False"), "True");
  EXPECT_EQ(Give("Null Eqv False"), "Null");
  EXPECT_EQ(Give("False Imp Null"), "True");
  EXPECT_EQ(Give("Null Imp True"), "True");
  EXPECT_EQ(Give("True Imp False"), "False");
  EXPECT_EQ(Give("True Imp Null"), "Null");
  EXPECT_EQ(Give("L And True", 2), "True");
  EXPECT_EQ(Give("5 Xor True"), "False");
  EXPECT_EQ(Give("Not 5"), "False");
  EXPECT_EQ(Give("L = Null"), "Null");
  EXPECT_EQ(Give("L Is Null", 3), "True");
  EXPECT_EQ(Give("L Is Not Null"), "True");
  EXPECT_EQ(Give("L Between 1 And Null"), "Null");
  EXPECT_EQ(Give("L Between Null And 1"), "Null");
  EXPECT_EQ(Give("L In (1, Null)"), "Null");
  EXPECT_EQ(Give("L In (2147483647, Null)"), "True");
  EXPECT_FALSE(Selects("Not (L = Null)"));
}

TEST_F(ExpressionRows, NullInArithmetic) {
  EXPECT_EQ(Give("L + 1", 3), "Null");
  EXPECT_EQ(Give("C * D", 3), "Null");
  EXPECT_EQ(Give("-L", 3), "Null");
  EXPECT_EQ(Give("T + 'x'", 3), "Null");
  EXPECT_EQ(Give("W + 1", 3), "Null");
  EXPECT_EQ(Give("Null + 1"), "Null");
  EXPECT_EQ(Give("2 ^ L", 3), "Null");
}

TEST_F(ExpressionRows, Concatenation) {
  EXPECT_EQ(Give("Null & 'x'"), "'x'");
  EXPECT_EQ(Give("Null & Null"), "Null");
  EXPECT_EQ(Give("T & '-' & L", 2), "'9-10'");
  EXPECT_EQ(Give("L & ''", 3), "''");
  EXPECT_EQ(Give("C & ''", 2), "'-2.5'");
  EXPECT_EQ(Give("D & ''"), "'0.5'");
  EXPECT_EQ(Give("W & ''"), "'1/1/1999'");
  EXPECT_EQ(Give("(ID=1) & ''"), "'True'");
  EXPECT_EQ(Give("T + 'x'"), "'34x'");
  EXPECT_EQ(Give("T + '6'"), "'346'");
  EXPECT_EQ(Give("T + 6"), "40.0");
  ExpectEmptyCell(13, "'x' + 6");
}

TEST_F(ExpressionRows, Dates) {
  EXPECT_EQ(Give("#1/2/1999#"), "#1/2/1999#");
  EXPECT_EQ(Give("#13/1/1999#"), "#1/13/1999#");
  EXPECT_EQ(Give("W + 31"), "#2/1/1999#");
  EXPECT_EQ(Give("W - 1"), "#12/31/1998#");
  EXPECT_EQ(Give("W + 0.5"), "#1/1/1999 12:00:00#");
  EXPECT_EQ(Give("W - #12/30/1998#", 2), "2.75");
  EXPECT_TRUE(Selects("W = 36161"));
  EXPECT_TRUE(Selects("W > 36161 And W < 36162", 2));
  EXPECT_TRUE(Selects("W > #1/1/1999#", 2));
  EXPECT_TRUE(Selects("W = #1/1/1999 6:00 PM#", 2));
  EXPECT_TRUE(Selects("W Between #1/2/1999# And #12/1/1998#"));
  EXPECT_TRUE(Selects("W In (#1/1/1999#, #1/2/1999#)"));
  EXPECT_EQ(Give("Year(W)"), "1999");
  EXPECT_EQ(Give("Month(W - 1)"), "12");
  EXPECT_EQ(Give("Weekday(#12/30/1899#)"), "7");
  EXPECT_EQ(Give("Weekday(#1/3/1999#)"), "1");
  EXPECT_EQ(Give("Hour(W)", 2), "18");
  EXPECT_EQ(Give("DateSerial(1999, 14, 0)"), "#1/31/2000#");
  EXPECT_EQ(Give("DateSerial(1999, -10, 1)"), "#2/1/1998#");
  EXPECT_EQ(Give("DateSerial(178958969, -2147483647, 1)"), "#5/1/1998#");
  ExpectEmptyCell(6, "#12/31/9999# + 1");
}

TEST_F(ExpressionRows, TextFunctions) {
  EXPECT_EQ(Give("LenB('ab\u00E9')"), "6");
  EXPECT_EQ(Give("Val('24 and 57')"), "24.0");
  EXPECT_EQ(Give("Val('abc')"), "0.0");
  EXPECT_EQ(Give("Val(L)", 2), "10.0");
  EXPECT_EQ(Give("Val(T)", 3), "Null");
  EXPECT_EQ(Give("Left('abc', 2)"), "'ab'");
  EXPECT_EQ(Give("Right('abc', 2)"), "'bc'");
  EXPECT_EQ(Give("Mid('Mid Function Demo', 14, 4)"), "'Demo'");
  EXPECT_EQ(Give("Mid('abc', 2)"), "'bc'");
  EXPECT_EQ(Give("InStr('abc', 'c')"), "3");
  EXPECT_EQ(Give("InStr(1, 'XXpXXpXXPXXP', 'P')"), "9");
  EXPECT_EQ(Give("Len(T)"), "2");
  EXPECT_EQ(Give("Trim('  a ') & '.'"), "'a.'");
  EXPECT_EQ(Give("LTrim('  a ') & RTrim(' b  ')"), "'a  b'");
  EXPECT_EQ(Give("UCase('aB') & LCase('Cd')"), "'ABcd'");
  EXPECT_EQ(Give("Str(459)"), "' 459'");
  EXPECT_EQ(Give("Space(3) & '.'"), "'   .'");
  EXPECT_EQ(Give("Left(T, 1)", 3), "Null");
  ExpectEmptyCell(5, "Left('abc', -1)");
  ExpectEmptyCell(5, "Mid('abc', 0)");
}

TEST_F(ExpressionRows, FormatShowsEachType) {
  EXPECT_EQ(Give("Format(5459.4, '##,##0.00')"), "'5,459.40'");
  EXPECT_EQ(Give("Format(CCur(1.234), 'Currency')"), "'$1.23'");
  EXPECT_EQ(Give("Format(-1, 'Currency')"), "'($1.00)'");
  EXPECT_EQ(Give("Format('6125551234', '(@@@) @@@-@@@@')"), "'(612) 555-1234'");
  EXPECT_EQ(Give("Format('00001001', '#####-###')"), "'1-001'");
  EXPECT_EQ(Give("Format(#1/31/1999 10:00:00#, 'Short Date')"), "'1/31/1999'");
  EXPECT_EQ(Give("Format(1=1, 'Yes/No')"), "'Yes'");
  EXPECT_EQ(Give("Format(1.5)"), "'1.5'");
  EXPECT_EQ(Give("Format(Null, '0.00')"), "''");
  EXPECT_EQ(Give("Format(C, '0.00')", 3), "''");
  EXPECT_EQ(Give("Format('HELLO', '<') & 'x'"), "'hellox'");
  EXPECT_TRUE(Selects("Format(ID, '000') = '001'"));
  ExpectFailure(3075, "Format()");
  ExpectFailure(3075, "Format(1, '0', 2)");
}

TEST_F(ExpressionRows, NumberFunctions) {
  EXPECT_EQ(Give("CInt('2.5')"), "2");
  EXPECT_EQ(Give("CLng(25427.55)"), "25428");
  EXPECT_EQ(Give("CDbl(C)", 2), "-2.5");
  EXPECT_EQ(Give("CStr(C)", 2), "'-2.5'");
  EXPECT_EQ(Give("CByte(B)"), "7");
  EXPECT_EQ(Give("CBool(2)"), "True");
  EXPECT_EQ(Give("CDate('1/31/1999')"), "#1/31/1999#");
  EXPECT_EQ(Give("Abs(C)", 2), "$2.5");
  EXPECT_EQ(Give("Abs(S)", 2), "3");
  EXPECT_EQ(Give("Int(-2.5)"), "-3.0");
  EXPECT_EQ(Give("Fix(-2.5)"), "-2.0");
  EXPECT_EQ(Give("Int(C)", 2), "$-3");
  EXPECT_EQ(Give("Sgn(S)", 2), "-1");
  EXPECT_EQ(Give("Sqr(16)"), "4.0");
  EXPECT_EQ(Give("IsNumeric('12x')"), "False");
  EXPECT_EQ(Give("IsNumeric(L)"), "True");
  EXPECT_EQ(Give("IsNumeric(L)", 3), "False");
  EXPECT_EQ(Give("IsDate('1/2/1970')"), "True");
  EXPECT_EQ(Give("IsNull(L)", 3), "True");
  EXPECT_EQ(Give("IIf(ID = 1, 'one', 'more')"), "'one'");
  EXPECT_EQ(Give("IIf(ID = 1, 1, CCur(2.5))"), "$1");
  EXPECT_EQ(Give("IIf(Null, 1, 2)"), "2");
  ExpectEmptyCell(6, "CInt('32768')");
  ExpectEmptyCell(13, "CLng('')");
  ExpectEmptyCell(5, "Sqr(-1)");
}

TEST_F(ExpressionRows, UnlikeTypes) {
  for (const char* condition : {"L = '5'", "'5' = L", "T = 5", "W = '1/1/1999'", "T < W", "T = True", "L Between '1' And '2'",
                                "L In (1, 'x')", "T In ('x', 1)", "T Between 1 And 2", "D <> 'x'", "C = ''", "T", "Not T", "T And True"}) {
    SCOPED_TRACE(condition);
    ExpectError(3464, "Data type mismatch in criteria expression.", [&] { Selects(condition); });
  }
}

TEST_F(ExpressionRows, LongConditions) {
  std::string condition = "L = 0";
  for (int i = 1; i < 3000; ++i) condition += " Or L = " + std::to_string(i);
  EXPECT_TRUE(Selects(condition, 2));
  EXPECT_FALSE(Selects(condition, 1));
  std::string all = "L <> 0";
  for (int i = 1; i < 3000; ++i) all += " And L <> " + std::to_string(i);
  EXPECT_TRUE(Selects(all, 1));
  EXPECT_FALSE(Selects(all, 2));
  std::string joined = "''";
  std::string sum = "0";
  for (int i = 0; i < 90; ++i) {
    joined += " & 'x'";
    sum += " + ID";
  }
  EXPECT_EQ(Give("Len(" + joined + " & " + joined + ")"), "180");
  EXPECT_EQ(Give(sum, 2), "180");
}

// Whatever nests too deep is refused by the engine itself, never by a fault of the store.
TEST_F(ExpressionRows, DeepConditions) {
  const auto nested = [](const std::string& open, const std::string& close, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) text += open;
    text += "ID";
    for (int i = 0; i < times; ++i) text += close;
    return text;
  };
  const std::vector<std::pair<std::string, std::string>> shapes{{"(", ")"},
                                                                {"Abs(", ")"},
                                                                {"InStr(1, 'a', ", ")"},
                                                                {"IIf(1=1, 2, ", ")"},
                                                                {"(1 + 2 * ", ")"},
                                                                {"(1 Or 2 And ", ")"},
                                                                {"Not (", ")"},
                                                                {"-(", ")"},
                                                                {"1 In (2, ", ")"},
                                                                {"1 Between 2 And (", ")"},
                                                                {"'a' & Left(", ", 1)"},
                                                                {"(1 - ", ")"},
                                                                {"1 Imp (2 Eqv ", ")"}};
  for (const auto& [open, close] : shapes) {
    for (int times = 1; times <= 60; ++times) {
      try {
        Give(nested(open, close, times));
      } catch (const platform::Error& error) {
        EXPECT_TRUE(error.Number() == 3360 || error.Number() == 6)
            << open << ' ' << times << ' ' << error.Number() << ' ' << error.Description();
        EXPECT_GE(times, 8) << open;  // a cell of a list takes one level itself
        break;
      }
    }
  }
}

}  // namespace
