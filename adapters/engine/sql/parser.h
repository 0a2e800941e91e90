#pragma once

#include <string_view>

#include "engine/sql/ast/statement.h"

namespace engine::sql {

/// The tree of a statement. Whatever does not parse raises the error of its clause: 3075, 3129, 3131, 3134, 3135, 3138,
/// 3141, 3142, 3144, 3145; a text too long or too deep 3360.
Statement ParseStatement(std::string_view text);

/// The tree of a Find criterion; errors are 3077 and 3360.
Expression ParseCriterion(std::string_view text);

}  // namespace engine::sql
