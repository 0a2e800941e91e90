#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/sql/ast/statement.h"
#include "engine/translate/plan/bound_source.h"
#include "engine/translate/plan/plan.h"

namespace engine {

/// FROM and WHERE of a DISTINCTROW over tables of which only some give output: one row for each combination of rows of
/// those, the others only asked whether they have fitting rows.
struct SemiJoin {
  std::string from;
  std::string where;
  bool joins = false;  ///< `from` joins the tables that give output to the keys found
  /// The condition for one row at a time, where an index of each of the others leads to the rows that fit it; else "".
  std::string rowWhere{};
  std::vector<PlanDriver> drivers{};  ///< where `rowWhere` is given
};

/// `kept` are the tables that give output; afterwards the scope calls them "t0", "t1" ... in their order. Each group of the
/// others becomes an IN over a subselect where one equality ties it to the kept ones, or an EXISTS where nothing does;
/// whatever is tied otherwise is asked for by the row keys of the whole statement.
SemiJoin BuildSemiJoin(BoundSources& sources, const std::optional<sql::Expression>& where, TableSet kept, Emitter& emitter);

}  // namespace engine
