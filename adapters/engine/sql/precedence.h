#pragma once

#include "engine/sql/ast/expression.h"

/// Which operator binds tighter; parser and printer share it.
namespace engine::sql {

/// From 0 (literal, field, call, parentheses), the tightest, to 14 (Imp).
namespace level {
inline constexpr int primary = 0;
inline constexpr int power = 1;
inline constexpr int sign = 2;
inline constexpr int product = 3;
inline constexpr int integerDivide = 4;
inline constexpr int modulo = 5;
inline constexpr int sum = 6;
inline constexpr int concat = 7;
inline constexpr int comparison = 8;
inline constexpr int negation = 9;
inline constexpr int conjunction = 10;
inline constexpr int disjunction = 11;
inline constexpr int exclusive = 12;
inline constexpr int equivalence = 13;
inline constexpr int implication = 14;
}  // namespace level

int LevelOf(BinaryOperator op);
int LevelOf(ChainOperator op);
int LevelOf(const Expression& expression);

}  // namespace engine::sql
