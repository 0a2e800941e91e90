#include "engine/errors.h"
#include "engine/functions/functions.h"
#include "engine/sql/print.h"
#include "engine/translate/emit/emitter.h"
#include "platform/values/text.h"

namespace engine {

void Emitter::RequireArguments(const sql::Call& call, std::size_t least, std::size_t most) const {
  if (!call.star && call.arguments.size() >= least && call.arguments.size() <= most) return;
  constexpr std::string_view kMessage = "Wrong number of arguments used with function";
  if (callErrors_ == CallErrors::Criterion) throw errors::CriterionExpression(kMessage);
  throw errors::QueryExpression(kMessage, sql::Print(sql::Expression{.node = call, .span = {}}));
}

Emitted Emitter::Emit(const sql::Call& call) {
  if (std::optional<Emitted> aggregate = EmitAggregate(call)) return *std::move(aggregate);
  if (std::optional<Emitted> special = EmitSpecial(call)) return *std::move(special);
  const SqlFunction* function = FindSqlFunction(call.name);
  if (function == nullptr) throw errors::UndefinedFunction(call.name);
  RequireArguments(call, function->least, function->parameters.size());
  std::vector<std::string> arguments;
  for (std::size_t i = 0; i < call.arguments.size(); ++i) {
    Emitted argument = Value(call.arguments[i]);
    switch (function->parameters[i]) {
      case 't':
        argument = forms_.Text(std::move(argument));
        break;
      case 'd':
        argument = forms_.Date(std::move(argument));
        break;
      case 'n':
        argument = forms_.Number(std::move(argument));
        break;
      default:
        if (argument.type != SqlType::Text) argument = forms_.Number(std::move(argument));
        break;
    }
    arguments.push_back(std::move(argument.sql));
  }
  return forms_.Call(function->name, arguments, function->result);
}

// Functions whose result or form depends on the argument's type; nothing for others.
std::optional<Emitted> Emitter::EmitSpecial(const sql::Call& call) {
  const std::string name = platform::ToLowerAscii(call.name);
  if (name == "iif") return EmitIif(call);
  if (name == "format") return EmitFormat(call);
  if (name == "date" || name == "time" || name == "now") return EmitClock(name, call);
  if (name == "instr" && call.arguments.size() == 2) {
    const std::string text = forms_.Text(Emit(call.arguments[0])).sql;
    return forms_.Call(name, {text, forms_.Text(Emit(call.arguments[1])).sql}, SqlType::Long);
  }
  return EmitConversion(name, call);
}

std::optional<Emitted> Emitter::EmitConversion(const std::string& name, const sql::Call& call) {
  const auto argument = [&] {
    RequireArguments(call, 1, 1);
    return Value(call.arguments[0]);
  };
  if (name == "isnull") return ConditionText(Wrap(argument(), Tightness::Sum) + " IS NULL");
  if (name == "cstr") return forms_.Text(argument());
  if (name == "cdbl") return forms_.As(SqlType::Double, forms_.Real(argument()));
  if (name == "ccur") return forms_.Stored(forms_.Currency(argument()));
  if (name == "cdate") return forms_.Date(argument());
  if (name == "isnumeric" || name == "isdate") {
    const Emitted value = argument();
    if (value.type == SqlType::Text || value.type == SqlType::Null) {
      if (name == "isnumeric") return std::nullopt;
      return forms_.Call(name, {value.sql, forms_.Moment().sql}, SqlType::Boolean);
    }
    const bool fits = (name == "isdate") == (value.type == SqlType::Date);
    return fits ? ConditionText(Wrap(value, Tightness::Sum) + " IS NOT NULL") : forms_.Constant(false);
  }
  if (name == "abs" || name == "int" || name == "fix") {
    const Emitted value = argument();
    if (name == "abs" && (IsWhole(value.type) || value.type == SqlType::Currency)) {
      return forms_.Call(name, value, value.type == SqlType::Boolean ? SqlType::Short : value.type);
    }
    if (IsWhole(value.type)) return value;
    if (value.type != SqlType::Currency) return std::nullopt;
    return forms_.Currency(forms_.Call(name, forms_.Number(value), SqlType::Double));
  }
  return std::nullopt;
}

Emitted Emitter::EmitFormat(const sql::Call& call) {
  RequireArguments(call, 1, 2);
  const Emitted value = Value(call.arguments[0]);
  const std::string format = call.arguments.size() > 1 ? forms_.Text(Emit(call.arguments[1])).sql : "''";
  if (value.type != SqlType::Boolean && value.type != SqlType::Currency && value.type != SqlType::Date)
    return forms_.Call("format", {value.sql, format, forms_.Moment().sql}, SqlType::Text);
  const auto helper = [&] {
    switch (value.type) {
      case SqlType::Boolean:
        return "formatbool";
      case SqlType::Currency:
        return "formatcur";
      default:
        return "formatdate";
    }
  }();
  return forms_.Call(helper, {value.sql, format}, SqlType::Text);
}

// One moment for the whole statement: the store asks for it once, not for each row.
Emitted Emitter::EmitClock(const std::string& name, const sql::Call& call) {
  RequireArguments(call, 0, 0);
  Emitted moment = forms_.Call("now", std::vector<std::string>{}, SqlType::Date);
  if (name != "now") moment = forms_.Call(name == "date" ? "dayof" : "timeof", moment, SqlType::Date);
  moment.sql = "(SELECT " + moment.sql + ")";
  return moment;
}

Emitted Emitter::EmitIif(const sql::Call& call) {
  RequireArguments(call, 3, 3);
  const std::string condition = Condition(call.arguments[0]);
  Emitted yes = Value(call.arguments[1]);
  Emitted no = Value(call.arguments[2]);
  SqlType type = std::max(yes.type, no.type);
  if (yes.type != no.type && IsNumber(yes.type) && IsNumber(no.type)) type = SumType(yes.type, no.type);
  yes = forms_.As(type, std::move(yes));
  no = forms_.As(type, std::move(no));
  return {.sql = "CASE WHEN " + condition + " THEN " + yes.sql + " ELSE " + no.sql + " END",
          .type = type,
          .size = std::max(yes.size, no.size),
          .literal = {}};
}

}  // namespace engine
