#pragma once

#include <string>
#include <vector>

#include "engine/sql/ast/statement.h"
#include "engine/translate/names/scope.h"

namespace engine {

/// A column of a SELECT's result before it is translated.
struct Output {
  std::string name;
  const sql::Expression* expression = nullptr;  ///< nullptr for a field that a star stands for
  int table = -1;                               ///< a bare field: its place in the scope
  int field = -1;
};

/// The columns that the items stand for, stars written out, each with the name that the recordset gives it: alias, field
/// name, "Table.field" where a field name comes twice, "Expr1000" and so on for unnamed expressions. An unknown table in
/// `T.*`: 3078.
std::vector<Output> OutputsOf(const std::vector<sql::SelectItem>& items, StatementScope& scope);

}  // namespace engine
