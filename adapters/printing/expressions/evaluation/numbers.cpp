#include "printing/expressions/evaluation/numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

#include "platform/values/calendar.h"
#include "platform/values/convert.h"

namespace printing {
namespace {

using platform::Currency;
using platform::Null;
using platform::Value;
using platform::ValueKind;

constexpr double kAmountScale = 10000;

Value Finite(double number) {
  if (!std::isfinite(number)) return Null;
  return number;
}

// Days that the calendar knows, year 100 to 9999.
Value DateOf(double serial) {
  constexpr double kFirst = -657434;
  constexpr double kEnd = 2958466;
  if (!(serial >= kFirst && serial < kEnd)) return Null;
  return platform::Date{serial};
}

std::optional<std::int64_t> SumOf(Operator operation, Currency left, Currency right) {
  std::int64_t sum = 0;
  const bool over = operation == Operator::Add ? __builtin_add_overflow(left.tenThousandths, right.tenThousandths, &sum)
                                               : __builtin_sub_overflow(left.tenThousandths, right.tenThousandths, &sum);
  if (over) return std::nullopt;
  return sum;
}

Value Compute(Operator operation, double left, double right) {
  switch (operation) {
    case Operator::Add:
      return Finite(left + right);
    case Operator::Subtract:
      return Finite(left - right);
    case Operator::Multiply:
      return Finite(left * right);
    default:
      if (right == 0) return Null;
      return Finite(left / right);
  }
}

double SerialOrNumber(const Value& value) { return value.Kind() == ValueKind::Date ? value.As<platform::Date>().serial : NumberOf(value); }

class Arithmetic final : public Node {
 public:
  Arithmetic(Operator operation, ValueType type, NodePtr left, NodePtr right)
      : Node(type), operation_(operation), left_(std::move(left)), right_(std::move(right)) {}

  const Value& Get(const EvaluationState& state, Value& room) const override {
    Value leftRoom;
    Value rightRoom;
    const Value& left = left_->Get(state, leftRoom);
    const Value& right = right_->Get(state, rightRoom);
    return room = Of(left, right);
  }

 private:
  Value Of(const Value& left, const Value& right) const {
    if (left.IsNull() || right.IsNull() || left.IsEmpty() || right.IsEmpty()) return Null;
    const bool sum = operation_ == Operator::Add || operation_ == Operator::Subtract;
    if (sum && left.Kind() == ValueKind::Currency && right.Kind() == ValueKind::Currency) {
      const std::optional<std::int64_t> exact = SumOf(operation_, left.As<Currency>(), right.As<Currency>());
      if (!exact) return Null;
      return Currency{*exact};
    }
    const Value result = Compute(operation_, SerialOrNumber(left), SerialOrNumber(right));
    return Type() == ValueType::Date && !result.IsNull() ? DateOf(result.As<double>()) : result;
  }

  Operator operation_;
  NodePtr left_, right_;
};

class Negative final : public Node {
 public:
  explicit Negative(NodePtr operand) : Node(ValueType::Number), operand_(std::move(operand)) {}

  const Value& Get(const EvaluationState& state, Value& room) const override {
    Value operandRoom;
    const Value& operand = operand_->Get(state, operandRoom);
    return room = Of(operand);
  }

 private:
  static Value Of(const Value& operand) {
    if (!operand.IsNumber()) return Null;
    if (operand.Kind() == ValueKind::Currency && operand.As<Currency>().tenThousandths != INT64_MIN)
      return Currency{-operand.As<Currency>().tenThousandths};
    return -NumberOf(operand);
  }

  NodePtr operand_;
};

class Round final : public Node {
 public:
  Round(NodePtr number, NodePtr digits) : Node(ValueType::Number), number_(std::move(number)), digits_(std::move(digits)) {}

  const Value& Get(const EvaluationState& state, Value& room) const override {
    Value numberRoom;
    Value digitsRoom(0.0);
    const Value& number = number_->Get(state, numberRoom);
    const Value& digits = digits_ != nullptr ? digits_->Get(state, digitsRoom) : digitsRoom;
    return room = Of(number, digits);
  }

 private:
  static Value Of(const Value& number, const Value& digits) {
    constexpr double kMostDigits = 9;
    if (!number.IsNumber() || !digits.IsNumber()) return Null;
    const double scale = std::pow(10.0, std::clamp(std::trunc(NumberOf(digits)), 0.0, kMostDigits));
    // An amount is counted in whole parts, so that its halves are halves.
    if (number.Kind() == ValueKind::Currency && scale <= kAmountScale) {
      const auto unit = static_cast<std::int64_t>(kAmountScale / scale);
      const std::int64_t parts = number.As<Currency>().tenThousandths;
      const std::int64_t rest = parts % unit;
      const std::int64_t down = parts - rest;
      std::int64_t rounded = down;
      const bool away = std::abs(rest) * 2 >= unit && unit > 1;
      if (away && __builtin_add_overflow(down, rest < 0 ? -unit : unit, &rounded)) return Null;
      return Currency{rounded};
    }
    const double scaled = NumberOf(number) * scale;
    constexpr double kExact = 9007199254740992.0;  // beyond it every Double is whole
    if (!(std::abs(scaled) < kExact)) return number;
    return std::round(scaled) / scale;
  }

  NodePtr number_, digits_;
};

class DatePart final : public Node {
 public:
  DatePart(Function part, NodePtr date) : Node(ValueType::Number), part_(part), date_(std::move(date)) {}

  const Value& Get(const EvaluationState& state, Value& room) const override {
    Value dateRoom;
    const Value& date = date_->Get(state, dateRoom);
    if (date.Kind() != ValueKind::Date) return room = Null;
    const platform::CalendarDay day = platform::CalendarOf(date.As<platform::Date>());
    return room = static_cast<double>(part_ == Function::Year ? day.year : day.month);
  }

 private:
  Function part_;
  NodePtr date_;
};

class ToNumber final : public Node {
 public:
  explicit ToNumber(NodePtr text) : Node(ValueType::Number), text_(std::move(text)) {}

  const Value& Get(const EvaluationState& state, Value& room) const override {
    Value textRoom;
    const Value& text = text_->Get(state, textRoom);
    if (!text.IsText()) return room = Null;
    return room = platform::ParseNumber(text.As<std::string>()).value_or(0);
  }

 private:
  NodePtr text_;
};

}  // namespace

double NumberOf(const Value& value) { return value.IsNumber() ? platform::CDbl(value) : 0; }

NodePtr MakeArithmetic(Operator operation, ValueType type, NodePtr left, NodePtr right) {
  return std::make_unique<Arithmetic>(operation, type, std::move(left), std::move(right));
}
NodePtr MakeNegative(NodePtr operand) { return std::make_unique<Negative>(std::move(operand)); }
NodePtr MakeRound(NodePtr number, NodePtr digits) { return std::make_unique<Round>(std::move(number), std::move(digits)); }
NodePtr MakeToNumber(NodePtr text) { return std::make_unique<ToNumber>(std::move(text)); }
NodePtr MakeDatePart(Function part, NodePtr date) { return std::make_unique<DatePart>(part, std::move(date)); }

}  // namespace printing
