#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/store/dialect.h"
#include "engine/translate/plan/plan.h"

namespace engine {

/// The plan's rows as one statement with these expressions as columns.
std::string SelectText(const SelectPlan& plan, const std::vector<std::string>& columns, const Dialect& dialect, bool ordered = true);

/// The same for DISTINCT in a store that compares texts by keys, with that condition. The columns are named "c0", "c1" ...
std::string DistinctText(const SelectPlan& plan, const std::vector<std::string>& columns, const Dialect& dialect, std::string_view where,
                         bool ordered = true);

/// The columns' own expressions.
std::vector<std::string> ColumnTexts(const SelectPlan& plan);

}  // namespace engine
