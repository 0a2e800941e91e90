#include "engine/translate/emit/forms.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

#include "engine/errors.h"
#include "platform/values/convert.h"
#include "platform/values/text.h"

namespace engine {
namespace {

constexpr int kScale = 10'000;

// The store's function for a sign: whole numbers in 64 bits, amounts, real ones.
std::string CallOf(char sign, SqlType type) {
  const bool amount = type == SqlType::Currency;
  const std::string name = sign == '+' ? "add" : sign == '-' ? "sub" : sign == '/' ? "div" : amount ? "times" : "mul";
  return name + (type == SqlType::Double ? "real" : amount ? "cur" : "long");
}

bool IsNegativeText(const std::string& sql) { return !sql.empty() && sql.front() == '-'; }

}  // namespace

std::string Wrap(const Emitted& expression, Tightness loosest) {
  return expression.tightness > loosest ? '(' + expression.sql + ')' : expression.sql;
}

Emitted Forms::Constant(const platform::Value& value) const {
  Emitted constant{.sql = dialect_.Constant(value), .type = SqlTypeOf(value), .literal = value};
  if (value.IsText()) constant.size = static_cast<int>(platform::CharacterCount(value.As<std::string>()));
  return constant;
}

std::string ScaledConstant(const platform::Value& number) {
  if (number.Kind() != platform::ValueKind::Double) {
    return std::to_string(std::int64_t{platform::CLng(number)} * kScale);
  }
  // The shortest decimal of the number with its mark moved: no rounding on the way.
  std::array<char, 40> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number.As<double>(), std::chars_format::scientific).ptr;
  const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  const std::size_t e = text.find('e');
  std::string digits(text.substr(0, e));
  int exponent = 0;
  const char* from = text.data() + e + (text[e + 1] == '+' ? 2 : 1);
  std::from_chars(from, end, exponent);
  if (const std::size_t mark = digits.find('.'); mark != std::string::npos) {
    exponent -= static_cast<int>(digits.size() - mark - 1);
    digits.erase(mark, 1);
  }
  exponent += 4;
  constexpr std::size_t kSafeDigits = 18;
  if (exponent < 0 || digits.size() + static_cast<std::size_t>(exponent) > kSafeDigits) return digits + ".0e" + std::to_string(exponent);
  return digits + std::string(static_cast<std::size_t>(exponent), '0');
}

Emitted Forms::Call(std::string_view name, const std::vector<std::string>& arguments, SqlType type) const {
  std::string text = dialect_.functionPrefix + std::string(name) + '(';
  for (std::size_t i = 0; i < arguments.size(); ++i) text += (i == 0 ? "" : ", ") + arguments[i];
  return {.sql = text + ')', .type = type, .literal = {}};
}

Emitted Forms::Call(std::string_view name, const Emitted& argument, SqlType type) const {
  return Call(name, std::vector<std::string>{argument.sql}, type);
}

Emitted Forms::Arithmetic(const Emitted& left, char sign, const Emitted& right, SqlType type, Tightness own) const {
  const auto tighter = static_cast<Tightness>(static_cast<int>(own) - 1);
  const std::string first = Wrap(left, own);
  const std::string second = Wrap(right, tighter);
  if (!dialect_.arithmeticCalls) return {.sql = first + ' ' + sign + ' ' + second, .type = type, .tightness = own, .literal = {}};
  Emitted result = Call(CallOf(sign, type), std::vector<std::string>{first, second}, type);
  result.tightness = own;  // nested as deep as with operators
  return result;
}

Emitted Forms::Negative(const Emitted& operand, SqlType type) const {
  // Two signs in a row would begin a comment.
  const std::string inner = IsNegativeText(operand.sql) ? '(' + operand.sql + ')' : Wrap(operand, Tightness::Atom);
  if (dialect_.arithmeticCalls && type != SqlType::Double) return Call(type == SqlType::Currency ? "negcur" : "neglong", std::vector<std::string>{inner}, type);
  return {.sql = '-' + inner, .type = type, .literal = {}};
}

Emitted Forms::Cell(Emitted expression) const {
  if (expression.IsLiteral() || dialect_.functionPrefix != dialect_.cellPrefix) return expression;
  const Emitted begin = Call(dialect_.cellBegin, std::vector<std::string>{}, SqlType::Null);
  Emitted cell = Call(dialect_.cell, {begin.sql, expression.sql}, expression.type);
  cell.size = expression.size;
  cell.memo = expression.memo;
  return cell;
}

Emitted Forms::Moment() const {
  Emitted moment = Call("now", std::vector<std::string>{}, SqlType::Date);
  moment.sql = "(SELECT " + moment.sql + ")";
  return moment;
}

Emitted Forms::Stored(Emitted expression) const {
  if (expression.truth) {
    expression.sql = '-' + (IsNegativeText(expression.sql) ? '(' + expression.sql + ')' : Wrap(expression, Tightness::Atom)) + dialect_.conditionCast;
    expression.tightness = Tightness::Atom;
    expression.truth = false;
  }
  if (!expression.unchecked) return expression;
  std::string_view test = "fitlong";
  if (expression.type == SqlType::Byte) test = "fitbyte";
  if (expression.type == SqlType::Short) test = "fitshort";
  if (expression.type == SqlType::Currency) test = "fitcur";
  return Call(test, expression, expression.type);
}

Emitted Forms::Truth(Emitted expression) const {
  if (expression.truth) return expression;
  if (expression.type == SqlType::Text) throw errors::UnlikeTypes();
  if (expression.type == SqlType::Date) {
    expression = Number(std::move(expression));
    return ConditionText(expression.sql + " <> 0");
  }
  expression = Stored(std::move(expression));
  if (dialect_.conditionCast.empty()) return expression;
  return ConditionText(Wrap(expression, Tightness::Sum) + " <> 0");
}

Emitted Forms::OneOrZero(Emitted expression) const {
  expression = Truth(std::move(expression));
  if (expression.truth) return expression;
  return ConditionText(Wrap(expression, Tightness::Sum) + " <> 0");
}

Emitted Forms::Number(Emitted expression) const {
  expression = Stored(std::move(expression));
  switch (expression.type) {
    case SqlType::Currency:
      return {.sql = Wrap(expression, Tightness::Product) + " / 10000.0" + dialect_.realCast,
              .type = SqlType::Double,
              .tightness = Tightness::Product,
              .literal = {}};
    case SqlType::Text:
      return Call("toreal", expression, SqlType::Double);
    case SqlType::Date:
      return Call("serial", expression, SqlType::Double);
    default:
      return expression;
  }
}

Emitted Forms::Real(Emitted expression) const {
  if (expression.literal && IsNumber(expression.type)) return Constant(platform::CDbl(*expression.literal));
  expression = Number(std::move(expression));
  if (!IsWhole(expression.type)) return expression;
  return {.sql = "CAST(" + expression.sql + " AS " + dialect_.realType + ")", .type = SqlType::Double, .literal = {}};
}

Emitted Forms::Currency(Emitted expression) const {
  if (expression.type == SqlType::Currency || expression.type == SqlType::Null) return expression;
  if (expression.literal && IsNumber(expression.type)) return Constant(platform::CCur(*expression.literal));
  expression = Number(std::move(expression));
  if (!IsWhole(expression.type)) return Call("tocur", expression, SqlType::Currency);
  Emitted amount = Arithmetic(expression, '*', Constant(std::int32_t{kScale}), SqlType::Long, Tightness::Product);
  amount.type = SqlType::Currency;
  return amount;
}

Emitted Forms::Text(Emitted expression, bool forLike) const {
  expression = Stored(std::move(expression));
  constexpr int kLongestNumber = 30;
  Emitted text;
  switch (expression.type) {
    case SqlType::Null:
    case SqlType::Text:
      return expression;
    case SqlType::Boolean:
      text = Call(forLike ? "textnum" : "textbool", expression, SqlType::Text);
      break;
    case SqlType::Currency:
      text = Call("textcur", expression, SqlType::Text);
      break;
    case SqlType::Date:
      text = Call("textdate", expression, SqlType::Text);
      break;
    default:
      text = Call("textnum", expression, SqlType::Text);
      break;
  }
  text.size = kLongestNumber;
  return text;
}

Emitted Forms::Date(Emitted expression) const {
  if (expression.type == SqlType::Date || expression.type == SqlType::Null) return expression;
  if (expression.type == SqlType::Text) return Call("cdate", {expression.sql, Moment().sql}, SqlType::Date);
  return Call("todate", Number(std::move(expression)), SqlType::Date);
}

Emitted Forms::As(SqlType type, Emitted expression) const {
  if (expression.type == type || expression.type == SqlType::Null) return Stored(std::move(expression));
  switch (type) {
    case SqlType::Currency:
      return Stored(Currency(std::move(expression)));
    case SqlType::Text:
      return Text(std::move(expression));
    case SqlType::Date:
      return Date(std::move(expression));
    default: {
      Emitted number = Number(std::move(expression));
      number.type = type;
      return number;
    }
  }
}

bool Forms::Align(std::vector<Emitted>& values) const {
  const auto any = [&](auto test) { return std::ranges::any_of(values, [&](const Emitted& value) { return test(value.type); }); };
  for (Emitted& value : values) value = Stored(std::move(value));
  if (any([](SqlType type) { return type == SqlType::Text; })) {
    if (any([](SqlType type) { return type != SqlType::Text && type != SqlType::Null; })) throw errors::UnlikeTypes();
    if (dialect_.textKeys == nullptr) return true;
    for (Emitted& value : values) {
      value.sql = value.comparable = KeyOf(value);
      value.tightness = Tightness::Atom;
    }
    return true;
  }
  if (any([](SqlType type) { return type == SqlType::Date; })) {
    AlignDates(values);
  } else if (any([](SqlType type) { return type == SqlType::Currency; })) {
    AlignNumbers(values);
  }
  return false;
}

// Dates among themselves compare as they are stored, with numbers by their serials.
void Forms::AlignDates(std::vector<Emitted>& values) const {
  if (std::ranges::all_of(values, [](const Emitted& value) { return value.type == SqlType::Date || value.type == SqlType::Null; })) return;
  for (Emitted& value : values) value = Number(std::move(value));
}

// Amounts stay exact where the others are whole or constants; a real number is compared with the amount's real value.
void Forms::AlignNumbers(std::vector<Emitted>& values) const {
  const bool exact = std::ranges::all_of(values, [](const Emitted& value) { return value.type != SqlType::Double || value.IsLiteral(); });
  for (Emitted& value : values) {
    if (!exact) {
      value = Number(std::move(value));
    } else if (value.literal && IsNumber(value.type) && value.type != SqlType::Currency) {
      value = {.sql = ScaledConstant(*value.literal), .type = SqlType::Currency, .literal = {}};
    } else {
      value = Currency(std::move(value));
    }
  }
}

std::string Forms::KeyOf(const Emitted& text) const {
  if (text.literal && text.literal->IsText()) return dialect_.Text(dialect_.Comparable(text.literal->As<std::string>()));
  if (text.type == SqlType::Null) return text.sql;
  return text.comparable.empty() ? dialect_.textKeys->function + '(' + text.sql + ')' + dialect_.textKeys->behind : text.comparable;
}

void Forms::PutBeside(Emitted& field, const Emitted& constant) const {
  const bool both = field.table >= 0 && !field.comparable.empty() && constant.literal && constant.literal->IsText();
  if (dialect_.textKeys == nullptr || !both) return;
  field.comparable = dialect_.textKeys->ofFieldBeside(field.comparable, field.sql, dialect_.Comparable(constant.literal->As<std::string>()));
}

std::string Forms::Collate() const { return dialect_.textKeys != nullptr ? "" : " COLLATE " + dialect_.Name(dialect_.collation); }

std::string Forms::Collated(const Emitted& text) const {
  return dialect_.textKeys != nullptr ? KeyOf(text) : Wrap(text, Tightness::Atom) + Collate();
}

std::string Forms::CollatedConstant(std::string_view text) const { return dialect_.Text(dialect_.Comparable(text)) + Collate(); }

}  // namespace engine
