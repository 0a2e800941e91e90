#include "unit/printing/expressions/expression_fixture.h"

namespace {

using printing::Expression;
using printing::ExpressionKind;
using printing::ParseExpression;
using printing::ParseExpressionAt;

using ParserTest = ExpressionTest;

TEST_F(ParserTest, NotBindsTighterThanAndThanOr) {
  EXPECT_TRUE(IsTrue("True Or True And False"));
  EXPECT_FALSE(IsTrue("(True Or True) And False"));
  EXPECT_TRUE(IsTrue("Not False And True"));
  EXPECT_FALSE(IsTrue("Not (False Or True)"));
  EXPECT_TRUE(IsTrue("not FALSE aNd TRUE"));
  EXPECT_TRUE(IsTrue("Not 1 = 2"));
}

TEST_F(ParserTest, ArithmeticBindsAsInSchool) {
  EXPECT_EQ(TextOf("2 + 3 * 4"), "14");
  EXPECT_EQ(TextOf("(2 + 3) * 4"), "20");
  EXPECT_EQ(TextOf("10 - 3 - 2"), "5");
  EXPECT_EQ(TextOf("12 / 3 / 2"), "2");
  EXPECT_EQ(TextOf("-2 * -3"), "6");
  EXPECT_EQ(TextOf("1 + 2 & 3 + 4"), "37");
}

TEST_F(ParserTest, TextsStandInEitherQuote) {
  EXPECT_EQ(TextOf("\"say \"\"no\"\"\""), "say \"no\"");
  EXPECT_EQ(TextOf("'it''s'"), "it's");
  EXPECT_EQ(TextOf("'say \"no\"'"), "say \"no\"");
}

TEST_F(ParserTest, NamesTakeBlanksAndAnyCase) {
  EXPECT_EQ(TextOf("{ c . NAME }"), "Smith");
  EXPECT_EQ(TextOf("{# all }"), "12.5");
}

TEST_F(ParserTest, ErrorsTellTheirPlace) {
  EXPECT_EQ(FaultOf(""), "syntax@0");
  EXPECT_EQ(FaultOf("1 +"), "syntax@3");
  EXPECT_EQ(FaultOf("1 + + 2"), "syntax@4");
  EXPECT_EQ(FaultOf("(1"), "syntax@2");
  EXPECT_EQ(FaultOf("1 2"), "syntax@2");
  EXPECT_EQ(FaultOf("1 = 2 = 3"), "syntax@6");
  EXPECT_EQ(FaultOf("'open"), "syntax@0");
  EXPECT_EQ(FaultOf("1 + {C.Name"), "syntax@4");
  EXPECT_EQ(FaultOf("{Name}"), "syntax@0");
  EXPECT_EQ(FaultOf("{C.}"), "syntax@0");
  EXPECT_EQ(FaultOf("{}"), "syntax@0");
  EXPECT_EQ(FaultOf("Nothing"), "syntax@0");
  EXPECT_EQ(FaultOf("Left('a')"), "syntax@8");
  EXPECT_EQ(FaultOf("Date(1999, 2, 29)"), "syntax@0");
  EXPECT_EQ(FaultOf("Date(1999, 2.5, 1)"), "syntax@11");
  EXPECT_EQ(FaultOf("1.2.3"), "syntax@0");
  EXPECT_EQ(FaultOf("12a"), "syntax@0");
  EXPECT_EQ(FaultOf("{C.Count} In [1, 2"), "syntax@18");
  EXPECT_EQ(FaultOf("{C.Count} In 1"), "syntax@14");
  EXPECT_EQ(FaultOf("{C.Name} Like {C.Name}"), "syntax@14");
  EXPECT_EQ(FaultOf("If True Then 1"), "syntax@14");
  EXPECT_EQ(FaultOf("1 # 2"), "syntax@2");
}

// A text with a character that stands above all others for the data engine.
TEST_F(ParserTest, SignsThatNoTextHoldsAreRefused) { EXPECT_EQ(FaultOf("\"a\xF4\x8F\xBF\xBF\""), "syntax@0"); }

TEST_F(ParserTest, AnExpressionEndsWhereNothingGoesOnWithIt) {
  const std::string text = "total {C.Count} + 1 when {C.Active}";
  std::size_t at = 6;
  ParseExpressionAt(text, at);
  EXPECT_EQ(text.substr(at), " when {C.Active}");
  at = 0;
  EXPECT_EQ(ParseExpressionAt("'x' left", at).kind, ExpressionKind::Constant);
  EXPECT_EQ(at, 3u);
}

std::string Repeated(std::string_view part, int times) {
  std::string text;
  for (int i = 0; i < times; ++i) text += part;
  return text;
}

TEST_F(ParserTest, DeepTextsAreRefused) {
  EXPECT_EQ(FaultOf(Repeated("(", 100'000)), "large@100");
  EXPECT_EQ(FaultOf(Repeated("Not ", 100'000) + "True").substr(0, 6), "large@");
  EXPECT_EQ(FaultOf(Repeated("-", 100'000) + "1").substr(0, 6), "large@");
  EXPECT_EQ(FaultOf(Repeated("1+", 100'000) + "1").substr(0, 6), "large@");
  EXPECT_EQ(FaultOf(Repeated("If True Then 1 Else ", 100'000) + "1").substr(0, 6), "large@");
  EXPECT_EQ(FaultOf(Repeated("Trim(", 100'000)).substr(0, 6), "large@");
}

TEST_F(ParserTest, LongRowsAreNotDeep) {
  EXPECT_TRUE(IsTrue(Repeated("False Or ", 5000) + "True"));
  EXPECT_EQ(TextOf(Repeated("'ab' & ", 3000) + "''").size(), 6000u);
}

}  // namespace
