
#include "engine/errors.h"
#include "engine/text/like.h"
#include "engine/text/text_order.h"
#include "engine/translate/emit/emitter.h"
#include "platform/values/convert.h"

namespace engine {
namespace {

Emitted Negated(bool negated, Emitted condition) {
  if (!negated) return condition;
  return ConditionText("NOT " + Wrap(condition, Tightness::Compare), Tightness::Not);
}

// Below, equal or above 0 for two constants of one kind; nothing where only the store can tell.
std::optional<int> Order(const Emitted& left, const Emitted& right) {
  if (!left.literal || !right.literal) return std::nullopt;
  if (left.literal->IsText() && right.literal->IsText()) {
    return CompareText(left.literal->As<std::string>(), right.literal->As<std::string>());
  }
  const auto number = [](const Emitted& value) -> std::optional<double> {
    if (value.literal->Kind() == platform::ValueKind::Date) return value.literal->As<platform::Date>().serial;
    if (value.literal->IsNumber()) return platform::CDbl(*value.literal);
    return std::nullopt;
  };
  const std::optional<double> a = number(left);
  const std::optional<double> b = number(right);
  if (!a || !b) return std::nullopt;
  return *a < *b ? -1 : (*a > *b ? 1 : 0);
}

}  // namespace

Emitted Emitter::Compare(std::string_view sign, Emitted left, Emitted right) {
  std::vector<Emitted> sides;
  sides.push_back(std::move(left));
  sides.push_back(std::move(right));
  if (sign == "=") {
    forms_.PutBeside(sides[0], sides[1]);
    forms_.PutBeside(sides[1], sides[0]);
  }
  const bool texts = forms_.Align(sides);
  const std::string first = Wrap(sides[0], Tightness::Sum);
  const std::string second = texts ? forms_.Collated(sides[1]) : Wrap(sides[1], Tightness::Sum);
  return ConditionText(first + ' ' + std::string(sign) + ' ' + second);
}

Emitted Emitter::Emit(const sql::IsNull& is) {
  const Emitted value = Value(*is.value);
  return ConditionText(Wrap(value, Tightness::Sum) + (is.negated ? " IS NOT NULL" : " IS NULL"));
}

// The two ends as "low AND high". They may stand in either order.
std::string Emitter::OrderedBounds(Emitted& low, Emitted& high, bool texts) const {
  const std::string collate = texts ? forms_.Collate() : "";
  if (const std::optional<int> order = Order(low, high)) {
    if (*order > 0) std::swap(low, high);
    return low.sql + collate + " AND " + high.sql + collate;
  }
  const Dialect& dialect = forms_.GetDialect();
  const std::string both = '(' + Wrap(low, Tightness::Atom) + collate + ", " + high.sql + ')';
  return dialect.least + both + collate + " AND " + dialect.greatest + both + collate;
}

Emitted Emitter::Emit(const sql::Between& between) {
  std::vector<Emitted> values;
  values.push_back(Emit(*between.value));
  values.push_back(Emit(*between.low));
  values.push_back(Emit(*between.high));
  const bool texts = forms_.Align(values);
  // Scaled amounts have lost their constants' values; the store orders those.
  const std::string bounds = OrderedBounds(values[1], values[2], texts);
  return Negated(between.negated, ConditionText(Wrap(values[0], Tightness::Sum) + " BETWEEN " + bounds));
}

Emitted Emitter::Emit(const sql::InList& in) {
  std::vector<Emitted> values;
  values.push_back(Emit(*in.value));
  for (const sql::Expression& item : in.items) values.push_back(Emit(item));
  const bool texts = forms_.Align(values);
  std::string list;
  for (std::size_t i = 1; i < values.size(); ++i) list += (i == 1 ? "" : ", ") + values[i].sql;
  const std::string value = texts ? forms_.Collated(values[0]) : Wrap(values[0], Tightness::Sum);
  return Negated(in.negated, ConditionText(value + " IN (" + list + ')'));
}

Emitted Emitter::Emit(const sql::Like& like) {
  const Emitted subject = Value(*like.value);
  const Emitted value = forms_.Text(subject, true);
  const Emitted pattern = forms_.Text(Emit(*like.pattern), true);
  const Dialect& dialect = forms_.GetDialect();
  Emitted test{.sql = dialect.like + '(' + value.sql + ", " + pattern.sql + ')', .type = SqlType::Boolean, .literal = {}};
  if (pattern.literal && pattern.literal->IsText()) {
    const LikePattern known(pattern.literal->As<std::string>());
    if (dialect.likeForms != nullptr) test = ConditionText(dialect.likeForms->ofKnown(value.sql, known));
    const std::string_view prefix = WithoutTrailingBlanks(known.FixedPrefix());
    const std::string& compared = value.comparable.empty() ? value.sql : value.comparable;
    const bool isPutTogether = compared.find('(') != std::string::npos;  // such a key has no index
    // A range that an index can serve; it takes in more than the pattern, never less.
    if (subject.table >= 0 && subject.type == SqlType::Text && !prefix.empty() && !isPutTogether) {
      const PrimaryRange range = PrefixRange(prefix);
      test = ConditionText(compared + " >= " + forms_.CollatedConstant(range.lower) + " AND " + compared + " < " +
                               forms_.CollatedConstant(range.upper) + " AND " + test.sql,
                           Tightness::And);
    }
  }
  return Negated(like.negated, std::move(test));
}

}  // namespace engine
