#include "engine/sql/expression_parser.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "engine/errors.h"
#include "engine/sql/precedence.h"

namespace engine::sql {
namespace {

// A refused statement is better than an exhausted stack: how far the parser may be inside itself, and how many levels of
// nodes a tree may have.
constexpr int kDeepest = 400;
constexpr int kHighest = 100;

BinaryOperator BinaryOf(const Token& token) {
  switch (token.symbol) {
    case Symbol::Caret:
      return BinaryOperator::Power;
    case Symbol::Star:
      return BinaryOperator::Multiply;
    case Symbol::Slash:
      return BinaryOperator::Divide;
    case Symbol::Backslash:
      return BinaryOperator::IntegerDivide;
    case Symbol::Plus:
      return BinaryOperator::Add;
    case Symbol::Minus:
      return BinaryOperator::Subtract;
    case Symbol::NotEqual:
      return BinaryOperator::NotEqual;
    case Symbol::Less:
      return BinaryOperator::Less;
    case Symbol::Greater:
      return BinaryOperator::Greater;
    case Symbol::LessEqual:
      return BinaryOperator::LessEqual;
    case Symbol::GreaterEqual:
      return BinaryOperator::GreaterEqual;
    default:
      break;
  }
  switch (token.keyword) {
    case Keyword::Mod:
      return BinaryOperator::Modulo;
    case Keyword::Xor:
      return BinaryOperator::Xor;
    case Keyword::Eqv:
      return BinaryOperator::Eqv;
    case Keyword::Imp:
      return BinaryOperator::Imp;
    default:
      return BinaryOperator::Equal;
  }
}

int HighestOf(const std::vector<Expression>& expressions) {
  int height = 0;
  for (const Expression& expression : expressions) height = std::max(height, expression.height);
  return height;
}

}  // namespace

class ExpressionParser::Level {
 public:
  explicit Level(int& depth) : depth_(depth) {
    if (++depth_ > kDeepest) throw errors::QueryTooComplex();
  }
  ~Level() { --depth_; }
  Level(const Level&) = delete;
  Level& operator=(const Level&) = delete;

 private:
  int& depth_;
};

ExpressionParser::ExpressionParser(TokenStream& tokens, ExpressionPlace place) : tokens_(tokens), place_(place), first_(tokens.Place()) {}

Expression ExpressionParser::Parse() { return ParseBinary(level::implication); }

int ExpressionParser::OperatorLevel() const {
  switch (tokens_.Peek().symbol) {
    case Symbol::Caret:
      return level::power;
    case Symbol::Star:
    case Symbol::Slash:
      return level::product;
    case Symbol::Backslash:
      return level::integerDivide;
    case Symbol::Plus:
    case Symbol::Minus:
      return level::sum;
    case Symbol::Ampersand:
      return level::concat;
    case Symbol::Equal:
    case Symbol::NotEqual:
    case Symbol::Less:
    case Symbol::Greater:
    case Symbol::LessEqual:
    case Symbol::GreaterEqual:
      return level::comparison;
    default:
      break;
  }
  switch (tokens_.Peek().keyword) {
    case Keyword::Mod:
      return level::modulo;
    case Keyword::Like:
    case Keyword::Is:
    case Keyword::Between:
    case Keyword::In:
      return level::comparison;
    case Keyword::Not:
      return AtNegatedPredicate() ? level::comparison : 0;
    case Keyword::And:
      return level::conjunction;
    case Keyword::Or:
      return level::disjunction;
    case Keyword::Xor:
      return level::exclusive;
    case Keyword::Eqv:
      return level::equivalence;
    case Keyword::Imp:
      return level::implication;
    default:
      return 0;
  }
}

bool ExpressionParser::AtNegatedPredicate() const {
  return tokens_.At(Keyword::Like, 1) || tokens_.At(Keyword::Between, 1) || tokens_.At(Keyword::In, 1);
}

Expression ExpressionParser::ParseBinary(int loosest) {
  const Level here(depth_);
  Expression left = ParsePrefix();
  // Operands of one chain operator in a row go into one node as long as nothing else stands between them.
  std::optional<ChainOperator> open;
  for (int found = OperatorLevel(); found != 0 && found <= loosest; found = OperatorLevel()) {
    std::optional<ChainOperator> chain;
    if (found == level::concat) chain = ChainOperator::Concat;
    if (found == level::conjunction) chain = ChainOperator::And;
    if (found == level::disjunction) chain = ChainOperator::Or;
    if (!chain) {
      left = ParseOperator(std::move(left), found);
    } else {
      tokens_.Next();
      Expression right = ParseBinary(found - 1);
      const int height = std::max(left.height + (chain == open ? 0 : 1), right.height + 1);
      const std::size_t begin = left.span.begin;
      Chain node{.op = *chain, .operands = {}};
      if (chain == open) {
        node = std::move(std::get<Chain>(left.node));
      } else {
        node.operands.push_back(std::move(left));
      }
      node.operands.push_back(std::move(right));
      left = Make(std::move(node), begin, height - 1);
    }
    open = chain;
  }
  return left;
}

Expression ExpressionParser::ParseOperator(Expression left, int operatorLevel) {
  if (operatorLevel == level::comparison && tokens_.At(TokenKind::Word)) return ParsePredicate(std::move(left));
  const BinaryOperator op = BinaryOf(tokens_.Next());
  Expression right = ParseBinary(operatorLevel - 1);
  const std::size_t begin = left.span.begin;
  const int height = std::max(left.height, right.height);
  return Make(Binary{.op = op, .left = std::move(left), .right = std::move(right)}, begin, height);
}

Expression ExpressionParser::ParsePredicate(Expression left) {
  const bool negated = tokens_.Skip(Keyword::Not);
  const std::size_t begin = left.span.begin;
  if (tokens_.Skip(Keyword::Like)) {
    Expression pattern = ParseBinary(level::concat);
    const int height = std::max(left.height, pattern.height);
    return Make(Like{.value = std::move(left), .pattern = std::move(pattern), .negated = negated}, begin, height);
  }
  if (tokens_.Skip(Keyword::Between)) {
    Expression low = ParseBinary(level::concat);
    if (!tokens_.Skip(Keyword::And)) FailHere();
    Expression high = ParseBinary(level::concat);
    const int height = std::max({left.height, low.height, high.height});
    return Make(Between{.value = std::move(left), .low = std::move(low), .high = std::move(high), .negated = negated}, begin, height);
  }
  if (tokens_.Skip(Keyword::In)) return ParseIn(std::move(left), negated);
  tokens_.Next();  // IS
  const bool isNot = tokens_.Skip(Keyword::Not);
  if (!tokens_.Skip(Keyword::Null)) FailHere();
  const int height = left.height;
  return Make(IsNull{.value = std::move(left), .negated = isNot}, begin, height);
}

Expression ExpressionParser::ParseIn(Expression left, bool negated) {
  if (!tokens_.Skip(Symbol::Open)) FailHere();
  std::vector<Expression> items = ParseList();
  ExpectClose();
  const std::size_t begin = left.span.begin;
  const int height = std::max(left.height, HighestOf(items));
  return Make(InList{.value = std::move(left), .items = std::move(items), .negated = negated}, begin, height);
}

Expression ExpressionParser::ParsePrefix() {
  const Level here(depth_);
  const std::size_t begin = tokens_.Peek().span.begin;
  UnaryOperator op = UnaryOperator::Not;
  int operandLevel = level::negation;
  if (tokens_.At(Symbol::Minus) || tokens_.At(Symbol::Plus)) {
    op = tokens_.At(Symbol::Minus) ? UnaryOperator::Minus : UnaryOperator::Plus;
    operandLevel = level::power;
  } else if (!tokens_.At(Keyword::Not)) {
    return ParsePrimary();
  }
  tokens_.Next();
  Expression operand = ParseBinary(operandLevel);
  const int height = operand.height;
  return Make(Unary{.op = op, .operand = std::move(operand)}, begin, height);
}

Expression ExpressionParser::ParsePrimary() {
  const Token& token = tokens_.Peek();
  const std::size_t begin = token.span.begin;
  switch (token.kind) {
    case TokenKind::Number:
    case TokenKind::Date:
      return Make(Literal{tokens_.Next().value}, begin, 0);
    case TokenKind::Text:
      return Make(Literal{tokens_.Next().text}, begin, 0);
    case TokenKind::Bracketed:
      return ParseName();
    case TokenKind::Word:
      return ParseWord();
    default:
      break;
  }
  if (tokens_.At(Symbol::Open)) return ParseParentheses();
  FailHere();
}

Expression ExpressionParser::ParseWord() {
  const Token& token = tokens_.Peek();
  const bool isName = tokens_.At(Symbol::Dot, 1) || tokens_.At(Symbol::Open, 1);
  const auto constant = [&](platform::Value value) {
    const std::size_t begin = tokens_.Next().span.begin;
    return Make(Literal{std::move(value)}, begin, 0);
  };
  switch (token.keyword) {
    case Keyword::Null:
      return constant(platform::Null);
    case Keyword::True:
      return constant(true);
    case Keyword::False:
      return constant(false);
    case Keyword::On:
      return constant(true);
    case Keyword::Yes:
      if (!isName) return constant(true);
      break;
    case Keyword::No:
    case Keyword::Off:
      if (!isName) return constant(false);
      break;
    default:
      break;
  }
  if (!tokens_.AtName()) FailHere();
  return ParseName();
}

Expression ExpressionParser::ParseName() {
  const std::size_t begin = tokens_.Peek().span.begin;
  std::string name = tokens_.Next().text;
  if (tokens_.At(Symbol::Open)) return ParseCall(std::move(name), begin);
  if (!tokens_.Skip(Symbol::Dot)) return Make(FieldName{.table = {}, .name = std::move(name)}, begin, 0);
  // Behind a dot every word is a name.
  if (!tokens_.At(TokenKind::Word) && !tokens_.At(TokenKind::Bracketed)) FailHere();
  return Make(FieldName{.table = std::move(name), .name = tokens_.Next().text}, begin, 0);
}

Expression ExpressionParser::ParseCall(std::string name, std::size_t begin) {
  tokens_.Next();  // (
  Call call{.name = std::move(name), .arguments = {}};
  if (tokens_.At(Symbol::Star) && tokens_.At(Symbol::Close, 1)) {
    tokens_.Next();
    call.star = true;
  } else if (!tokens_.At(Symbol::Close)) {
    call.arguments = ParseList();
  }
  ExpectClose();
  const int height = HighestOf(call.arguments);
  return Make(std::move(call), begin, height);
}

std::vector<Expression> ExpressionParser::ParseList() {
  std::vector<Expression> items;
  do {
    if (tokens_.At(Symbol::Comma)) Fail(message::kComma);
    if (tokens_.At(Symbol::Close)) Fail(items.empty() ? message::kMissingItem : message::kComma);
    items.push_back(ParseBinary(level::implication));
  } while (tokens_.Skip(Symbol::Comma));
  return items;
}

Expression ExpressionParser::ParseParentheses() {
  tokens_.Next();  // (
  Expression inner = ParseBinary(level::implication);
  ExpectClose();
  return inner;
}

void ExpressionParser::ExpectClose() {
  if (tokens_.Skip(Symbol::Close)) return;
  const Token& token = tokens_.Peek();
  const bool over = token.kind == TokenKind::End || token.symbol == Symbol::Semicolon || EndsExpression(token.keyword);
  if (over) Fail(message::kMissingItem);
  FailHere();
}

Expression ExpressionParser::Make(decltype(Expression::node) node, std::size_t begin, int height) const {
  if (height >= kHighest) throw errors::QueryTooComplex();
  const std::size_t end = tokens_.Place() == 0 ? begin : tokens_.TokenAt(tokens_.Place() - 1).span.end;
  return {.node = std::move(node), .span = {begin, end}, .height = height + 1};
}

void ExpressionParser::FailHere() const {
  const Token& token = tokens_.Peek();
  if (token.kind == TokenKind::Bad) Fail(token.text);
  if (token.symbol == Symbol::Comma) Fail(message::kComma);
  Fail(message::kMissingOperator);
}

void ExpressionParser::Fail(std::string_view message) const {
  if (place_ == ExpressionPlace::Criterion) throw errors::CriterionExpression(message);
  throw errors::QueryExpression(message, Quoted());
}

bool ExpressionParser::EndsHere(const Token& token, std::size_t at, int depth) const {
  if (token.kind == TokenKind::End || token.symbol == Symbol::Semicolon) return true;
  if (place_ != ExpressionPlace::Where && depth <= 0 && token.symbol == Symbol::Comma) return true;
  if (place_ != ExpressionPlace::Where && depth < 0) return true;
  if (token.keyword == Keyword::Order) return tokens_.TokenAt(at + 1).keyword == Keyword::By;
  if (token.keyword == Keyword::Where || token.keyword == Keyword::From) return true;
  if (place_ == ExpressionPlace::Item)
    return token.keyword == Keyword::As || token.keyword == Keyword::Asc || token.keyword == Keyword::Desc;
  if (place_ == ExpressionPlace::On) return token.keyword == Keyword::Join || tokens_.IsJoinWord(at);
  return false;
}

// The expression's own text, from its first token to where its clause ends: what is wrong in it does not matter.
std::string_view ExpressionParser::Quoted() const {
  const std::size_t begin = tokens_.TokenAt(first_).span.begin;
  std::size_t end = begin;
  int depth = 0;
  for (std::size_t at = first_;; ++at) {
    const Token& token = tokens_.TokenAt(at);
    if (token.symbol == Symbol::Open) ++depth;
    if (token.symbol == Symbol::Close) --depth;
    if (EndsHere(token, at, depth)) break;
    end = token.span.end;
  }
  std::string_view text = tokens_.Text().substr(begin, end - begin);
  // An open quote swallows the statement's own end.
  const std::size_t last = text.find_last_not_of(" \t\r\n;");
  return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

}  // namespace engine::sql
