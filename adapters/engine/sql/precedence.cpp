#include "engine/sql/precedence.h"

namespace engine::sql {

int LevelOf(BinaryOperator op) {
  switch (op) {
    case BinaryOperator::Power:
      return level::power;
    case BinaryOperator::Multiply:
    case BinaryOperator::Divide:
      return level::product;
    case BinaryOperator::IntegerDivide:
      return level::integerDivide;
    case BinaryOperator::Modulo:
      return level::modulo;
    case BinaryOperator::Add:
    case BinaryOperator::Subtract:
      return level::sum;
    case BinaryOperator::Equal:
    case BinaryOperator::NotEqual:
    case BinaryOperator::Less:
    case BinaryOperator::Greater:
    case BinaryOperator::LessEqual:
    case BinaryOperator::GreaterEqual:
      return level::comparison;
    case BinaryOperator::Xor:
      return level::exclusive;
    case BinaryOperator::Eqv:
      return level::equivalence;
    case BinaryOperator::Imp:
      return level::implication;
  }
  return level::primary;
}

int LevelOf(ChainOperator op) {
  switch (op) {
    case ChainOperator::Concat:
      return level::concat;
    case ChainOperator::And:
      return level::conjunction;
    case ChainOperator::Or:
      return level::disjunction;
  }
  return level::primary;
}

int LevelOf(const Expression& expression) {
  struct Visitor {
    int operator()(const Literal&) const { return level::primary; }
    int operator()(const FieldName&) const { return level::primary; }
    int operator()(const Call&) const { return level::primary; }
    int operator()(const Unary& unary) const { return unary.op == UnaryOperator::Not ? level::negation : level::sign; }
    int operator()(const Binary& binary) const { return LevelOf(binary.op); }
    int operator()(const Chain& chain) const { return LevelOf(chain.op); }
    int operator()(const Like&) const { return level::comparison; }
    int operator()(const IsNull&) const { return level::comparison; }
    int operator()(const Between&) const { return level::comparison; }
    int operator()(const InList&) const { return level::comparison; }
  };
  return std::visit(Visitor{}, expression.node);
}

}  // namespace engine::sql
