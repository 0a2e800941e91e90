#include "engine/sql/lexer.h"

#include <gtest/gtest.h>

#include <string>

namespace engine::sql {
namespace {

// One word a token, so that a whole text reads as one line.
std::string Show(std::string_view text) {
  std::string shown;
  for (const Token& token : Lex(text)) {
    if (!shown.empty()) shown += ' ';
    switch (token.kind) {
      case TokenKind::End:
        shown += ".";
        break;
      case TokenKind::Word:
        shown += (token.keyword == Keyword::None ? "name:" : "word:") + token.text;
        break;
      case TokenKind::Bracketed:
        shown += "bracketed:" + token.text;
        break;
      case TokenKind::Text:
        shown += "text:" + token.text;
        break;
      case TokenKind::Number:
        shown += token.value.Kind() == platform::ValueKind::Long ? "long:" + std::to_string(token.value.As<std::int32_t>())
                                                                 : "real:" + std::to_string(token.value.As<double>());
        break;
      case TokenKind::Date:
        shown += "date";
        break;
      case TokenKind::Symbol:
        shown += std::string(text.substr(token.span.begin, token.span.end - token.span.begin));
        break;
      case TokenKind::Bad:
        shown += "bad:" + token.text;
        break;
    }
  }
  return shown;
}

TEST(Lexer, KeywordsHaveNoCase) { EXPECT_EQ(Show("select Order bY AS oR"), "word:select word:Order word:bY word:AS word:oR ."); }

TEST(Lexer, NeedsNoBlankBetweenTokens) {
  EXPECT_EQ(Show("IN 'path'Select"), "word:IN text:path word:Select .");
  EXPECT_EQ(Show("(NonBillable=False)"), "( name:NonBillable = word:False ) .");
  EXPECT_EQ(Show("a<>b<=c>=d<e"), "name:a <> name:b <= name:c >= name:d < name:e .");
}

TEST(Lexer, BlanksAreBlankTabAndLineEnds) {
  EXPECT_EQ(Show(" a\t\r\n b "), "name:a name:b .");
  EXPECT_EQ(Show(""), ".");
}

TEST(Lexer, BracketsAreNoPartOfTheName) {
  EXPECT_EQ(Show("[Adjusted Rate]"), "bracketed:Adjusted Rate .");
  EXPECT_EQ(Show("[Select]"), "bracketed:Select .");
  EXPECT_EQ(Show("[O'Brien]"), "bracketed:O'Brien .");
}

TEST(Lexer, TextDoublesItsOwnQuoteAndTakesTheOtherAsItIs) {
  EXPECT_EQ(Show("'O''Brien'"), "text:O'Brien .");
  EXPECT_EQ(Show("\"say \"\"so\"\"\""), "text:say \"so\" .");
  EXPECT_EQ(Show("'a\"b' \"a'b\""), "text:a\"b text:a'b .");
  EXPECT_EQ(Show("''"), "text: .");
  EXPECT_EQ(Show("'a\\'"), "text:a\\ .");
}

TEST(Lexer, WholeNumbersInRangeAreLong) {
  EXPECT_EQ(Show("0 5 2147483647"), "long:0 long:5 long:2147483647 .");
  EXPECT_EQ(Show("2147483648"), "real:2147483648.000000 .");
  EXPECT_EQ(Show("1.5 .25 2. 1e2 1.5E-1"), "real:1.500000 real:0.250000 real:2.000000 real:100.000000 real:0.150000 .");
}

TEST(Lexer, MinusIsAnOperatorAndTwoOfThemNoComment) {
  EXPECT_EQ(Show("-5"), "- long:5 .");
  EXPECT_EQ(Show("--5"), "- - long:5 .");
}

TEST(Lexer, NumberBesideWordAreTwoTokens) { EXPECT_EQ(Show("12a"), "long:12 name:a ."); }

TEST(Lexer, DotBehindNameIsNoNumber) { EXPECT_EQ(Show("T.5"), "name:T . long:5 ."); }

TEST(Lexer, BadTokensSayWhatIsWrong) {
  EXPECT_EQ(Show("a='It"), "name:a = bad:Syntax error in string .");
  EXPECT_EQ(Show("#__/__/____#"), "bad:Syntax error in date .");
  EXPECT_EQ(Show("#1/1/1999"), "bad:Syntax error in date .");
  EXPECT_EQ(Show("## b"), "bad:Syntax error in date name:b .");
  EXPECT_EQ(Show("1.2.3"), "bad:Syntax error in number .");
  EXPECT_EQ(Show("1e+"), "bad:Syntax error in number .");
  EXPECT_EQ(Show("1e999"), "bad:Syntax error in number .");
  EXPECT_EQ(Show("[Name"), "bad:Missing ), ], or Item .");
  EXPECT_EQ(Show("[]"), "bad:Missing ), ], or Item .");
  EXPECT_EQ(Show("a!b"), "name:a bad:Syntax error (missing operator) name:b .");
}

TEST(Lexer, SpansCoverTheText) {
  const std::vector<Token> tokens = Lex("ab >= 'x'");
  ASSERT_EQ(tokens.size(), 4u);
  EXPECT_EQ(tokens[1].span.begin, 3u);
  EXPECT_EQ(tokens[1].span.end, 5u);
  EXPECT_EQ(tokens[2].span.end, 9u);
  EXPECT_EQ(tokens[3].span.begin, 9u);
}

}  // namespace
}  // namespace engine::sql
