#include "engine/translate/names/walk.h"

#include "platform/values/text.h"

namespace engine {
namespace {

using Visit = std::function<void(const sql::Expression&)>;

struct Children {
  const Visit& visit;

  void operator()(const sql::Literal&) const {}
  void operator()(const sql::FieldName&) const {}
  void operator()(const sql::Call& call) const { All(call.arguments); }
  void operator()(const sql::Unary& unary) const { ForEachNode(*unary.operand, visit); }
  void operator()(const sql::Binary& binary) const {
    ForEachNode(*binary.left, visit);
    ForEachNode(*binary.right, visit);
  }
  void operator()(const sql::Chain& chain) const { All(chain.operands); }
  void operator()(const sql::Like& like) const {
    ForEachNode(*like.value, visit);
    ForEachNode(*like.pattern, visit);
  }
  void operator()(const sql::IsNull& is) const { ForEachNode(*is.value, visit); }
  void operator()(const sql::Between& between) const {
    ForEachNode(*between.value, visit);
    ForEachNode(*between.low, visit);
    ForEachNode(*between.high, visit);
  }
  void operator()(const sql::InList& in) const {
    ForEachNode(*in.value, visit);
    All(in.items);
  }

  void All(const std::vector<sql::Expression>& expressions) const {
    for (const sql::Expression& expression : expressions) ForEachNode(expression, visit);
  }
};

}  // namespace

void ForEachNode(const sql::Expression& expression, const Visit& visit) {
  visit(expression);
  std::visit(Children{visit}, expression.node);
}

void ForEachField(const sql::Expression& expression, const std::function<void(const sql::FieldName&)>& visit) {
  ForEachNode(expression, [&](const sql::Expression& node) {
    if (const auto* name = std::get_if<sql::FieldName>(&node.node)) visit(*name);
  });
}

TableSet TablesOf(const sql::Expression& expression, Scope& scope) {
  TableSet tables = 0;
  ForEachField(expression, [&](const sql::FieldName& name) {
    const std::optional<ResolvedField> field = scope.Resolve(name);
    if (field && field->table >= 0) tables |= TableBit(field->table);
  });
  return tables;
}

bool IsAggregate(std::string_view function) {
  const std::string name = platform::ToLowerAscii(function);
  return name == "count" || name == "sum" || name == "avg" || name == "min" || name == "max";
}

bool HasAggregate(const sql::Expression& expression) {
  bool found = false;
  ForEachNode(expression, [&](const sql::Expression& node) {
    const auto* call = std::get_if<sql::Call>(&node.node);
    found = found || (call != nullptr && IsAggregate(call->name));
  });
  return found;
}

void SplitConjuncts(const sql::Expression& expression, std::vector<const sql::Expression*>& parts) {
  const auto* chain = std::get_if<sql::Chain>(&expression.node);
  if (chain == nullptr || chain->op != sql::ChainOperator::And) {
    parts.push_back(&expression);
    return;
  }
  for (const sql::Expression& operand : chain->operands) SplitConjuncts(operand, parts);
}

std::optional<FieldEquality> FieldEqualityOf(const sql::Expression& condition, Scope& scope) {
  const auto* binary = std::get_if<sql::Binary>(&condition.node);
  if (binary == nullptr || binary->op != sql::BinaryOperator::Equal) return std::nullopt;
  const auto* left = std::get_if<sql::FieldName>(&binary->left->node);
  const auto* right = std::get_if<sql::FieldName>(&binary->right->node);
  if (left == nullptr || right == nullptr) return std::nullopt;
  std::optional<ResolvedField> first = scope.Resolve(*left);
  std::optional<ResolvedField> second = scope.Resolve(*right);
  if (!first || !second) return std::nullopt;
  return FieldEquality{*std::move(first), *std::move(second)};
}

}  // namespace engine
