#pragma once

#include <string>
#include <variant>
#include <vector>

#include "engine/sql/ast/box.h"
#include "engine/sql/ast/span.h"
#include "platform/values/value.h"

/// The nodes of an expression: plain values. Where a node stood in the text does not count when two are compared.
namespace engine::sql {

struct Expression;

/// Null, a Boolean, a Long or Double not below 0, a date or a text.
struct Literal {
  platform::Value value;
  bool operator==(const Literal&) const = default;
};

/// A field: `table` is "" when the name is not qualified.
struct FieldName {
  std::string table;
  std::string name;
  bool operator==(const FieldName&) const = default;
};

/// A function with its arguments; `star` for Count(*).
struct Call {
  std::string name;
  std::vector<Expression> arguments;
  bool star = false;
  bool operator==(const Call&) const;
};

enum class UnaryOperator { Minus, Plus, Not };
struct Unary {
  UnaryOperator op = UnaryOperator::Minus;
  Box<Expression> operand;
  bool operator==(const Unary&) const;
};

enum class BinaryOperator {
  Power,
  Multiply,
  Divide,
  IntegerDivide,
  Modulo,
  Add,
  Subtract,
  Equal,
  NotEqual,
  Less,
  Greater,
  LessEqual,
  GreaterEqual,
  Xor,
  Eqv,
  Imp,
};
struct Binary {
  BinaryOperator op = BinaryOperator::Equal;
  Box<Expression> left;
  Box<Expression> right;
  bool operator==(const Binary&) const;
};

enum class ChainOperator { Concat, And, Or };
/// Two or more operands in a row under one operator whose order of work does not matter. Flat, so that a condition of many
/// parts is no deep tree.
struct Chain {
  ChainOperator op = ChainOperator::And;
  std::vector<Expression> operands;
  bool operator==(const Chain&) const;
};

struct Like {
  Box<Expression> value;
  Box<Expression> pattern;
  bool negated = false;
  bool operator==(const Like&) const;
};

struct IsNull {
  Box<Expression> value;
  bool negated = false;
  bool operator==(const IsNull&) const;
};

struct Between {
  Box<Expression> value;
  Box<Expression> low;
  Box<Expression> high;
  bool negated = false;
  bool operator==(const Between&) const;
};

struct InList {
  Box<Expression> value;
  std::vector<Expression> items;
  bool negated = false;
  bool operator==(const InList&) const;
};

struct Expression {
  std::variant<Literal, FieldName, Call, Unary, Binary, Chain, Like, IsNull, Between, InList> node;
  Span span;
  int height = 1;  ///< levels of nodes below and with this one

  bool operator==(const Expression& other) const;
};

}  // namespace engine::sql
