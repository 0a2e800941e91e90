#include <gtest/gtest.h>

#include <string>

#include "engine/sql/parser.h"
#include "engine/sql/precedence.h"
#include "engine/sql/print.h"
#include "unit/engine/sql/expect_error.h"

namespace engine::sql {
namespace {

// The canonical print of a criterion; printing and parsing again must change nothing.
std::string Canonical(std::string_view text) {
  const Expression tree = ParseCriterion(text);
  const std::string printed = Print(tree);
  EXPECT_TRUE(ParseCriterion(printed) == tree) << printed;
  return printed;
}

// Two texts mean the same tree.
void ExpectSame(std::string_view plain, std::string_view grouped) {
  EXPECT_TRUE(ParseCriterion(plain) == ParseCriterion(grouped)) << Canonical(plain) << " / " << Canonical(grouped);
}

TEST(Expression, EachLevelBindsTighterThanTheNext) {
  ExpectSame("a ^ b * c", "(a ^ b) * c");
  ExpectSame("-a ^ b", "-(a ^ b)");
  ExpectSame("-a * b", "(-a) * b");
  ExpectSame("a \\ b * c", "a \\ (b * c)");
  ExpectSame("a Mod b \\ c", "a Mod (b \\ c)");
  ExpectSame("a + b Mod c", "a + (b Mod c)");
  ExpectSame("a & b + c", "a & (b + c)");
  ExpectSame("a = b & c", "a = (b & c)");
  ExpectSame("Not a = b", "Not (a = b)");
  ExpectSame("Not a And b", "(Not a) And b");
  ExpectSame("a Or b And c", "a Or (b And c)");
  ExpectSame("a Xor b Or c", "a Xor (b Or c)");
  ExpectSame("a Eqv b Xor c", "a Eqv (b Xor c)");
  ExpectSame("a Imp b Eqv c", "a Imp (b Eqv c)");
  ExpectSame("a <> b And c = d Or e", "((a <> b) And (c = d)) Or e");
}

TEST(Expression, SameLevelGoesLeftToRight) {
  ExpectSame("a - b - c", "(a - b) - c");
  ExpectSame("a - b + c", "(a - b) + c");
  ExpectSame("a / b * c", "(a / b) * c");
  ExpectSame("a ^ b ^ c", "(a ^ b) ^ c");
  ExpectSame("a = b = c", "(a = b) = c");
  ExpectSame("a Like b Like c", "(a Like b) Like c");
  ExpectSame("a Is Null Is Null", "(a Is Null) Is Null");
  ExpectSame("a In (1) In (2)", "(a In (1)) In (2)");
  ExpectSame("a < b Like c Is Not Null", "((a < b) Like c) Is Not Null");
  ExpectSame("a Imp b Imp c", "(a Imp b) Imp c");
}

TEST(Expression, BetweenKeepsItsOwnAnd) {
  ExpectSame("a Between 1 And 2 And b", "(a Between 1 And 2) And b");
  ExpectSame("a Between 1 + 2 And 3 & 4 = b", "(a Between (1 + 2) And (3 & 4)) = b");
  EXPECT_EQ(Canonical("a not between 1 and 2"), "a NOT BETWEEN 1 AND 2");
}

TEST(Expression, ChainsAreFlatUntilParenthesesSayOtherwise) {
  const Expression flat = ParseCriterion("a And b And c");
  EXPECT_EQ(std::get<Chain>(flat.node).operands.size(), 3u);
  EXPECT_FALSE(flat == ParseCriterion("(a And b) And c"));
  EXPECT_EQ(Canonical("(a And b) And c"), "(a AND b) AND c");
  EXPECT_EQ(Canonical("a And (b And c)"), "a AND (b AND c)");
  EXPECT_EQ(Canonical("a & b & c"), "a & b & c");
  ExpectSame("a And b Or c And d", "(a And b) Or (c And d)");
}

TEST(Expression, PrintsParenthesesOnlyWhereTheyMatter) {
  EXPECT_EQ(Canonical("((([AcctNum])=(5)))"), "AcctNum = 5");
  EXPECT_EQ(Canonical("(a + b) * c"), "(a + b) * c");
  EXPECT_EQ(Canonical("a - (b - c)"), "a - (b - c)");
  EXPECT_EQ(Canonical("(-2) ^ 2"), "(-2) ^ 2");
  EXPECT_EQ(Canonical("-2 ^ 2"), "-2 ^ 2");
  EXPECT_EQ(Canonical("2 ^ -3"), "2 ^ (-3)");
  EXPECT_EQ(Canonical("--a"), "--a");
  EXPECT_EQ(Canonical("a = (Not b)"), "a = (NOT b)");
  EXPECT_EQ(Canonical("a = Not b"), "a = (NOT b)");
}

TEST(Expression, Literals) {
  EXPECT_EQ(Canonical("a = 'O''Brien'"), "a = 'O''Brien'");
  EXPECT_EQ(Canonical("a = \"O'Brien\""), "a = 'O''Brien'");
  EXPECT_EQ(Canonical("a = #1999-01-31#"), "a = #1/31/1999#");
  EXPECT_EQ(Canonical("a = #1/31/1999 1:20:34 PM#"), "a = #1/31/1999 13:20:34#");
  EXPECT_EQ(Canonical("a = 3000000000"), "a = 3e+09");
  EXPECT_EQ(Canonical("a = .5"), "a = 0.5");
  EXPECT_EQ(Canonical("a = 1e300"), "a = 1e+300");
  EXPECT_EQ(Canonical("a=TRUE or b=no or c=On or d=NULL"), "a = True OR b = False OR c = True OR d = Null");
}

TEST(Expression, NamesTakeBracketsWhereTheyNeedThem) {
  EXPECT_EQ(Canonical("[Adjusted Rate] > 1"), "[Adjusted Rate] > 1");
  EXPECT_EQ(Canonical("[And] = 1"), "[And] = 1");
  EXPECT_EQ(Canonical("[Yes] = 1"), "[Yes] = 1");
  EXPECT_EQ(Canonical("[1st] = 1"), "[1st] = 1");
  EXPECT_EQ(Canonical("T.Order = U.[Two Words]"), "T.[Order] = U.[Two Words]");
  EXPECT_EQ(Canonical("Stra\xC3\x9F"
                      "e = 1"),
            "Stra\xC3\x9F"
            "e = 1");
}

TEST(Expression, WordsThatLookReservedAreNames) {
  for (const char* name : {"Text", "Type", "Name", "Primary", "Year", "Code", "Comment", "Limit", "Title", "Zip", "Terms", "Message",
                           "Sequence", "Description", "Left", "Right", "All"}) {
    EXPECT_EQ(Canonical(std::string(name) + "=1"), std::string(name) + " = 1");
  }
}

TEST(Expression, Calls) {
  EXPECT_EQ(Canonical("Val([Type])>0"), "Val(Type) > 0");
  EXPECT_EQ(Canonical("left( a , 2 ) = 'x'"), "left(a, 2) = 'x'");
  EXPECT_EQ(Canonical("Now() > 1"), "Now() > 1");
  EXPECT_EQ(Canonical("Count(*) > 1"), "Count(*) > 1");
  EXPECT_EQ(Canonical("InStr(1, a, (b + c))=0"), "InStr(1, a, b + c) = 0");
}

TEST(Expression, SpansCoverTheNode) {
  const Expression tree = ParseCriterion("  a = 1 And bb = 2 ");
  EXPECT_EQ(tree.span.begin, 2u);
  EXPECT_EQ(tree.span.end, 18u);
  EXPECT_EQ(std::get<Chain>(tree.node).operands[1].span.begin, 12u);
}

TEST(Expression, CopiesCompareEqual) {
  const Expression tree = ParseCriterion("a Between 1 And f(b, c) And d Like 'x*' Or Not e In (1, 2) And g Is Null");
  Expression copy = tree;
  EXPECT_TRUE(copy == tree);
  copy = ParseCriterion("a = 1");
  EXPECT_FALSE(copy == tree);
}

TEST(Expression, LongChainsAreNoDeepTrees) {
  std::string text = "a = 0";
  for (int i = 1; i < 5000; ++i) text += " or a = " + std::to_string(i);
  EXPECT_EQ(std::get<Chain>(ParseCriterion(text).node).operands.size(), 5000u);
}

TEST(Expression, DeepOnesAreRefused) {
  const auto repeated = [](std::string_view piece, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) text += piece;
    return text;
  };
  constexpr int many = 100'000;
  for (const std::string& text : {repeated("(", many) + "a", repeated("Not ", many) + "a", repeated("-", many) + "a", repeated("f(", many),
                                  repeated("a+", many) + "a", repeated("a=", many) + "a", repeated("a Imp ", many) + "a",
                                  repeated("a In (", many), repeated("a^", many) + "a"}) {
    ExpectError(3360, "Query is too complex.", [&] { ParseCriterion(text); });
  }
  EXPECT_NO_THROW(ParseCriterion(repeated("(", 40) + "a" + repeated(")", 40)));
}

TEST(Expression, BadBytesAreRefused) {
  ExpectError(3075, "", [] { ParseCriterion(std::string_view("a='\0'", 5)); });
  ExpectError(3075, "", [] { ParseCriterion("a='\xFF'"); });
}

}  // namespace
}  // namespace engine::sql
