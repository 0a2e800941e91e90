#include "engine/store/postgres/wording/dialect.h"

#include <array>

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

// A pattern with a fixed beginning stands behind a range of the index, which nearly all rows pass that lie in it. The planner takes any
// regular expression for one that hardly a row passes, and would rather put the whole range in order than walk it; of a CASE it
// takes half of the rows to pass.
// Parameters are such patterns always.
bool HasFixedBeginning(std::string_view regex) {
  return regex.starts_with('$') || (regex.starts_with("'^") && !regex.starts_with("'^.") && regex.ends_with(".*$'"));
}

std::string LikeTest(const std::string& value, const std::string& regex) {
  if (regex.starts_with('\'') && StandsAnywhere(std::string_view(regex).substr(1))) return value + " ~ " + regex;
  const std::string test = LikeSubject(value) + " ~ " + regex;
  return HasFixedBeginning(regex) ? "CASE " + test + " WHEN true THEN true WHEN false THEN false END" : test;
}

// Dates are texts, too.
std::string ByNoIndex(const std::string& key, platform::FieldType type) {
  using platform::FieldType;
  const bool isText = type == FieldType::Text || type == FieldType::Memo || type == FieldType::Date;
  return '(' + key + (isText ? " || '')" : " + 0)");
}

const TextKeys& Keys() {
  static const TextKeys keys{.ofText = TextKey, .ofField = FieldKey, .function = std::string(kTextKeyFunction), .behind = " COLLATE \"C\""};
  return keys;
}

constexpr std::array<std::string_view, 30> kUncounted{
    "f_addlong", "f_sublong", "f_mullong",  "f_neglong", "f_addcur",  "f_subcur", "f_timescur", "f_negcur", "f_addreal", "f_subreal",
    "f_mulreal", "f_divreal", "c_addlong",  "c_sublong", "c_mullong", "c_neglong", "c_addcur",  "c_subcur", "c_timescur", "c_negcur",
    "c_addreal", "c_subreal", "c_mulreal",  "c_divreal", "coalesce",  "lower",    "rtrim",      "chr",      "text_key",  "array_agg"};

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
      .byNoIndex = ByNoIndex,
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
      .arithmeticCalls = true,
      .rowsInOrder = false,
      .openResults = false,
      .uncounted = kUncounted,
      .joinInOrder = " JOIN ",
      .joinAll = " CROSS JOIN ",
      .least = "least_of",
      .greatest = "greatest_of",
      .rowValues = true,
      .rowsAtOnce = 64,
      .nullsAscending = " NULLS FIRST",
      .nullsDescending = " NULLS LAST",
      .insertLenient = "",
      .updateLenient = "",
      .givingBack = " RETURNING ",
      .nesting = 20,
  };
  return dialect;
}

}  // namespace engine::postgres
