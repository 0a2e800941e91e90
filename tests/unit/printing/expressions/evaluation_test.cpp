#include "unit/printing/expressions/expression_fixture.h"

namespace {

using printing::ValueType;

using EvaluationTest = ExpressionTest;

TEST_F(EvaluationTest, AComparisonThatMeetsNullIsFalse) {
  for (const char* sign : {"=", "<>", "<", "<=", ">", ">="}) {
    const std::string test = std::string(" ") + sign + ' ';
    EXPECT_FALSE(IsTrue("{C.None}" + test + "'x'")) << sign;
    EXPECT_FALSE(IsTrue("'x'" + test + "{C.None}")) << sign;
    EXPECT_FALSE(IsTrue("{C.None}" + test + "{C.None}")) << sign;
    EXPECT_TRUE(IsTrue("Not ({C.None}" + test + "'x')")) << sign;
    EXPECT_FALSE(IsTrue("{C.NoNumber}" + test + "5")) << sign;
    EXPECT_FALSE(IsTrue("{C.NoDate}" + test + "Today")) << sign;
    EXPECT_FALSE(IsTrue("{C.NoBoolean}" + test + "False")) << sign;
  }
  EXPECT_FALSE(IsTrue("{C.None} In ['a', 'b']"));
  EXPECT_FALSE(IsTrue("{C.None} Like '*'"));
  EXPECT_FALSE(IsTrue("{C.None} StartsWith ''"));
  EXPECT_FALSE(IsTrue("{C.NoNumber} In 1 To 9"));
  EXPECT_FALSE(IsTrue("5 In 1 To {C.NoNumber}"));
  EXPECT_TRUE(IsTrue("Not ({C.None} Like '*')"));
}

TEST_F(EvaluationTest, TheOrderOfTermsNeverMatters) {
  EXPECT_TRUE(IsTrue("{C.NoNumber} = 1 Or {C.Count} = 7"));
  EXPECT_TRUE(IsTrue("{C.Count} = 7 Or {C.NoNumber} = 1"));
  EXPECT_FALSE(IsTrue("{C.NoNumber} = 1 And {C.Count} = 7"));
  EXPECT_FALSE(IsTrue("{C.Count} = 7 And {C.NoNumber} = 1"));
}

TEST_F(EvaluationTest, ABooleanThatIsNullIsFalse) {
  EXPECT_FALSE(IsTrue("{C.NoBoolean}"));
  EXPECT_TRUE(IsTrue("Not {C.NoBoolean}"));
  EXPECT_TRUE(IsTrue("{C.Active}"));
  EXPECT_TRUE(IsTrue("{C.Active} = True"));
  EXPECT_TRUE(IsTrue("True < False"));  // as the store orders them
  EXPECT_TRUE(IsTrue("IsNull({C.NoBoolean})"));
}

TEST_F(EvaluationTest, TextsCompareInTheDataFilesOrder) {
  EXPECT_TRUE(IsTrue("{C.Name} = 'SMITH  '"));
  EXPECT_TRUE(IsTrue("{C.Name} < 'smithson'"));
  EXPECT_FALSE(IsTrue("{C.Name} = 'Sm\u00edth'"));
  EXPECT_TRUE(IsTrue("{C.Name} StartsWith 'sm'"));
  EXPECT_TRUE(IsTrue("{C.Name} Like 's?i*H'"));
  EXPECT_FALSE(IsTrue("{C.Name} Like 'Smit'"));
  EXPECT_TRUE(IsTrue("{C.Name} In ['jones', 'smith']"));
  EXPECT_TRUE(IsTrue("{C.Name} In 'S' To 'T'"));
}

TEST_F(EvaluationTest, OnlyStarAndQuestionMarkAreSpecial) {
  EXPECT_TRUE(IsTrue("'a#1' Like 'a#?'"));
  EXPECT_FALSE(IsTrue("'a5' Like 'a#'"));
  EXPECT_TRUE(IsTrue("'[x]' Like '[x]'"));
  EXPECT_FALSE(IsTrue("'x' Like '[x]'"));
  EXPECT_TRUE(IsTrue("'a*b' StartsWith 'a*'"));
  EXPECT_FALSE(IsTrue("'axb' StartsWith 'a*'"));
}

TEST_F(EvaluationTest, AmountsAreExact) {
  EXPECT_TRUE(IsTrue("{C.Balance} = 12.34"));
  EXPECT_EQ(TextOf("{C.Balance} + {C.Balance}"), "24.68");
  EXPECT_EQ(Of("{C.Balance} - {C.Balance}").Kind(), platform::ValueKind::Currency);
  row_[3] = platform::Currency{INT64_MAX};
  EXPECT_EQ(TextOf("{C.Balance} + {C.Balance}"), "Null");
  row_[3] = platform::Currency{INT64_MIN};
  EXPECT_LT(Of("{C.Balance}").As<platform::Currency>().tenThousandths, 0);
  EXPECT_GT(platform::CDbl(Of("-{C.Balance}")), 9e14);
}

TEST_F(EvaluationTest, WhatHasNoResultIsNull) {
  EXPECT_EQ(TextOf("1 / 0"), "Null");
  EXPECT_EQ(TextOf("{C.NoNumber} + 1"), "Null");
  EXPECT_EQ(TextOf("-{C.NoNumber}"), "Null");
  EXPECT_EQ(TextOf("Year({C.NoDate})"), "Null");
  EXPECT_EQ(TextOf("Length({C.None})"), "Null");
  EXPECT_EQ(TextOf("Today + 99999999"), "Null");
  EXPECT_EQ(TextOf("IsNull(1 / 0)"), "True");
  EXPECT_EQ(TextOf("Round({C.NoNumber}, 2)"), "Null");
  std::string huge = "9";
  for (int i = 0; i < 300; ++i) huge += '9';
  EXPECT_EQ(TextOf(huge + " * " + huge), "Null");
}

TEST_F(EvaluationTest, DatesCountDays) {
  EXPECT_EQ(TextOf("{C.Since}"), "1/31/1999");
  EXPECT_TRUE(IsTrue("{C.Since} = Date(1999, 1, 31)"));
  EXPECT_EQ(TextOf("Date(1999, 3, 1) - Date(1999, 2, 1)"), "28");
  EXPECT_EQ(TextOf("{C.Since} + 1"), "2/1/1999");
  EXPECT_EQ(TextOf("Year({C.Since})"), "1999");
  EXPECT_EQ(TextOf("Month(Today)"), "2");
  EXPECT_TRUE(IsTrue("Today - 30 < {C.Since}"));
}

TEST_F(EvaluationTest, TextsAreJoinedAndCut) {
  EXPECT_EQ(TextOf("{C.Name} & ', ' & {C.None} & {C.Count} & ' ' & {C.Active}"), "Smith, 7 True");
  EXPECT_EQ(TextOf("Trim('  a b  ')"), "a b");
  EXPECT_EQ(TextOf("UpperCase('stra\u00dfe \u00e9')"), platform::UCase("stra\u00dfe \u00e9"));
  EXPECT_EQ(TextOf("Left('\U0001F600ab', 2)"), "\U0001F600a");
  EXPECT_EQ(TextOf("Right('\u05d0\u05d1\u05d2', 2)"), "\u05d1\u05d2");
  EXPECT_EQ(TextOf("Left('abc', -1)"), "");
  EXPECT_EQ(TextOf("Length('\U0001F600\u05d0')"), "2");
  EXPECT_EQ(TextOf("ToText({C.Balance}, '$#,##0.00')"), "$12.34");
  EXPECT_EQ(TextOf("ToText({C.None}, '@@')"), "");
  EXPECT_EQ(TextOf("ToText({C.Count})"), "7");
}

TEST_F(EvaluationTest, RoundsHalvesAwayFromZero) {
  EXPECT_EQ(TextOf("Round(2.5)"), "3");
  EXPECT_EQ(TextOf("Round(-2.5)"), "-3");
  EXPECT_EQ(TextOf("Round(1.25, 1)"), "1.3");
  row_[3] = platform::Currency{10'050};  // 1.005
  EXPECT_EQ(TextOf("Round({C.Balance}, 2)"), "1.01");
  row_[3] = platform::Currency{-10'050};
  EXPECT_EQ(TextOf("Round({C.Balance}, 2)"), "-1.01");
  EXPECT_EQ(TextOf("Round({C.Balance})"), "-1");
}

TEST_F(EvaluationTest, ChoiceTakesOneSide) {
  EXPECT_EQ(TextOf("If {C.Count} > 5 Then 'many' Else 'few'"), "many");
  EXPECT_EQ(TextOf("If {C.NoNumber} > 5 Then 'many' Else If {C.Active} Then 'some' Else 'none'"), "some");
}

TEST_F(EvaluationTest, AChoiceMayBeginWhereverAValueMay) {
  EXPECT_EQ(TextOf("'a' & If {C.Active} Then 'b' Else 'c' & 'd'"), "ab");
  EXPECT_EQ(TextOf("'a' & (If {C.NoBoolean} Then 'b' Else 'c') & 'd'"), "acd");
  EXPECT_EQ(TextOf("1 + If True Then 2 Else 3"), "3");
}

TEST_F(EvaluationTest, TextsBecomeNumbers) {
  EXPECT_EQ(TextOf("ToNumber('12') * 2"), "24");
  EXPECT_EQ(TextOf("ToNumber('x')"), "0");
  EXPECT_EQ(TextOf("ToNumber('')"), "0");
  EXPECT_EQ(TextOf("ToNumber({C.None})"), "Null");
  EXPECT_EQ(FaultOf("ToNumber(1)"), "types@9");
}

TEST_F(EvaluationTest, TypesAreCheckedBeforeAnyRow) {
  EXPECT_EQ(FaultOf("{C.Name} = 5"), "types@11");
  EXPECT_EQ(FaultOf("{C.Count} And True"), "types@0");
  EXPECT_EQ(FaultOf("Not 'x'"), "types@4");
  EXPECT_EQ(FaultOf("'a' + 'b'"), "types@0");
  EXPECT_EQ(FaultOf("If 1 Then 2 Else 3"), "types@3");
  EXPECT_EQ(FaultOf("If True Then 2 Else 'x'"), "types@20");
  EXPECT_EQ(FaultOf("{C.Count} Like '7'"), "types@0");
  EXPECT_EQ(FaultOf("Year('1999')"), "types@5");
  EXPECT_EQ(FaultOf("{C.Count} In [1, 'x']"), "types@17");
  EXPECT_EQ(FaultOf("-Today"), "types@1");
  EXPECT_EQ(FaultOf("Today + Today"), "types@0");
  EXPECT_EQ(FaultOf("PageCount + 1"), "types@0");
}

TEST_F(EvaluationTest, UnknownNamesAreRefused) {
  EXPECT_EQ(FaultOf("{C.Nothing}"), "name@0");
  EXPECT_EQ(FaultOf("1 & {D.Name}"), "name@4");
  EXPECT_EQ(FaultOf("{@Nothing}"), "name@0");
  EXPECT_EQ(FaultOf("{#Nothing}"), "name@0");
}

TEST_F(EvaluationTest, FormulasStandForTheirExpressions) {
  AddFormula("Who", ValueType::Text, "Trim({C.Name}) & '!'");
  AddFormula("Twice", ValueType::Text, "{@Who} & {@Who}");
  EXPECT_EQ(TextOf("{@Twice}"), "Smith!Smith!");
  AddFormula("Wrong", ValueType::Number, "'x'");
  EXPECT_EQ(FaultOf("1 + {@Wrong}"), "types@4");
}

TEST_F(EvaluationTest, FormulasInACircleAreRefused) {
  AddFormula("A", ValueType::Text, "{@B} & 'a'");
  AddFormula("B", ValueType::Text, "{@C} & 'b'");
  AddFormula("C", ValueType::Text, "{@A} & 'c'");
  EXPECT_EQ(FaultOf("{@A}"), "circle@0");
  AddFormula("Self", ValueType::Number, "{@Self}");
  EXPECT_EQ(FaultOf("1 + {@Self}"), "circle@4");
}

// Twenty lines that would mean a million parts.
TEST_F(EvaluationTest, FormulasThatGrowBeyondSenseAreRefused) {
  AddFormula("F0", ValueType::Text, "{C.Name}");
  for (int i = 1; i <= 20; ++i) {
    const std::string before = "{@F" + std::to_string(i - 1) + '}';
    AddFormula("F" + std::to_string(i), ValueType::Text, before + " & " + before);
  }
  EXPECT_EQ(TextOf("{@F5}").size(), 160u);
  EXPECT_EQ(FaultOf("{@F20}"), "large@0");
}

TEST_F(EvaluationTest, LongTextsAreCutAtACharacter) {
  std::string much;
  for (int i = 0; i < 10'000; ++i) much += "\U0001F600";
  row_[0] = much;
  std::string expression = "'x'";
  for (int i = 0; i < 60; ++i) expression += " & {C.Name}";
  const std::string text = TextOf(expression);
  EXPECT_LE(text.size(), std::size_t{1} << 20);
  EXPECT_GT(text.size(), (std::size_t{1} << 20) - 8);
  EXPECT_TRUE(platform::IsValidUtf8(text));
}

TEST_F(EvaluationTest, KnownValues) {
  EXPECT_EQ(TextOf("'Page ' & PageNumber & ' of ' & PageCount"), "Page 3 of \x01");
  EXPECT_EQ(TextOf("ReportTitle & Selection & RecordNumber"), "Phonesall1");
}

}  // namespace
