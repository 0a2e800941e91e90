#include "engine/store/dialect.h"

#include <array>
#include <cassert>
#include <charconv>
#include <cmath>

#include "engine/text/like.h"
#include "engine/values/iso_date.h"

namespace engine {
namespace {

using platform::ValueKind;

std::string Quoted(std::string_view content, char quote) {
  assert(content.find('\0') == std::string_view::npos);
  std::string text(1, quote);
  for (const char c : content) {
    if (c == quote) text += quote;
    text += c;
  }
  return text + quote;
}

std::string RealText(double number) {
  std::array<char, 64> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
  std::string text(buffer.data(), end);
  if (text.find_first_of(".e") == std::string::npos) text += ".0";
  return text;
}

}  // namespace

Dialect Dialect::ForCells() const {
  Dialect cells = *this;
  cells.functionPrefix = cellPrefix;
  cells.like = cellPrefix + like;
  ++cells.nesting;  // the cell itself
  return cells;
}

std::string Dialect::Name(std::string_view name) const { return Quoted(name, nameQuote); }

std::string Dialect::Text(std::string_view text) const { return Quoted(text, textQuote); }

std::string Dialect::Constant(const platform::Value& value) const {
  switch (value.Kind()) {
    case ValueKind::Empty:
    case ValueKind::Null:
      break;
    case ValueKind::Boolean:
      return value.As<bool>() ? "-1" : "0";
    case ValueKind::Byte:
      return std::to_string(value.As<std::uint8_t>());
    case ValueKind::Short:
      return std::to_string(value.As<std::int16_t>());
    case ValueKind::Long:
      return std::to_string(value.As<std::int32_t>());
    case ValueKind::Currency:
      return std::to_string(value.As<platform::Currency>().tenThousandths);
    case ValueKind::Double: {
      const auto number = value.As<double>();
      if (std::isnan(number)) break;
      if (std::isinf(number)) return number < 0 ? '-' + endless : endless;
      return RealText(number) + realCast;
    }
    case ValueKind::Date:
      return Text(IsoText(value.As<platform::Date>()));
    case ValueKind::Text:
      return Text(value.As<std::string>());
  }
  return "NULL";
}

std::string Dialect::Parameter(std::size_t number) const { return parameterSign + std::to_string(number); }

std::string Dialect::Along(std::string_view table, std::string_view index) const {
  return alongIndex.empty() ? std::string() : alongIndex + Name(IndexName(table, index));
}

std::string Dialect::Comparable(const platform::TableDefinition& table, const platform::FieldDefinition& field, std::string_view alias) const {
  using platform::FieldType;
  const bool isText = field.type == FieldType::Text || field.type == FieldType::Memo;
  if (isText && textKeys != nullptr) return textKeys->ofField(table, field, alias);
  return std::string(alias) + '.' + Name(field.name);
}

std::string Dialect::LikeTest(const std::string& value, const std::string& parameter) const {
  return likeForms != nullptr ? likeForms->test(value, parameter) : like + '(' + value + ", " + parameter + ')';
}

std::string Dialect::LikeForm(std::string_view pattern) const {
  return likeForms != nullptr ? likeForms->ofPattern(LikePattern(pattern)) : std::string(pattern);
}

std::string Dialect::OrderSuffix(bool descending) const { return descending ? " DESC" + nullsDescending : nullsAscending; }

std::string IndexName(std::string_view table, std::string_view index) { return std::string(table) + '.' + std::string(index); }

}  // namespace engine
