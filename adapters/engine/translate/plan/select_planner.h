#pragma once

#include <string>
#include <vector>

#include "engine/sql/ast/statement.h"
#include "engine/store/dialect.h"
#include "engine/translate/emit/emitter.h"
#include "engine/translate/names/catalogue.h"
#include "engine/translate/plan/bound_source.h"
#include "engine/translate/plan/plan.h"
#include "engine/translate/plan/select_outputs.h"

namespace engine {

/// Makes the plan of one SELECT.
class SelectPlanner {
 public:
  /// What becomes of a column's expression that fails for a row.
  enum class Cells {
    Empty,  ///< the cell is Null: rows that are shown
    Raise,  ///< the statement fails: rows that are written
  };
  SelectPlanner(const sql::Select& select, Catalogue& catalogue, const Dialect& dialect, Cells cells);

  SelectPlan Run();

 private:
  void CheckAggregates() const;
  TableSet KeptTables();
  void FillTables(TableSet kept);
  void FillFrom(TableSet kept);
  void FillBounds(TableSet kept);
  void FillColumns();
  PlanColumn ColumnOf(const Output& output);
  void FillOrder();
  PlanOrder OrderOf(const sql::OrderKey& key);
  const Output* OutputAt(const sql::Expression& ordinal) const;
  void RequireSelected(const sql::Expression& key);
  int DrivingTable(TableSet kept);
  void FillFetch(TableSet kept);
  std::vector<const sql::Expression*> Ties(TableSet kept);
  TableSet OneSides();
  void CheckDepth() const;

  int PlanTableOf(int scopeTable) const { return planTables_[static_cast<std::size_t>(scopeTable)]; }
  StatementScope& Names() { return sources_.Names(); }

  const sql::Select& select_;
  const Dialect& dialect_;
  const Dialect cellDialect_;
  BoundSources sources_;
  Emitter emitter_;        ///< conditions and orders: no aggregates
  Emitter outputEmitter_;  ///< columns
  std::vector<Output> outputs_;
  std::vector<int> planTables_;  ///< of each table of the scope its place in the plan, -1 for a dropped one
  bool aggregate_ = false;
  SelectPlan plan_;
};

}  // namespace engine
