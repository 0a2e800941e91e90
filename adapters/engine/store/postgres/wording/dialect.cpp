#include "engine/store/postgres/wording/dialect.h"

#include "engine/store/postgres/text/like_regex.h"
#include "engine/store/postgres/text/text_key.h"
#include "engine/store/postgres/wording/key_columns.h"
#include "engine/store/postgres/wording/names.h"

namespace engine::postgres {
namespace {

std::string FieldKey(const platform::TableDefinition& table, const platform::FieldDefinition& field, std::string_view alias) {
  const std::string owner = std::string(alias) + '.';
  const KeyColumn column = KeyColumnOf(table, field);
  switch (column) {
    case KeyColumn::Full:
      return owner + QuoteName(NameOf(column, field.name));
    case KeyColumn::Sparse:
      return "coalesce(" + owner + QuoteName(NameOf(column, field.name)) + ", lower(" + owner + QuoteName(field.name) + "))";
    case KeyColumn::None:
      break;
  }
  return std::string(kTextKeyFunction) + '(' + owner + QuoteName(field.name) + ')';
}

std::string LikeTest(const std::string& value, const std::string& regex) { return LikeSubject(value) + " ~ " + regex; }

const TextKeys& Keys() {
  static const TextKeys keys{.ofText = TextKey, .ofField = FieldKey, .function = std::string(kTextKeyFunction)};
  return keys;
}

constexpr LikeForms kLikeForms{.ofPattern = LikeRegex, .test = LikeTest};

}  // namespace

const Dialect& ServerDialect() {
  static const Dialect dialect{
      .nameQuote = '"',
      .textQuote = '\'',
      .parameterSign = "$",
      .endless = "'Infinity'::float8",
      .realType = "float8",
      .alongIndex = "",  // its planner takes no hints
      .withoutIndex = "",
      .collation = "",
      .textKeys = &Keys(),
      .like = "jlike",
      .likeForms = &kLikeForms,
      .conditionCast = "::integer",
      .realCast = "::float8",
      .functionPrefix = "f_",
      .cellPrefix = "c_",
      .cellBegin = "begin",
      .cell = "cell",
      .joinInOrder = " JOIN ",
      .least = "least",
      .greatest = "greatest",
      .nullsAscending = " NULLS FIRST",
      .nullsDescending = " NULLS LAST",
      .insertLenient = "INSERT INTO",
      .updateLenient = "UPDATE",
      .givingBack = " RETURNING ",
      .nesting = 20,
  };
  return dialect;
}

}  // namespace engine::postgres
