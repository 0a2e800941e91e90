#include "printing/expressions/evaluation/logic.h"

#include <algorithm>
#include <utility>

namespace printing {
namespace {

using platform::Value;

class Constant final : public Node {
 public:
  Constant(ValueType type, Value value) : Node(type), value_(std::move(value)) {}
  const Value& Get(const EvaluationState&, Value&) const override { return value_; }

 private:
  Value value_;
};

class Field final : public Node {
 public:
  explicit Field(Names::Place place) : Node(place.type), index_(place.index) {}
  const Value& Get(const EvaluationState& state, Value&) const override { return state.row[index_]; }

 private:
  std::size_t index_;
};

class Total final : public Node {
 public:
  explicit Total(Names::Place place) : Node(place.type), index_(place.index) {}
  const Value& Get(const EvaluationState& state, Value&) const override { return state.totals[index_]; }

 private:
  std::size_t index_;
};

class OwnValue final : public Node {
 public:
  explicit OwnValue(SystemValue value) : Node(TypeOf(value)), value_(value) {}
  const Value& Get(const EvaluationState& state, Value&) const override { return (*state.system)[static_cast<std::size_t>(value_)]; }

 private:
  SystemValue value_;
};

class Chain final : public Condition {
 public:
  Chain(bool all, std::vector<NodePtr> operands) : all_(all), operands_(std::move(operands)) {}
  bool IsTrue(const EvaluationState& state) const override {
    const auto isTrue = [&](const NodePtr& operand) { return operand->IsTrue(state); };
    return all_ ? std::ranges::all_of(operands_, isTrue) : std::ranges::any_of(operands_, isTrue);
  }

 private:
  bool all_;
  std::vector<NodePtr> operands_;
};

class Not final : public Condition {
 public:
  explicit Not(NodePtr operand) : operand_(std::move(operand)) {}
  bool IsTrue(const EvaluationState& state) const override { return !operand_->IsTrue(state); }

 private:
  NodePtr operand_;
};

class IsNull final : public Condition {
 public:
  explicit IsNull(NodePtr operand) : operand_(std::move(operand)) {}
  bool IsTrue(const EvaluationState& state) const override {
    Value room;
    const Value& value = operand_->Get(state, room);
    return value.IsNull() || value.IsEmpty();
  }

 private:
  NodePtr operand_;
};

class Choice final : public Node {
 public:
  Choice(NodePtr condition, NodePtr then, NodePtr otherwise)
      : Node(then->Type()), condition_(std::move(condition)), then_(std::move(then)), otherwise_(std::move(otherwise)) {}
  const Value& Get(const EvaluationState& state, Value& room) const override {
    return (condition_->IsTrue(state) ? then_ : otherwise_)->Get(state, room);
  }

 private:
  NodePtr condition_, then_, otherwise_;
};

}  // namespace

NodePtr MakeConstant(ValueType type, Value value) { return std::make_unique<Constant>(type, std::move(value)); }
NodePtr MakeField(Names::Place place) { return std::make_unique<Field>(place); }
NodePtr MakeTotal(Names::Place place) { return std::make_unique<Total>(place); }
NodePtr MakeSystemValue(SystemValue value) { return std::make_unique<OwnValue>(value); }
NodePtr MakeChain(Operator operation, std::vector<NodePtr> operands) {
  return std::make_unique<Chain>(operation == Operator::And, std::move(operands));
}
NodePtr MakeNot(NodePtr operand) { return std::make_unique<Not>(std::move(operand)); }
NodePtr MakeIsNull(NodePtr operand) { return std::make_unique<IsNull>(std::move(operand)); }
NodePtr MakeChoice(NodePtr condition, NodePtr then, NodePtr otherwise) {
  return std::make_unique<Choice>(std::move(condition), std::move(then), std::move(otherwise));
}

}  // namespace printing
