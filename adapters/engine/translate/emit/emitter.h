#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/sql/ast/expression.h"
#include "engine/store/dialect.h"
#include "engine/translate/emit/emitted.h"
#include "engine/translate/emit/forms.h"
#include "engine/translate/names/scope.h"

namespace engine {

/// Where a wrong call is reported.
enum class CallErrors { Statement, Criterion };

/// From an expression of the dialect to the store's. Its parts stand in a file per family (emit_*.cpp).
class Emitter {
 public:
  Emitter(Scope& scope, const Dialect& dialect, CallErrors callErrors = CallErrors::Statement)
      : scope_(scope), forms_(dialect), callErrors_(callErrors) {}

  /// In the stored form of its type.
  Emitted Value(const sql::Expression& expression) { return forms_.Stored(Emit(expression)); }
  /// As a condition that may stand alone behind WHERE or ON.
  std::string Condition(const sql::Expression& expression) { return ConditionOf(expression).sql; }
  /// The same as an operand of AND.
  std::string Conjunct(const sql::Expression& expression) { return Wrap(ConditionOf(expression), Tightness::And); }

  const Forms& GetForms() const { return forms_; }

  /// Calls of Max, Count and the like are refused unless allowed.
  void AllowAggregates() { aggregatesAllowed_ = true; }
  /// The first field outside any aggregate, "" if there was none.
  const std::string& PlainField() const { return plainField_; }

 private:
  Emitted Emit(const sql::Expression& expression);
  Emitted ConditionOf(const sql::Expression& expression) { return forms_.Truth(Emit(expression)); }

  Emitted Emit(const sql::Literal& literal);
  Emitted Emit(const sql::FieldName& name);
  Emitted Emit(const sql::Call& call);
  Emitted Emit(const sql::Unary& unary);
  Emitted Emit(const sql::Binary& binary);
  Emitted Emit(const sql::Chain& chain);
  Emitted Emit(const sql::Like& like);
  Emitted Emit(const sql::IsNull& is);
  Emitted Emit(const sql::Between& between);
  Emitted Emit(const sql::InList& in);

  // emit_arithmetic.cpp
  Emitted Negative(Emitted operand);
  Emitted Sum(bool add, Emitted left, Emitted right);
  Emitted DateSum(bool add, Emitted left, Emitted right);
  Emitted Product(Emitted left, Emitted right);
  Emitted Quotient(Emitted left, Emitted right);
  Emitted Concat(const std::vector<sql::Expression>& operands);

  // emit_comparison.cpp
  Emitted Compare(std::string_view sign, Emitted left, Emitted right);
  std::string OrderedBounds(Emitted& low, Emitted& high, bool texts) const;

  // emit_logic.cpp
  Emitted Not(const sql::Expression& operand);
  Emitted Logic(const sql::Binary& binary);
  Emitted LogicChain(std::string_view word, Tightness own, const std::vector<sql::Expression>& operands);

  // emit_call.cpp, emit_aggregate.cpp
  std::optional<Emitted> EmitSpecial(const sql::Call& call);
  std::optional<Emitted> EmitConversion(const std::string& name, const sql::Call& call);
  Emitted EmitFormat(const sql::Call& call);
  Emitted EmitClock(const std::string& name, const sql::Call& call);
  Emitted EmitIif(const sql::Call& call);
  std::optional<Emitted> EmitAggregate(const sql::Call& call);
  Emitted TextOfHighest(bool highest, const Emitted& value) const;
  Emitted AggregateOf(const std::string& name, const sql::Call& call);
  void RequireArguments(const sql::Call& call, std::size_t least, std::size_t most) const;

  Scope& scope_;
  Forms forms_;
  CallErrors callErrors_;
  bool aggregatesAllowed_ = false;
  bool insideAggregate_ = false;
  std::string plainField_;
};

/// Refuses a text whose calls and parentheses nest deeper than the store takes: 3360.
void CheckNesting(std::string_view sql, const Dialect& dialect);

}  // namespace engine
