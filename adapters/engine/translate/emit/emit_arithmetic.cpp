#include <algorithm>

#include "engine/translate/emit/emitter.h"
#include "platform/values/convert.h"

namespace engine {
namespace {

constexpr int kWidestText = 255;

Emitted NullOf(SqlType type) { return {.sql = "NULL", .type = type, .literal = {}}; }

// Texts take part in arithmetic as the numbers they read as.
SqlType NumberType(SqlType type) { return type == SqlType::Text ? SqlType::Double : type; }

platform::Value NegativeOf(const platform::Value& number) {
  if (number.Kind() == platform::ValueKind::Double) return -number.As<double>();
  return -platform::CLng(number);
}

}  // namespace

Emitted Emitter::Negative(Emitted operand) {
  if (operand.type == SqlType::Null) return NullOf(SqlType::Null);
  if (operand.literal && IsNumber(operand.type) && operand.type != SqlType::Currency) return forms_.Constant(NegativeOf(*operand.literal));
  const bool amount = operand.type == SqlType::Currency;
  operand = amount ? forms_.Stored(std::move(operand)) : forms_.Number(std::move(operand));
  SqlType type = operand.type;
  if (type == SqlType::Boolean || type == SqlType::Byte) type = SqlType::Short;
  Emitted negative = forms_.Negative(operand, type);
  negative.unchecked = type != SqlType::Double;
  return negative;
}

Emitted Emitter::Sum(bool add, Emitted left, Emitted right) {
  if (add && left.type == SqlType::Text && right.type == SqlType::Text) {
    Emitted joined{.sql = Wrap(left, Tightness::Concat) + " || " + Wrap(right, Tightness::Atom),
                   .type = SqlType::Text,
                   .tightness = Tightness::Concat,
                   .literal = {}};
    joined.size = left.size == 0 || right.size == 0 ? 0 : std::min(left.size + right.size, kWidestText);
    return joined;
  }
  if (left.type == SqlType::Null || right.type == SqlType::Null) return NullOf(std::max(left.type, right.type));
  if (left.type == SqlType::Date || right.type == SqlType::Date) return DateSum(add, std::move(left), std::move(right));

  const SqlType type = SumType(NumberType(left.type), NumberType(right.type));
  const auto operand = [&](Emitted value) {
    // A row of additions of one type is tested once, at its end.
    if (value.type != type || value.truth) value = forms_.Stored(std::move(value));
    if (type == SqlType::Currency) return forms_.Currency(std::move(value));
    return value.type == SqlType::Text ? forms_.Number(std::move(value)) : value;
  };
  Emitted sum = forms_.Arithmetic(operand(std::move(left)), add ? '+' : '-', operand(std::move(right)), type, Tightness::Sum);
  sum.unchecked = type != SqlType::Double;
  return sum;
}

Emitted Emitter::DateSum(bool add, Emitted left, Emitted right) {
  const bool days = !add && left.type == SqlType::Date && right.type == SqlType::Date;
  const Emitted sum =
      forms_.Arithmetic(forms_.Number(std::move(left)), add ? '+' : '-', forms_.Number(std::move(right)), SqlType::Double, Tightness::Sum);
  return days ? sum : forms_.Call("todate", sum, SqlType::Date);
}

Emitted Emitter::Product(Emitted left, Emitted right) {
  if (left.type == SqlType::Null || right.type == SqlType::Null) return NullOf(std::max(left.type, right.type));
  const auto plain = [](SqlType type) { return type == SqlType::Date ? SqlType::Double : NumberType(type); };
  const SqlType type = ProductType(plain(left.type), plain(right.type));
  left = forms_.Stored(std::move(left));
  right = forms_.Stored(std::move(right));
  if (type == SqlType::Currency && left.type == right.type) return forms_.Call("mulcur", {left.sql, right.sql}, type);
  if (type != SqlType::Currency) {
    left = forms_.Number(std::move(left));
    right = forms_.Number(std::move(right));
  }
  Emitted product = forms_.Arithmetic(left, '*', right, type, Tightness::Product);
  product.unchecked = type != SqlType::Double;
  return product;
}

Emitted Emitter::Quotient(Emitted left, Emitted right) {
  if (left.type == SqlType::Null || right.type == SqlType::Null) return NullOf(SqlType::Double);
  if (right.literal && IsNumber(right.type) && platform::CDbl(*right.literal) != 0) {
    return forms_.Arithmetic(forms_.Number(std::move(left)), '/', forms_.Real(std::move(right)), SqlType::Double, Tightness::Product);
  }
  return forms_.Call("divide", {forms_.Number(std::move(left)).sql, forms_.Number(std::move(right)).sql}, SqlType::Double);
}

Emitted Emitter::Concat(const std::vector<sql::Expression>& operands) {
  constexpr std::size_t kMostArguments = 100;
  std::vector<std::string> texts;
  int size = 0;
  bool known = true;
  for (const sql::Expression& operand : operands) {
    if (texts.size() == kMostArguments) texts = {forms_.Call("concat", texts, SqlType::Text).sql};
    const Emitted text = forms_.Text(Emit(operand));
    known = known && (text.size > 0 || text.IsLiteral());
    size += text.size;
    texts.push_back(text.sql);
  }
  Emitted joined = forms_.Call("concat", texts, SqlType::Text);
  joined.size = known ? std::min(size, kWidestText) : 0;
  return joined;
}

}  // namespace engine
