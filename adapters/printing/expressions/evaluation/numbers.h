#pragma once

#include "printing/expressions/evaluation/node.h"

namespace printing {

/// Any number as a Double; 0 for what is none.
double NumberOf(const platform::Value& value);

/// + - * / of two values, and the negative of one. Numbers give a number, a date and days give a date, two dates the days between
/// them. Sums of amounts are exact amounts.
NodePtr MakeArithmetic(Operator operation, ValueType type, NodePtr left, NodePtr right);
NodePtr MakeNegative(NodePtr operand);
/// To so many digits behind the point, halves away from 0. Without `digits`: to whole numbers.
NodePtr MakeRound(NodePtr number, NodePtr digits);
/// The number that a text is, 0 where it is none.
NodePtr MakeToNumber(NodePtr text);
NodePtr MakeDatePart(Function part, NodePtr date);

}  // namespace printing
