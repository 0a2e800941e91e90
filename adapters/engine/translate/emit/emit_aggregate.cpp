#include "engine/errors.h"
#include "engine/sql/print.h"
#include "engine/translate/emit/emitter.h"
#include "engine/translate/names/walk.h"
#include "platform/values/text.h"

namespace engine {

// Nothing for a call of another function.
std::optional<Emitted> Emitter::EmitAggregate(const sql::Call& call) {
  if (!IsAggregate(call.name)) return std::nullopt;
  if (!aggregatesAllowed_ || insideAggregate_) {
    throw errors::AggregateInExpression(sql::Print(sql::Expression{.node = call, .span = {}}));
  }
  insideAggregate_ = true;
  Emitted result = AggregateOf(platform::ToLowerAscii(call.name), call);
  insideAggregate_ = false;
  return result;
}

// The highest key belongs to the text that is asked for.
Emitted Emitter::TextOfHighest(bool highest, const Emitted& value) const {
  const std::string order = forms_.Collated(value) + (highest ? " DESC NULLS LAST" : " NULLS LAST");
  return {.sql = "(array_agg(CAST(" + value.sql + " AS text) ORDER BY " + order + "))[1]",
          .type = value.type,
          .size = value.size,
          .memo = value.memo,
          .literal = {}};
}

Emitted Emitter::AggregateOf(const std::string& name, const sql::Call& call) {
  if (name == "count" && call.star) return {.sql = "count(*)", .type = SqlType::Long, .literal = {}};
  RequireArguments(call, 1, 1);
  Emitted value = Value(call.arguments[0]);
  const auto apply = [](std::string_view function, const std::string& argument) { return std::string(function) + '(' + argument + ')'; };
  if (name == "count") return {.sql = apply("count", value.sql), .type = SqlType::Long, .literal = {}};
  if (name == "min" || name == "max") {
    const bool byKey = value.type == SqlType::Text && forms_.GetDialect().textKeys != nullptr;
    if (byKey) return TextOfHighest(name == "max", value);
    const std::string argument = value.type == SqlType::Text ? forms_.Collated(value) : value.sql;
    return {.sql = apply(name, argument), .type = value.type, .size = value.size, .memo = value.memo, .literal = {}};
  }
  const bool amount = value.type == SqlType::Currency;
  if (name == "sum" && amount) return {.sql = apply("sum", value.sql), .type = SqlType::Currency, .unchecked = true, .literal = {}};
  const Emitted real{.sql = apply(name, forms_.Real(std::move(value)).sql), .type = SqlType::Double, .literal = {}};
  return amount ? forms_.Currency(real) : real;
}

}  // namespace engine
