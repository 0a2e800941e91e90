#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "engine/sql/ast/expression.h"
#include "engine/translate/names/scope.h"

namespace engine {

/// Calls `visit` for the expression and everything below it.
void ForEachNode(const sql::Expression& expression, const std::function<void(const sql::Expression&)>& visit);

/// Calls `visit` for each name in the expression.
void ForEachField(const sql::Expression& expression, const std::function<void(const sql::FieldName&)>& visit);

/// The tables whose fields the expression uses. Names that are not known count for none.
TableSet TablesOf(const sql::Expression& expression, Scope& scope);

/// True for Count, Sum, Avg, Min and Max.
bool IsAggregate(std::string_view function);
bool HasAggregate(const sql::Expression& expression);

/// The parts that an AND joins; the expression itself when it is no AND.
void SplitConjuncts(const sql::Expression& expression, std::vector<const sql::Expression*>& parts);

/// The two sides of a test `field = field`.
struct FieldEquality {
  ResolvedField left;
  ResolvedField right;
};
/// Nothing for any other condition.
std::optional<FieldEquality> FieldEqualityOf(const sql::Expression& condition, Scope& scope);

}  // namespace engine
