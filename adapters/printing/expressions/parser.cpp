#include "printing/expressions/parser.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "platform/values/calendar.h"
#include "platform/values/text.h"
#include "printing/expressions/expression_error.h"
#include "printing/expressions/lexer.h"

namespace printing {
namespace {

using platform::EqualsNoCase;

struct NamedFunction {
  std::string_view name;
  Function function;
  std::size_t least, most;  ///< arguments
};
constexpr std::array kFunctions = {NamedFunction{"IsNull", Function::IsNull, 1, 1},       NamedFunction{"Trim", Function::Trim, 1, 1},
                                   NamedFunction{"UpperCase", Function::UpperCase, 1, 1}, NamedFunction{"Left", Function::Left, 2, 2},
                                   NamedFunction{"Right", Function::Right, 2, 2},         NamedFunction{"Length", Function::Length, 1, 1},
                                   NamedFunction{"ToText", Function::ToText, 1, 2},       NamedFunction{"Year", Function::Year, 1, 1},
                                   NamedFunction{"Month", Function::Month, 1, 1},         NamedFunction{"Round", Function::Round, 1, 2},
                                   NamedFunction{"ToNumber", Function::ToNumber, 1, 1}};

struct NamedSystemValue {
  std::string_view name;
  SystemValue value;
};
constexpr std::array kSystemValues = {
    NamedSystemValue{"PageNumber", SystemValue::PageNumber},     NamedSystemValue{"PageCount", SystemValue::PageCount},
    NamedSystemValue{"RecordNumber", SystemValue::RecordNumber}, NamedSystemValue{"Today", SystemValue::Today},
    NamedSystemValue{"Selection", SystemValue::Selection},       NamedSystemValue{"ReportTitle", SystemValue::ReportTitle}};

struct NamedOperator {
  std::string_view sign;
  Operator operation;
};
constexpr std::array kComparisons = {NamedOperator{"=", Operator::Equal},   NamedOperator{"<>", Operator::NotEqual},
                                     NamedOperator{"<", Operator::Less},    NamedOperator{"<=", Operator::LessOrEqual},
                                     NamedOperator{">", Operator::Greater}, NamedOperator{">=", Operator::GreaterOrEqual}};
constexpr std::array kSums = {NamedOperator{"+", Operator::Add}, NamedOperator{"-", Operator::Subtract}};
constexpr std::array kProducts = {NamedOperator{"*", Operator::Multiply}, NamedOperator{"/", Operator::Divide}};

// From the loosest to the tightest: Or, And, Not, comparisons, &, sums, products, minus. If may begin wherever a value may, and what is
// behind its Else goes on as far as it can.
class Parser {
 public:
  Parser(std::string_view text, std::size_t at) : text_(text) {
    token_ = ReadToken(text_, at);
    end_ = token_.begin;
  }

  Expression Parse() {
    const Level level(*this);
    if (!AtWord("If")) return ParseOr();
    Expression choice = Begin(ExpressionKind::Choice);
    Next();
    choice.operands.push_back(Parse());
    SkipWord("Then");
    choice.operands.push_back(Parse());
    SkipWord("Else");
    choice.operands.push_back(Parse());
    return Finish(std::move(choice));
  }

  std::size_t End() const { return end_; }
  const Token& Here() const { return token_; }

 private:
  // Counts how deep the reading is, since the levels of the text are also those of the calls.
  class Level {
   public:
    explicit Level(Parser& parser) : parser_(parser) {
      if (++parser_.depth_ > kHighestExpression) parser_.FailTooLarge();
    }
    ~Level() { --parser_.depth_; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

   private:
    Parser& parser_;
  };

  [[noreturn]] void Fail(std::string text) const { throw ExpressionError(ExpressionFault::Syntax, token_.begin, std::move(text)); }
  [[noreturn]] void FailTooLarge() const {
    throw ExpressionError(ExpressionFault::TooLarge, token_.begin, "The expression has too many levels.");
  }

  void Next() {
    end_ = token_.end;
    token_ = ReadToken(text_, token_.end);
  }
  bool AtWord(std::string_view word) const { return token_.kind == TokenKind::Word && EqualsNoCase(token_.text, word); }
  bool AtSymbol(std::string_view sign) const { return token_.kind == TokenKind::Symbol && token_.text == sign; }
  void SkipWord(std::string_view word) {
    if (!AtWord(word)) Fail(std::string(word) + " is missing.");
    Next();
  }
  void SkipSymbol(std::string_view sign) {
    if (!AtSymbol(sign)) Fail("The sign " + std::string(sign) + " is missing.");
    Next();
  }

  Expression Begin(ExpressionKind kind) const {
    Expression expression;
    expression.kind = kind;
    expression.place = token_.begin;
    return expression;
  }
  Expression Finish(Expression expression) const {
    for (const Expression& operand : expression.operands) expression.height = std::max(expression.height, operand.height + 1);
    if (expression.height > kHighestExpression) FailTooLarge();
    return expression;
  }
  Expression Behind(Expression first, ExpressionKind kind) const {
    Expression expression = Begin(kind);
    expression.place = first.place;
    expression.operands.push_back(std::move(first));
    return expression;
  }

  // Two or more operands in a row under one operator.
  template <class At, class Operand>
  Expression ParseChain(Operator operation, At at, Operand operand) {
    Expression first = operand();
    if (!at()) return first;
    Expression chain = Behind(std::move(first), ExpressionKind::Operation);
    chain.operation = operation;
    while (at()) {
      Next();
      chain.operands.push_back(operand());
    }
    return Finish(std::move(chain));
  }

  Expression ParseOr() {
    return ParseChain(
        Operator::Or, [&] { return AtWord("Or"); }, [&] { return ParseAnd(); });
  }
  Expression ParseAnd() {
    return ParseChain(
        Operator::And, [&] { return AtWord("And"); }, [&] { return ParseNot(); });
  }

  Expression ParseNot() {
    if (!AtWord("Not")) return ParseComparison();
    const Level level(*this);
    Expression negation = Begin(ExpressionKind::Operation);
    negation.operation = Operator::Not;
    Next();
    negation.operands.push_back(ParseNot());
    return Finish(std::move(negation));
  }

  Expression ParseComparison() {
    Expression left = ParseJoin();
    if (AtWord("In")) return ParseIn(std::move(left));
    if (AtWord("StartsWith") || AtWord("Like")) {
      const ExpressionKind kind = AtWord("Like") ? ExpressionKind::Like : ExpressionKind::StartsWith;
      Next();
      Expression test = Behind(std::move(left), kind);
      if (token_.kind != TokenKind::Text) Fail("A text in quotes must stand here.");
      test.operands.push_back(ParsePrimary());
      return Finish(std::move(test));
    }
    const std::optional<Operator> operation = OperatorHere(kComparisons);
    if (!operation) return left;
    return ParseBinary(std::move(left), *operation, [&] { return ParseJoin(); });
  }

  Expression ParseIn(Expression tested) {
    Next();
    if (AtSymbol("[")) {
      Expression list = Behind(std::move(tested), ExpressionKind::InList);
      do {
        Next();
        list.operands.push_back(ParseJoin());
      } while (AtSymbol(","));
      SkipSymbol("]");
      return Finish(std::move(list));
    }
    Expression range = Behind(std::move(tested), ExpressionKind::InRange);
    range.operands.push_back(ParseJoin());
    SkipWord("To");
    range.operands.push_back(ParseJoin());
    return Finish(std::move(range));
  }

  Expression ParseJoin() {
    return ParseChain(
        Operator::Join, [&] { return AtSymbol("&"); }, [&] { return ParseSum(); });
  }

  template <std::size_t N>
  std::optional<Operator> OperatorHere(const std::array<NamedOperator, N>& operators) const {
    for (const NamedOperator& each : operators) {
      if (AtSymbol(each.sign)) return each.operation;
    }
    return std::nullopt;
  }
  template <class Operand>
  Expression ParseBinary(Expression left, Operator operation, Operand operand) {
    Next();
    Expression both = Behind(std::move(left), ExpressionKind::Operation);
    both.operation = operation;
    both.operands.push_back(operand());
    return Finish(std::move(both));
  }

  Expression ParseSum() {
    Expression left = ParseProduct();
    while (const std::optional<Operator> operation = OperatorHere(kSums)) {
      left = ParseBinary(std::move(left), *operation, [&] { return ParseProduct(); });
    }
    return left;
  }
  Expression ParseProduct() {
    Expression left = ParseSigned();
    while (const std::optional<Operator> operation = OperatorHere(kProducts)) {
      left = ParseBinary(std::move(left), *operation, [&] { return ParseSigned(); });
    }
    return left;
  }

  Expression ParseSigned() {
    if (!AtSymbol("-")) return ParsePrimary();
    const Level level(*this);
    Expression negative = Begin(ExpressionKind::Operation);
    negative.operation = Operator::Negate;
    Next();
    negative.operands.push_back(ParseSigned());
    return Finish(std::move(negative));
  }

  Expression ParsePrimary() {
    switch (token_.kind) {
      case TokenKind::Number:
        return ParseConstant(token_.number);
      case TokenKind::Text: {
        std::optional<std::string> text = platform::Normalise(token_.text);
        if (!text) Fail("The text holds signs that no text may hold.");
        return ParseConstant(*std::move(text));
      }
      case TokenKind::Name: {
        Expression name = Begin(ExpressionKind::Name);
        name.nameKind = token_.nameKind;
        name.table = token_.table;
        name.name = token_.text;
        Next();
        return name;
      }
      case TokenKind::Word:
        return ParseWord();
      default:
        break;
    }
    if (!AtSymbol("(")) Fail("A value is missing.");
    Next();
    Expression inner = Parse();
    SkipSymbol(")");
    return inner;
  }

  Expression ParseConstant(platform::Value value) {
    Expression constant = Begin(ExpressionKind::Constant);
    constant.constant = std::move(value);
    Next();
    return constant;
  }

  Expression ParseWord() {
    if (AtWord("If")) return Parse();
    if (AtWord("True") || AtWord("False")) return ParseConstant(AtWord("True"));
    if (AtWord("Date")) return ParseDate();
    for (const NamedSystemValue& each : kSystemValues) {
      if (!AtWord(each.name)) continue;
      Expression system = Begin(ExpressionKind::System);
      system.system = each.value;
      Next();
      return system;
    }
    for (const NamedFunction& each : kFunctions) {
      if (AtWord(each.name)) return ParseCall(each);
    }
    Fail("The word " + token_.text + " means nothing here.");
  }

  Expression ParseCall(const NamedFunction& function) {
    Expression call = Begin(ExpressionKind::Call);
    call.function = function.function;
    Next();
    if (!AtSymbol("(")) Fail("The sign ( is missing.");
    do {
      Next();
      call.operands.push_back(Parse());
    } while (AtSymbol(","));
    if (call.operands.size() < function.least || call.operands.size() > function.most)
      Fail(std::string(function.name) + " takes another number of values.");
    SkipSymbol(")");
    return Finish(std::move(call));
  }

  int DatePart() {
    constexpr double kHighest = 9999;
    const double number = token_.number;
    if (token_.kind != TokenKind::Number || number > kHighest || number != static_cast<double>(static_cast<int>(number)))
      Fail("A whole number must stand here.");
    Next();
    return static_cast<int>(number);
  }

  Expression ParseDate() {
    Expression constant = Begin(ExpressionKind::Constant);
    Next();
    SkipSymbol("(");
    const int year = DatePart();
    SkipSymbol(",");
    const int month = DatePart();
    SkipSymbol(",");
    const int day = DatePart();
    const std::optional<platform::Date> date = platform::DateSerial(year, month, day);
    if (!date) throw ExpressionError(ExpressionFault::Syntax, constant.place, "There is no such day.");
    constant.constant = *date;
    SkipSymbol(")");
    return constant;
  }

  std::string_view text_;
  Token token_;
  std::size_t end_ = 0;  ///< behind the last token that was taken
  int depth_ = 0;
};

}  // namespace

Expression ParseExpression(std::string_view text) {
  Parser parser(text, 0);
  Expression expression = parser.Parse();
  if (parser.Here().kind != TokenKind::End)
    throw ExpressionError(ExpressionFault::Syntax, parser.Here().begin, "The expression should end here.");
  return expression;
}

Expression ParseExpressionAt(std::string_view text, std::size_t& at) {
  Parser parser(text, at);
  Expression expression = parser.Parse();
  at = parser.End();
  return expression;
}

}  // namespace printing
