#pragma once

#include "engine/sql/ast/statement.h"
#include "engine/store/dialect.h"
#include "engine/translate/emit/emitted.h"
#include "engine/translate/emit/forms.h"
#include "engine/translate/names/catalogue.h"
#include "engine/translate/plan/plan.h"

namespace engine {

ActionPlan PlanInsert(const sql::Insert& insert, Catalogue& catalogue, const Dialect& dialect);
ActionPlan PlanDelete(const sql::Delete& remove, Catalogue& catalogue, const Dialect& dialect);
ActionPlan PlanUpdate(const sql::Update& update, Catalogue& catalogue, const Dialect& dialect);

/// The table that a DELETE or an UPDATE writes, in the file of its IN clause if there is one. Unknown: 3078.
const ResolvedTable& TargetTable(std::string_view name, const std::optional<std::string>& inFile, Catalogue& catalogue);
/// The same for an INSERT, whose target may lie in another store.
const ResolvedTable& InsertTarget(std::string_view name, const std::optional<std::string>& inFile, Catalogue& catalogue);

/// The value in the stored form of the field; nothing where a value of its type can fail to become one of the field's, or a
/// text can be too long.
std::optional<std::string> SafeForField(const Emitted& value, const platform::FieldDefinition& field, const Forms& forms);

}  // namespace engine
