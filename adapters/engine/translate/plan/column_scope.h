#pragma once

#include <optional>

#include "engine/translate/names/scope.h"
#include "engine/translate/plan/plan.h"

namespace engine {

/// The columns of an open recordset. An unknown name: 3070.
class ColumnScope final : public Scope {
 public:
  ColumnScope(const SelectPlan& plan, const Dialect& dialect) : plan_(plan), dialect_(dialect) {}
  std::optional<ResolvedField> Resolve(const sql::FieldName& name) override;

 private:
  std::string ComparableOf(const PlanColumn& column) const;

  const SelectPlan& plan_;
  const Dialect& dialect_;
};

}  // namespace engine
