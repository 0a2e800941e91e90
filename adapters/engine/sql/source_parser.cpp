#include "engine/sql/source_parser.h"

#include <algorithm>
#include <utility>

#include "engine/errors.h"
#include "engine/sql/expression_parser.h"

namespace engine::sql {
namespace {

constexpr int kDeepest = 60;

}  // namespace

std::vector<Source> SourceParser::ParseSources() {
  std::vector<Source> sources;
  do {
    sources.push_back(ParseSource());
  } while (tokens_.Skip(Symbol::Comma));
  return sources;
}

// 'file'.Table
bool SourceParser::AtFile() const {
  return tokens_.At(TokenKind::Text) && tokens_.At(Symbol::Dot, 1) && !tokens_.Peek().text.empty();
}

Source SourceParser::ParseSource() { return ParseJoins(0); }

Source SourceParser::ParseJoins(int depth) {
  if (depth > kDeepest) throw errors::QueryTooComplex();
  Source left = ParseTerm(depth);
  while (tokens_.AtJoinWord()) left = ParseJoin(std::move(left), depth);
  return left;
}

Source SourceParser::ParseTerm(int depth) {
  const std::size_t begin = tokens_.Peek().span.begin;
  if (tokens_.Skip(Symbol::Open)) {
    Source inner = ParseJoins(depth + 1);
    if (!tokens_.Skip(Symbol::Close)) throw errors::FromSyntax();
    if (Join* join = std::get_if<Join>(&inner.node)) join->inParentheses = true;
    return inner;
  }
  std::string file;
  if (AtFile()) {
    file = tokens_.Next().text;
    tokens_.Next();  // the dot
  }
  if (!tokens_.AtName()) throw errors::FromSyntax();
  TableName table{.name = tokens_.Next().text, .alias = {}, .file = std::move(file)};
  const bool as = tokens_.Skip(Keyword::As);
  if (as && !tokens_.AtName()) throw errors::FromSyntax();
  if (tokens_.AtName()) table.alias = tokens_.Next().text;
  return {.node = std::move(table), .span = {begin, tokens_.TokenAt(tokens_.Place() - 1).span.end}};
}

Source SourceParser::ParseJoin(Source left, int depth) {
  JoinKind kind = JoinKind::Inner;
  if (tokens_.At(Keyword::Left)) kind = JoinKind::Left;
  if (tokens_.At(Keyword::Right)) kind = JoinKind::Right;
  tokens_.Next();
  if (kind != JoinKind::Inner) tokens_.Skip(Keyword::Outer);
  if (!tokens_.Skip(Keyword::Join)) throw errors::JoinSyntax();
  if (!tokens_.AtName() && !tokens_.At(Symbol::Open) && !AtFile()) throw errors::JoinSyntax();
  Source right = ParseTerm(depth);
  Expression on = ParseOn();
  const int height = std::max(left.height, right.height) + 1;
  if (height > kDeepest) throw errors::QueryTooComplex();
  const Span span{left.span.begin, tokens_.TokenAt(tokens_.Place() - 1).span.end};
  return {
      .node = Join{.kind = kind, .left = std::move(left), .right = std::move(right), .on = std::move(on)}, .span = span, .height = height};
}

Expression SourceParser::ParseOn() {
  if (!tokens_.Skip(Keyword::On)) throw errors::JoinSyntax();
  const Token& first = tokens_.Peek();
  if (first.kind == TokenKind::End || first.symbol == Symbol::Semicolon || EndsExpression(first.keyword)) throw errors::JoinSyntax();
  ExpressionParser parser(tokens_, ExpressionPlace::On);
  Expression on = parser.Parse();
  const bool finished = tokens_.At(TokenKind::End) || tokens_.At(Symbol::Semicolon) || tokens_.At(Symbol::Comma) ||
                        tokens_.At(Symbol::Close) || tokens_.At(Keyword::In) || tokens_.AtJoinWord() ||
                        EndsExpression(tokens_.Peek().keyword);
  if (!finished) parser.FailHere();
  return on;
}

}  // namespace engine::sql
