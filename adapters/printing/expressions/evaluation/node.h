#pragma once

#include <memory>
#include <vector>

#include "platform/values/value.h"
#include "printing/expressions/expression.h"
#include "printing/expressions/names.h"

namespace printing {

/// A part of a ready expression.
class Node {
 public:
  explicit Node(ValueType type) : type_(type) {}
  virtual ~Node() = default;
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;

  ValueType Type() const noexcept { return type_; }
  /// The value where it lies, or put into `room`.
  virtual const platform::Value& Get(const EvaluationState& state, platform::Value& room) const = 0;
  virtual bool IsTrue(const EvaluationState& state) const {
    platform::Value room;
    const platform::Value& value = Get(state, room);
    return value.Kind() == platform::ValueKind::Boolean && value.As<bool>();
  }

 private:
  ValueType type_;
};
using NodePtr = std::unique_ptr<const Node>;

/// A part that is true or false, never Null.
class Condition : public Node {
 public:
  Condition() : Node(ValueType::Boolean) {}
  const platform::Value& Get(const EvaluationState& state, platform::Value& room) const final { return room = IsTrue(state); }
};

}  // namespace printing
