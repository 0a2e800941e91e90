#pragma once

#include <memory>

#include "platform/values/value.h"
#include "printing/expressions/evaluation/node.h"
#include "printing/expressions/expression.h"
#include "printing/expressions/names.h"
#include "printing/expressions/text_rules.h"

namespace printing {

/// An expression with its names resolved and its types checked, for many rows. Evaluation never fails: what has no result
/// (a division by 0, an amount beyond all amounts, any operand Null) is Null; a comparison that meets Null is false and nothing more,
/// and so is a Boolean that is Null.
class ReadyExpression {
 public:
  ReadyExpression(std::unique_ptr<const Node> node) : node_(std::move(node)) {}

  ValueType Type() const { return node_->Type(); }
  /// The value, perhaps where it lies: valid until the row, the totals or `room` change.
  const platform::Value& Look(const EvaluationState& state, platform::Value& room) const { return node_->Get(state, room); }
  platform::Value Evaluate(const EvaluationState& state) const;
  /// Of a Boolean: whether it is true.
  bool IsTrue(const EvaluationState& state) const { return node_->IsTrue(state); }

 private:
  std::unique_ptr<const Node> node_;
};

/// Raises ExpressionError for unknown names, types that don't fit, formulas in a circle and more parts than are sensible.
ReadyExpression MakeReady(const Expression& expression, Names& names, const TextRules& rules);
/// The same for a condition, which must be a Boolean.
ReadyExpression MakeReadyCondition(const Expression& expression, Names& names, const TextRules& rules);

}  // namespace printing
