#pragma once

#include <optional>

#include "engine/translate/names/scope.h"
#include "engine/translate/plan/plan.h"

namespace engine {

/// The columns of an open recordset. An unknown name: 3070.
class ColumnScope final : public Scope {
 public:
  explicit ColumnScope(const SelectPlan& plan) : plan_(plan) {}
  std::optional<ResolvedField> Resolve(const sql::FieldName& name) override;

 private:
  const SelectPlan& plan_;
};

}  // namespace engine
