#pragma once

#include <string>

#include "engine/sql/ast/statement.h"

/// The tree as text in one canonical form: keywords in capitals, one blank between words, parentheses only where the
/// meaning needs them (and around joins where they stood), texts in single quotes, dates month/day/year. Parsing the text
/// gives an equal tree.
namespace engine::sql {

std::string Print(const Expression& expression);
std::string Print(const Source& source);
std::string Print(const Statement& statement);

/// A name as a statement would write it, in brackets where it needs them.
std::string PrintName(std::string_view name);

}  // namespace engine::sql
