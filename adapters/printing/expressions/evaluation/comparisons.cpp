#include "printing/expressions/evaluation/comparisons.h"

#include <cmath>
#include <functional>
#include <utility>

#include "platform/values/calendar.h"
#include "printing/expressions/evaluation/numbers.h"

namespace printing {
namespace {

using platform::Value;
using platform::ValueKind;

template <class T>
int Order(const T& left, const T& right) {
  return left < right ? -1 : (right < left ? 1 : 0);
}

// A date's day, then its time, which counts away from day 0.
int CompareDates(platform::Date left, platform::Date right) {
  const auto parts = [](platform::Date date) {
    return std::pair(std::trunc(date.serial), std::abs(date.serial - std::trunc(date.serial)));
  };
  if (left.serial >= 0 && right.serial >= 0) return Order(left.serial, right.serial);
  return Order(parts(left), parts(right));
}

class Comparison final : public Condition {
 public:
  Comparison(Operator operation, NodePtr left, NodePtr right, const TextRules& rules)
      : operation_(operation), left_(std::move(left)), right_(std::move(right)), rules_(rules) {}

  bool IsTrue(const EvaluationState& state) const override {
    Value leftRoom;
    Value rightRoom;
    const std::optional<int> order = CompareValues(left_->Get(state, leftRoom), right_->Get(state, rightRoom), rules_);
    if (!order) return false;
    switch (operation_) {
      case Operator::Equal:
        return *order == 0;
      case Operator::NotEqual:
        return *order != 0;
      case Operator::Less:
        return *order < 0;
      case Operator::LessOrEqual:
        return *order <= 0;
      case Operator::Greater:
        return *order > 0;
      default:
        return *order >= 0;
    }
  }

 private:
  Operator operation_;
  NodePtr left_, right_;
  const TextRules& rules_;
};

class InList final : public Condition {
 public:
  InList(NodePtr tested, std::vector<NodePtr> list, const TextRules& rules)
      : tested_(std::move(tested)), list_(std::move(list)), rules_(rules) {}

  bool IsTrue(const EvaluationState& state) const override {
    Value room;
    const Value& tested = tested_->Get(state, room);
    for (const NodePtr& each : list_) {
      Value eachRoom;
      if (CompareValues(tested, each->Get(state, eachRoom), rules_) == 0) return true;
    }
    return false;
  }

 private:
  NodePtr tested_;
  std::vector<NodePtr> list_;
  const TextRules& rules_;
};

class InRange final : public Condition {
 public:
  InRange(NodePtr tested, NodePtr low, NodePtr high, const TextRules& rules)
      : tested_(std::move(tested)), low_(std::move(low)), high_(std::move(high)), rules_(rules) {}

  bool IsTrue(const EvaluationState& state) const override {
    Value room;
    const Value& tested = tested_->Get(state, room);
    Value endRoom;
    const std::optional<int> toLow = CompareValues(tested, low_->Get(state, endRoom), rules_);
    if (!toLow || *toLow < 0) return false;
    const std::optional<int> toHigh = CompareValues(tested, high_->Get(state, endRoom), rules_);
    return toHigh && *toHigh <= 0;
  }

 private:
  NodePtr tested_, low_, high_;
  const TextRules& rules_;
};

class Like final : public Condition {
 public:
  Like(NodePtr tested, std::function<bool(std::string_view)> matches) : tested_(std::move(tested)), matches_(std::move(matches)) {}

  bool IsTrue(const EvaluationState& state) const override {
    Value room;
    const Value& tested = tested_->Get(state, room);
    return tested.IsText() && matches_(tested.As<std::string>());
  }

 private:
  NodePtr tested_;
  std::function<bool(std::string_view)> matches_;
};

}  // namespace

std::optional<int> CompareValues(const Value& left, const Value& right, const TextRules& rules) {
  if (left.IsNull() || right.IsNull() || left.IsEmpty() || right.IsEmpty()) return std::nullopt;
  if (left.IsText() && right.IsText()) return rules.compare(left.As<std::string>(), right.As<std::string>());
  if (left.Kind() == ValueKind::Date && right.Kind() == ValueKind::Date)
    return CompareDates(left.As<platform::Date>(), right.As<platform::Date>());
  if (left.Kind() == ValueKind::Currency && right.Kind() == ValueKind::Currency)
    return Order(left.As<platform::Currency>(), right.As<platform::Currency>());
  // Booleans as the store has them: true is -1, below false.
  if (left.Kind() == ValueKind::Boolean && right.Kind() == ValueKind::Boolean) return Order(right.As<bool>(), left.As<bool>());
  if (left.IsNumber() && right.IsNumber()) return Order(NumberOf(left), NumberOf(right));
  return std::nullopt;
}

NodePtr MakeComparison(Operator operation, NodePtr left, NodePtr right, const TextRules& rules) {
  return std::make_unique<Comparison>(operation, std::move(left), std::move(right), rules);
}

NodePtr MakeInList(NodePtr tested, std::vector<NodePtr> list, const TextRules& rules) {
  return std::make_unique<InList>(std::move(tested), std::move(list), rules);
}

NodePtr MakeInRange(NodePtr tested, NodePtr low, NodePtr high, const TextRules& rules) {
  return std::make_unique<InRange>(std::move(tested), std::move(low), std::move(high), rules);
}

NodePtr MakeLike(NodePtr tested, const std::string& enginePattern, const TextRules& rules) {
  return std::make_unique<Like>(std::move(tested), rules.like(enginePattern));
}

}  // namespace printing
