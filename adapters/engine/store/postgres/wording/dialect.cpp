#include "engine/store/postgres/wording/dialect.h"

#include <array>

#include "engine/store/postgres/text/like_regex.h"
#include "engine/store/postgres/text/text_key.h"
#include "engine/store/postgres/wording/key_columns.h"
#include "engine/store/postgres/wording/like_test.h"
#include "engine/store/postgres/wording/names.h"

namespace engine::postgres {
namespace {

std::string InSmallLetters(const std::string& text) { return "lower(" + text + ')'; }

std::string FieldKey(const platform::TableDefinition& table, const platform::FieldDefinition& field, std::string_view alias) {
  const std::string owner = std::string(alias) + '.';
  const KeyColumn column = KeyColumnOf(table, field);
  switch (column) {
    case KeyColumn::Full:
      return owner + QuoteName(NameOf(column, field.name));
    case KeyColumn::Sparse:
      return "coalesce(" + owner + QuoteName(NameOf(column, field.name)) + ", " + InSmallLetters(owner + QuoteName(field.name)) + ')';
    case KeyColumn::None:
      break;
  }
  return std::string(kTextKeyFunction) + '(' + owner + QuoteName(field.name) + ')';
}

// How the key of a text begins that has one of its own only here and there; "" for other keys. `text`: the field itself.
std::string BeginningOfSparse(const std::string& ofField, const std::string& text) {
  const std::string end = ", " + InSmallLetters(text) + ')';
  return ofField.ends_with(end) ? ofField.substr(0, ofField.size() - end.size()) : "";
}

// Small letters take as many bytes as the text: of another length none are made. No key is a blank.
std::string FieldKeyBeside(const std::string& ofField, const std::string& text, std::string_view key) {
  const std::string beginning = BeginningOfSparse(ofField, text);
  if (beginning.empty()) return ofField;
  return beginning + ", CASE WHEN octet_length(" + text + ") = " + std::to_string(key.size()) + " THEN " + InSmallLetters(text) + " WHEN " +
         text + " IS NOT NULL THEN ' ' END)";
}

// A text that has no key of its own stands between its small and its capital letters, byte by byte, as blanks, digits and the signs before
// them are all else that it can have. So does a key that stands in its place.
TextKeys::Rough FieldRoughly(const std::string& ofField, const std::string& text, const std::string& key, bool descending) {
  const std::string beginning = BeginningOfSparse(ofField, text);
  if (beginning.empty()) return {};
  return {.row = beginning + ", " + text + ", '')", .bound = "coalesce(" + (descending ? "upper(" + key + ')' : key) + ", '')"};
}

// Dates are texts, too. A key that is put together has no index anyway.
std::string ByNoIndex(const std::string& key, platform::FieldType type) {
  using platform::FieldType;
  if (key.starts_with("coalesce(")) return key;
  const bool isText = type == FieldType::Text || type == FieldType::Memo || type == FieldType::Date;
  return '(' + key + (isText ? " || '')" : " + 0)");
}

const TextKeys& Keys() {
  static const TextKeys keys{.ofText = TextKey,
                             .ofField = FieldKey,
                             .ofFieldBeside = FieldKeyBeside,
                             .ofFieldRoughly = FieldRoughly,
                             .function = std::string(kTextKeyFunction),
                             .behind = " COLLATE \"C\""};
  return keys;
}

constexpr std::array<std::string_view, 31> kUncounted{
    "f_addlong", "f_sublong", "f_mullong",  "f_neglong", "f_addcur",  "f_subcur", "f_timescur", "f_negcur", "f_addreal", "f_subreal",
    "f_mulreal", "f_divreal", "c_addlong",  "c_sublong", "c_mullong", "c_neglong", "c_addcur",  "c_subcur", "c_timescur", "c_negcur",
    "c_addreal", "c_subreal", "c_mulreal",  "c_divreal", "coalesce",  "lower",    "rtrim",      "chr",      "text_key",  "array_agg",
    "octet_length"};

constexpr LikeForms kLikeForms{.ofPattern = LikeRegex, .test = LikeTest, .ofKnown = KnownLikeTest};

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
      .rowsAtOnce = 52,
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
