#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/sql/ast/source.h"
#include "engine/translate/emit/emitter.h"
#include "engine/translate/names/catalogue.h"
#include "engine/translate/names/scope.h"

namespace engine {

/// A table or join of FROM with its tables found.
struct BoundSource {
  int table = -1;  ///< a table of the scope; -1 for a join
  sql::JoinKind kind = sql::JoinKind::Inner;
  const sql::Expression* on = nullptr;
  std::vector<BoundSource> sides;  ///< of a join: left and right
  TableSet tables = 0;
};

/// All of FROM.
class BoundSources {
 public:
  /// Finds the tables, in the file of an IN clause if there is one. Unknown table: 3078; an inner join in the parentheses
  /// of an outer one: 3258; more tables than a statement may have: 3360.
  BoundSources(const std::vector<sql::Source>& sources, Catalogue& catalogue, const std::optional<std::string>& inFile,
               const Dialect& dialect);

  StatementScope& Names() { return *scope_; }
  int TableCount() const { return static_cast<int>(scope_->Tables().size()); }
  TableSet AllTables() const { return TableBit(TableCount()) - 1; }
  /// Tables that an outer join can leave without a row.
  TableSet Nullable() const { return nullable_; }
  bool HasOuterJoin() const { return nullable_ != 0; }

  /// The conditions of the joins, whatever their kind.
  const std::vector<const sql::Expression*>& Conditions() const { return conditions_; }
  /// Fields of Memo type in a join: 3118; tables that the join does not join: 3135.
  void CheckConditions();

  /// The text behind FROM, with the aliases that the scope has now.
  std::string Emit(Emitter& emitter) const;
  /// One table with its alias.
  std::string EmitTable(int table) const;

 private:
  BoundSource Bind(const sql::Source& source, Catalogue& catalogue, const std::optional<std::string>& inFile,
                   std::vector<StatementScope::Table>& tables);
  void MarkNullable(const BoundSource& source, bool nullable);
  void CheckCondition(const BoundSource& source);
  std::string Emit(const BoundSource& source, Emitter& emitter) const;
  std::string EmitOperand(const BoundSource& source, Emitter& emitter) const;

  std::optional<StatementScope> scope_;
  std::vector<BoundSource> sources_;
  std::vector<const sql::Expression*> conditions_;
  TableSet nullable_ = 0;
};

}  // namespace engine
