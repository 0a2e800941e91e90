#pragma once

#include <string_view>
#include <vector>

#include "engine/sql/token.h"

namespace engine::sql {

/// The tokens of a text, ended by one of kind End. Never fails: what cannot be read becomes a Bad token, so that the
/// parser can say in which clause it stands. There are no comments.
std::vector<Token> Lex(std::string_view text);

}  // namespace engine::sql
