#include "engine/errors.h"
#include "engine/sql/parser.h"
#include "engine/translate/plan/action_planner.h"
#include "engine/translate/plan/planning.h"

namespace engine {

ActionPlan PlanAction(std::string_view sql, Catalogue& catalogue, const Dialect& dialect) {
  struct Visitor {
    Catalogue& catalogue;
    const Dialect& dialect;

    ActionPlan operator()(const sql::Select&) const { throw errors::SelectExecuted(); }
    ActionPlan operator()(const sql::Insert& insert) const { return PlanInsert(insert, catalogue, dialect); }
    ActionPlan operator()(const sql::Delete& remove) const { return PlanDelete(remove, catalogue, dialect); }
    ActionPlan operator()(const sql::Update& update) const { return PlanUpdate(update, catalogue, dialect); }
  };
  const sql::Statement statement = sql::ParseStatement(sql);
  return std::visit(Visitor{catalogue, dialect}, statement);
}

}  // namespace engine
