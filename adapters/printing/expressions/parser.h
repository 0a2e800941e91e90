#pragma once

#include <cstddef>
#include <string_view>

#include "printing/expressions/expression.h"

namespace printing {

/// Reads a whole text as one expression; raises ExpressionError.
Expression ParseExpression(std::string_view text);

/// Reads the expression that begins at byte `at` and moves behind it: it ends with the first word or sign that can't go on with it.
Expression ParseExpressionAt(std::string_view text, std::size_t& at);

}  // namespace printing
