#include <array>
#include <charconv>

#include "engine/sql/date_literal.h"
#include "engine/sql/keywords.h"
#include "engine/sql/precedence.h"
#include "engine/sql/print.h"

namespace engine::sql {
namespace {

std::string_view Sign(BinaryOperator op) {
  switch (op) {
    case BinaryOperator::Power:
      return "^";
    case BinaryOperator::Multiply:
      return "*";
    case BinaryOperator::Divide:
      return "/";
    case BinaryOperator::IntegerDivide:
      return "\\";
    case BinaryOperator::Modulo:
      return "MOD";
    case BinaryOperator::Add:
      return "+";
    case BinaryOperator::Subtract:
      return "-";
    case BinaryOperator::Equal:
      return "=";
    case BinaryOperator::NotEqual:
      return "<>";
    case BinaryOperator::Less:
      return "<";
    case BinaryOperator::Greater:
      return ">";
    case BinaryOperator::LessEqual:
      return "<=";
    case BinaryOperator::GreaterEqual:
      return ">=";
    case BinaryOperator::Xor:
      return "XOR";
    case BinaryOperator::Eqv:
      return "EQV";
    case BinaryOperator::Imp:
      return "IMP";
  }
  return "";
}

std::string_view Sign(ChainOperator op) {
  switch (op) {
    case ChainOperator::Concat:
      return "&";
    case ChainOperator::And:
      return "AND";
    case ChainOperator::Or:
      return "OR";
  }
  return "";
}

std::string PrintReal(double number) {
  std::array<char, 40> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
  std::string text(buffer.data(), end);
  // A whole number without mark or exponent would be read back as a Long where it fits one.
  if (text.find_first_of(".e") == std::string::npos) text += ".0";
  return text;
}

std::string PrintText(std::string_view content) {
  std::string text = "'";
  for (const char c : content) {
    if (c == '\'') text += '\'';
    text += c;
  }
  return text + '\'';
}

std::string PrintLiteral(const platform::Value& value) {
  switch (value.Kind()) {
    case platform::ValueKind::Boolean:
      return value.As<bool>() ? "True" : "False";
    case platform::ValueKind::Long:
      return std::to_string(value.As<std::int32_t>());
    case platform::ValueKind::Double:
      return PrintReal(value.As<double>());
    case platform::ValueKind::Date:
      return '#' + PrintDateLiteral(value.As<platform::Date>()) + '#';
    case platform::ValueKind::Text:
      return PrintText(value.As<std::string>());
    default:
      return "Null";
  }
}

// The operand, in parentheses when it binds looser than `loosest`.
std::string Operand(const Expression& expression, int loosest) {
  std::string text = Print(expression);
  return LevelOf(expression) > loosest ? '(' + text + ')' : text;
}

std::string List(const std::vector<Expression>& items) {
  std::string text;
  for (const Expression& item : items) {
    if (!text.empty()) text += ", ";
    text += Print(item);
  }
  return text;
}

struct Printer {
  std::string operator()(const Literal& literal) const { return PrintLiteral(literal.value); }

  std::string operator()(const FieldName& field) const {
    return field.table.empty() ? PrintName(field.name) : PrintName(field.table) + '.' + PrintName(field.name);
  }

  std::string operator()(const Call& call) const { return PrintName(call.name) + '(' + (call.star ? "*" : List(call.arguments)) + ')'; }

  std::string operator()(const Unary& unary) const {
    switch (unary.op) {
      case UnaryOperator::Minus:
        return '-' + Operand(*unary.operand, level::sign);
      case UnaryOperator::Plus:
        return '+' + Operand(*unary.operand, level::sign);
      case UnaryOperator::Not:
        return "NOT " + Operand(*unary.operand, level::negation);
    }
    return "";
  }

  std::string operator()(const Binary& binary) const {
    const int own = LevelOf(binary.op);
    return Operand(*binary.left, own) + ' ' + std::string(Sign(binary.op)) + ' ' + Operand(*binary.right, own - 1);
  }

  std::string operator()(const Chain& chain) const {
    std::string text;
    for (const Expression& operand : chain.operands) {
      if (!text.empty()) text += ' ' + std::string(Sign(chain.op)) + ' ';
      text += Operand(operand, LevelOf(chain.op) - 1);
    }
    return text;
  }

  std::string operator()(const Like& like) const {
    return Operand(*like.value, level::comparison) + (like.negated ? " NOT LIKE " : " LIKE ") + Operand(*like.pattern, level::concat);
  }

  std::string operator()(const IsNull& is) const {
    return Operand(*is.value, level::comparison) + (is.negated ? " IS NOT NULL" : " IS NULL");
  }

  std::string operator()(const Between& between) const {
    return Operand(*between.value, level::comparison) + (between.negated ? " NOT BETWEEN " : " BETWEEN ") +
           Operand(*between.low, level::concat) + " AND " + Operand(*between.high, level::concat);
  }

  std::string operator()(const InList& in) const {
    return Operand(*in.value, level::comparison) + (in.negated ? " NOT IN (" : " IN (") + List(in.items) + ')';
  }
};

}  // namespace

std::string PrintName(std::string_view name) {
  if (IsPlainName(name)) return std::string(name);
  return '[' + std::string(name) + ']';
}

std::string Print(const Expression& expression) { return std::visit(Printer{}, expression.node); }

}  // namespace engine::sql
