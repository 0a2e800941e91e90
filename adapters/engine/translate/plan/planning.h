#pragma once

#include <string_view>

#include "engine/store/dialect.h"
#include "engine/translate/names/catalogue.h"
#include "engine/translate/plan/plan.h"

/// From a statement's text to its plan: parsed, names resolved, types checked, expressions in the store's form. Every
/// failure is a platform::Error with the number and text of engine/errors.h. Plans point into the catalogue's tables and
/// must not outlive them.
namespace engine {

/// A recordset's source: a SELECT, or the bare name of a table or link (all its fields, no order). A bare name that is
/// not there: 3011; an action statement: 3219.
SelectPlan PlanSelect(std::string_view source, Catalogue& catalogue, const Dialect& dialect);

/// A table's own rows, all columns, in no particular order.
SelectPlan PlanWholeTable(const ResolvedTable& table, const Dialect& dialect);

/// A Find criterion over the plan's columns: by their names (aliases and "A.x" included), or "Table.field" for a field
/// that the plan shows. Syntax 3077, unknown name 3070, unlike types 3464, bad pattern 93.
///
/// For an aggregate plan the condition speaks of the output columns "c0", "c1" ... in the order of `plan.columns`, since
/// it can only be asked of the finished row.
CriterionPlan PlanCriterion(std::string_view criterion, const SelectPlan& plan, const Dialect& dialect);

/// Execute's statement. A SELECT: 3065.
ActionPlan PlanAction(std::string_view sql, Catalogue& catalogue, const Dialect& dialect);

}  // namespace engine
