#include <algorithm>
#include <span>

#include "engine/errors.h"
#include "engine/sql/print.h"
#include "engine/translate/emit/emitter.h"

namespace engine {

Emitted Emitter::Emit(const sql::Expression& expression) {
  return std::visit([this](const auto& node) { return Emit(node); }, expression.node);
}

Emitted Emitter::Emit(const sql::Literal& literal) { return forms_.Constant(literal.value); }

Emitted Emitter::Emit(const sql::FieldName& name) {
  const std::optional<ResolvedField> field = scope_.Resolve(name);
  if (!field) return {.sql = "NULL", .type = SqlType::Null, .literal = {}};
  if (!insideAggregate_ && plainField_.empty()) plainField_ = sql::Print(sql::Expression{.node = name, .span = {}});
  const bool bare = field->table >= 0;
  return {.sql = field->sql,
          .type = SqlTypeOf(field->type),
          // A computed column's text may be any expression.
          .tightness = bare ? Tightness::Atom : Tightness::Or,
          .size = field->size,
          .memo = field->type == platform::FieldType::Memo,
          .table = field->table,
          .field = field->field,
          .comparable = field->comparable,
          .literal = {}};
}

Emitted Emitter::Emit(const sql::Unary& unary) {
  switch (unary.op) {
    case sql::UnaryOperator::Minus:
      return Negative(Emit(*unary.operand));
    case sql::UnaryOperator::Plus:
      return Emit(*unary.operand);
    case sql::UnaryOperator::Not:
      break;
  }
  return Not(*unary.operand);
}

Emitted Emitter::Emit(const sql::Binary& binary) {
  switch (binary.op) {
    case sql::BinaryOperator::Xor:
    case sql::BinaryOperator::Eqv:
    case sql::BinaryOperator::Imp:
      return Logic(binary);
    default:
      break;
  }
  Emitted left = Emit(*binary.left);
  Emitted right = Emit(*binary.right);
  switch (binary.op) {
    case sql::BinaryOperator::Add:
      return Sum(true, std::move(left), std::move(right));
    case sql::BinaryOperator::Subtract:
      return Sum(false, std::move(left), std::move(right));
    case sql::BinaryOperator::Multiply:
      return Product(std::move(left), std::move(right));
    case sql::BinaryOperator::Divide:
      return Quotient(std::move(left), std::move(right));
    case sql::BinaryOperator::Power:
      return forms_.Call("power", {forms_.Number(std::move(left)).sql, forms_.Number(std::move(right)).sql}, SqlType::Double);
    case sql::BinaryOperator::IntegerDivide:
      return forms_.Call("intdiv", {forms_.Number(std::move(left)).sql, forms_.Number(std::move(right)).sql}, SqlType::Long);
    case sql::BinaryOperator::Modulo:
      return forms_.Call("modulo", {forms_.Number(std::move(left)).sql, forms_.Number(std::move(right)).sql}, SqlType::Long);
    case sql::BinaryOperator::NotEqual:
      return Compare("<>", std::move(left), std::move(right));
    case sql::BinaryOperator::Less:
      return Compare("<", std::move(left), std::move(right));
    case sql::BinaryOperator::Greater:
      return Compare(">", std::move(left), std::move(right));
    case sql::BinaryOperator::LessEqual:
      return Compare("<=", std::move(left), std::move(right));
    case sql::BinaryOperator::GreaterEqual:
      return Compare(">=", std::move(left), std::move(right));
    default:
      return Compare("=", std::move(left), std::move(right));
  }
}

Emitted Emitter::Emit(const sql::Chain& chain) {
  switch (chain.op) {
    case sql::ChainOperator::And:
      return LogicChain(" AND ", Tightness::And, chain.operands);
    case sql::ChainOperator::Or:
      return LogicChain(" OR ", Tightness::Or, chain.operands);
    case sql::ChainOperator::Concat:
      break;
  }
  return Concat(chain.operands);
}

namespace {

// Whether a call of that name ends the text.
bool EndsWithCall(std::string_view text, std::span<const std::string_view> names) {
  return std::ranges::any_of(names, [&](std::string_view name) {
    if (!text.ends_with(name)) return false;
    const char before = text.size() == name.size() ? ' ' : text[text.size() - name.size() - 1];
    return before == ' ' || before == '(' || before == '-';
  });
}

}  // namespace

void CheckNesting(std::string_view sql, const Dialect& dialect) {
  int depth = 0;
  char quote = '\0';
  std::vector<bool> counted;
  for (std::size_t at = 0; at < sql.size(); ++at) {
    const char c = sql[at];
    if (quote != '\0') {
      if (c == quote) quote = '\0';
    } else if (c == '\'' || c == '"') {
      quote = c;
    } else if (c == '(') {
      counted.push_back(!EndsWithCall(sql.substr(0, at), dialect.uncounted));
      if (counted.back() && ++depth > dialect.nesting) throw errors::QueryTooComplex();
    } else if (c == ')' && !counted.empty()) {
      if (counted.back()) --depth;
      counted.pop_back();
    }
  }
}

}  // namespace engine
