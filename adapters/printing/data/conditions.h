#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/values/value.h"
#include "printing/data/data_tables.h"
#include "printing/definition/report_definition.h"

namespace printing {

/// Writes selections as conditions of the data engine, where these take the same rows: the engine knows a third outcome beside true and
/// false, and it has comparisons of its own for types that differ. Where it isn't certain, there is no condition, and the row is asked
/// by the selection itself.
class Conditions {
 public:
  Conditions(const ReportDefinition& report, const DataTables& tables, platform::Date today)
      : report_(report), tables_(tables), today_(today) {}

  /// A condition that is true for exactly those rows for which the expression is true.
  std::optional<std::string> ConditionOf(const Expression& expression) const { return Write(expression, true, 0); }

 private:
  /// A field or a constant.
  struct Operand {
    std::string sql;
    ValueType type = ValueType::Text;
    std::optional<platform::FieldType> field;  ///< nothing for a constant
    platform::Value constant;
  };

  std::optional<std::string> Write(const Expression& expression, bool wanted, int depth) const;
  std::optional<std::string> WriteOperation(const Expression& operation, bool wanted, int depth) const;
  std::optional<std::string> WriteChain(const Expression& chain, bool wanted, int depth) const;
  std::optional<std::string> WriteComparison(Operator operation, const Expression& left, const Expression& right, bool wanted) const;
  std::optional<std::string> WriteList(const Expression& in, bool wanted) const;
  std::optional<std::string> WriteRange(const Expression& in, bool wanted) const;
  std::optional<std::string> WriteLike(const Expression& like, bool wanted) const;
  std::optional<std::string> WriteIsNull(const Expression& call, bool wanted) const;
  std::optional<std::string> WriteBoolean(const Expression& name, bool wanted) const;

  std::optional<Operand> OperandOf(const Expression& expression, int formulas = 0) const;
  std::optional<Operand> FieldOf(const Expression& expression) const;
  static bool Compare(const Operand& left, const Operand& right);

  const ReportDefinition& report_;
  const DataTables& tables_;
  platform::Date today_;
};

}  // namespace printing
