#include "printing/expressions/evaluation/ready_expression.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "platform/values/text.h"
#include "printing/expressions/evaluation/comparisons.h"
#include "printing/expressions/evaluation/logic.h"
#include "printing/expressions/evaluation/numbers.h"
#include "printing/expressions/evaluation/texts.h"
#include "printing/expressions/expression_error.h"

namespace printing {
namespace {

using platform::ValueKind;

// Formulas stand inside others as often as they are named, so few lines can mean more parts than any machine has room for.
constexpr int kMostParts = 10'000;
constexpr int kMostLevels = 400;

ValueType TypeOfConstant(const platform::Value& value) {
  switch (value.Kind()) {
    case ValueKind::Boolean:
      return ValueType::Boolean;
    case ValueKind::Date:
      return ValueType::Date;
    case ValueKind::Text:
      return ValueType::Text;
    default:
      return ValueType::Number;
  }
}

class Maker {
 public:
  Maker(Names& names, const TextRules& rules) : names_(names), rules_(rules) {}

  NodePtr Make(const Expression& expression) {
    if (++parts_ > kMostParts || levels_ >= kMostLevels)
      throw ExpressionError(ExpressionFault::TooLarge, Place(expression), "The expression and its formulas have too many parts.");
    ++levels_;
    NodePtr node = MakeKind(expression);
    --levels_;
    return node;
  }

  NodePtr MakeBoolean(const Expression& expression) { return MakeOf(ValueType::Boolean, expression, "A condition must stand here."); }

 private:
  // What is wrong inside a formula is shown where the outermost one is named.
  std::size_t Place(const Expression& expression) const { return formulaPlace_.value_or(expression.place); }
  [[noreturn]] void Fail(ExpressionFault fault, const Expression& at, std::string text) const {
    if (!formulas_.empty()) text += " (in the formula " + formulas_.back()->name + ")";
    throw ExpressionError(fault, Place(at), std::move(text));
  }
  [[noreturn]] void FailTypes(const Expression& at, std::string text) const { Fail(ExpressionFault::Types, at, std::move(text)); }

  NodePtr MakeOf(ValueType type, const Expression& expression, const char* complaint) {
    NodePtr node = Make(expression);
    if (node->Type() != type) FailTypes(expression, complaint);
    return node;
  }
  NodePtr MakeText(const Expression& expression) { return MakeOf(ValueType::Text, expression, "A text must stand here."); }
  NodePtr MakeNumber(const Expression& expression) { return MakeOf(ValueType::Number, expression, "A number must stand here."); }

  NodePtr MakeKind(const Expression& expression) {
    switch (expression.kind) {
      case ExpressionKind::Constant:
        return MakeConstant(TypeOfConstant(expression.constant), expression.constant);
      case ExpressionKind::Name:
        return MakeName(expression);
      case ExpressionKind::System:
        return MakeSystemValue(expression.system);
      case ExpressionKind::Operation:
        return MakeOperation(expression);
      case ExpressionKind::Call:
        return MakeCall(expression);
      case ExpressionKind::InList:
      case ExpressionKind::InRange:
        return MakeIn(expression);
      case ExpressionKind::StartsWith:
        return MakeLike(MakeText(expression.operands[0]), EnginePatternOfStart(PatternOf(expression)), rules_);
      case ExpressionKind::Like:
        return MakeLike(MakeText(expression.operands[0]), EnginePattern(PatternOf(expression)), rules_);
      case ExpressionKind::Choice:
        break;
    }
    NodePtr condition = MakeBoolean(expression.operands[0]);
    NodePtr then = Make(expression.operands[1]);
    NodePtr otherwise = MakeSame(then->Type(), expression.operands[2]);
    return MakeChoice(std::move(condition), std::move(then), std::move(otherwise));
  }

  const std::string& PatternOf(const Expression& test) const {
    const platform::Value& pattern = test.operands[1].constant;
    if (!pattern.IsText()) FailTypes(test, "A text in quotes must stand here.");
    return pattern.As<std::string>();
  }

  NodePtr MakeSame(ValueType type, const Expression& expression) {
    return MakeOf(type, expression, "Values of two types meet here: both must be texts, numbers, dates or conditions.");
  }

  NodePtr MakeName(const Expression& name) {
    switch (name.nameKind) {
      case NameKind::Field:
        if (const auto place = names_.Field(name.table, name.name)) return MakeField(*place);
        Fail(ExpressionFault::UnknownName, name, "There is no field {" + name.table + '.' + name.name + "}.");
      case NameKind::Total:
        if (const auto place = names_.Total(name.name)) return MakeTotal(*place);
        Fail(ExpressionFault::UnknownName, name, "There is no total {#" + name.name + "} that can stand here.");
      case NameKind::Formula:
        break;
    }
    const Names::FormulaOf formula = names_.Formula(name.name);
    if (formula.expression == nullptr) Fail(ExpressionFault::UnknownName, name, "There is no formula {@" + name.name + "}.");
    const auto sameName = [&](const Expression* outer) { return platform::EqualsNoCase(outer->name, name.name); };
    if (std::ranges::any_of(formulas_, sameName))
      Fail(ExpressionFault::Circle, name, "The formula {@" + name.name + "} needs its own value.");
    if (formulas_.empty()) formulaPlace_ = name.place;
    formulas_.push_back(&name);
    NodePtr node = MakeOf(formula.type, *formula.expression, "The formula gives another type of value than it says.");
    formulas_.pop_back();
    if (formulas_.empty()) formulaPlace_.reset();
    return node;
  }

  NodePtr MakeOperation(const Expression& operation) {
    const std::vector<Expression>& operands = operation.operands;
    switch (operation.operation) {
      case Operator::And:
      case Operator::Or: {
        std::vector<NodePtr> conditions;
        for (const Expression& operand : operands) conditions.push_back(MakeBoolean(operand));
        return MakeChain(operation.operation, std::move(conditions));
      }
      case Operator::Not:
        return MakeNot(MakeBoolean(operands[0]));
      case Operator::Join: {
        std::vector<NodePtr> parts;
        for (const Expression& operand : operands) parts.push_back(Make(operand));
        return MakeJoin(std::move(parts));
      }
      case Operator::Negate:
        return MakeNegative(MakeNumber(operands[0]));
      case Operator::Add:
      case Operator::Subtract:
      case Operator::Multiply:
      case Operator::Divide:
        return MakeSum(operation);
      default:
        break;
    }
    NodePtr left = Make(operands[0]);
    NodePtr right = MakeSame(left->Type(), operands[1]);
    return MakeComparison(operation.operation, std::move(left), std::move(right), rules_);
  }

  NodePtr MakeSum(const Expression& operation) {
    NodePtr left = Make(operation.operands[0]);
    NodePtr right = Make(operation.operands[1]);
    const ValueType a = left->Type();
    const ValueType b = right->Type();
    const bool add = operation.operation == Operator::Add;
    const bool subtract = operation.operation == Operator::Subtract;
    std::optional<ValueType> type;
    if (a == ValueType::Number && b == ValueType::Number) type = ValueType::Number;
    if ((add || subtract) && a == ValueType::Date && b == ValueType::Number) type = ValueType::Date;
    if (add && a == ValueType::Number && b == ValueType::Date) type = ValueType::Date;
    if (subtract && a == ValueType::Date && b == ValueType::Date) type = ValueType::Number;
    if (!type) FailTypes(operation, "Only numbers can be reckoned with, and days added to dates; texts are joined by &.");
    return MakeArithmetic(operation.operation, *type, std::move(left), std::move(right));
  }

  NodePtr MakeIn(const Expression& in) {
    NodePtr tested = Make(in.operands[0]);
    std::vector<NodePtr> others;
    for (std::size_t i = 1; i < in.operands.size(); ++i) others.push_back(MakeSame(tested->Type(), in.operands[i]));
    if (in.kind == ExpressionKind::InList) return MakeInList(std::move(tested), std::move(others), rules_);
    return MakeInRange(std::move(tested), std::move(others[0]), std::move(others[1]), rules_);
  }

  NodePtr MakeCall(const Expression& call) {
    const std::vector<Expression>& arguments = call.operands;
    const bool two = arguments.size() > 1;
    switch (call.function) {
      case Function::IsNull:
        return MakeIsNull(Make(arguments[0]));
      case Function::Trim:
      case Function::UpperCase:
        return MakeTextChange(call.function, MakeText(arguments[0]));
      case Function::Left:
      case Function::Right: {
        NodePtr text = MakeText(arguments[0]);
        return MakeTextPart(call.function, std::move(text), MakeNumber(arguments[1]));
      }
      case Function::Length:
        return MakeLength(MakeText(arguments[0]));
      case Function::ToText: {
        NodePtr value = Make(arguments[0]);
        return MakeToText(std::move(value), two ? MakeText(arguments[1]) : nullptr);
      }
      case Function::Year:
      case Function::Month:
        return MakeDatePart(call.function, MakeOf(ValueType::Date, arguments[0], "A date must stand here."));
      case Function::ToNumber:
        return MakeToNumber(MakeText(arguments[0]));
      case Function::Round:
        break;
    }
    NodePtr number = MakeNumber(arguments[0]);
    return MakeRound(std::move(number), two ? MakeNumber(arguments[1]) : nullptr);
  }

  Names& names_;
  const TextRules& rules_;
  std::vector<const Expression*> formulas_;  ///< the names of those that are being made, the outermost first
  std::optional<std::size_t> formulaPlace_;
  int parts_ = 0;
  int levels_ = 0;
};

}  // namespace

ValueType TypeOf(SystemValue value) {
  switch (value) {
    case SystemValue::PageNumber:
    case SystemValue::RecordNumber:
      return ValueType::Number;
    case SystemValue::Today:
      return ValueType::Date;
    default:
      return ValueType::Text;
  }
}

platform::Value ReadyExpression::Evaluate(const EvaluationState& state) const {
  platform::Value room;
  const platform::Value& value = node_->Get(state, room);
  if (&value == &room) return room;
  return value;
}

ReadyExpression MakeReady(const Expression& expression, Names& names, const TextRules& rules) {
  return ReadyExpression(Maker(names, rules).Make(expression));
}

ReadyExpression MakeReadyCondition(const Expression& expression, Names& names, const TextRules& rules) {
  return ReadyExpression(Maker(names, rules).MakeBoolean(expression));
}

}  // namespace printing
