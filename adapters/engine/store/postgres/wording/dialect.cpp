#include "engine/store/postgres/wording/dialect.h"

namespace engine::postgres {

const Dialect& ServerDialect() {
  static const Dialect dialect{
      .nameQuote = '"',
      .textQuote = '\'',
      .parameterSign = "$",
      .endless = "'Infinity'::float8",
      .realType = "float8",
      .alongIndex = "",  // its planner takes no hints
      .withoutIndex = "",
      .collation = "C",  // of the keys; the texts themselves stand in no order of ours
      .like = "jlike",
      .functionPrefix = "f_",
      .cellPrefix = "c_",
      .cellBegin = "begin",
      .cell = "cell",
      .least = "least",
      .greatest = "greatest",
      .nullsAscending = " NULLS FIRST",
      .nullsDescending = " NULLS LAST",
      .insertLenient = "INSERT INTO",
      .updateLenient = "UPDATE",
      .nesting = 20,
  };
  return dialect;
}

}  // namespace engine::postgres
