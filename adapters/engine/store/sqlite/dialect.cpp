#include "engine/store/sqlite/dialect.h"

namespace engine {

const Dialect& SqliteDialect() {
  static const Dialect dialect{
      .nameQuote = '"',
      .textQuote = '\'',
      .parameterSign = "?",
      .endless = "9e999",
      .realType = "REAL",
      .alongIndex = " INDEXED BY ",
      .withoutIndex = " NOT INDEXED",
      .collation = "GENERAL",
      .textKeys = nullptr,
      .like = "jlike",
      .likeForms = nullptr,
      .functionPrefix = "f_",
      .cellPrefix = "c_",
      .cellBegin = "begin",
      .cell = "cell",
      .joinInOrder = " CROSS JOIN ",  // its planner turns no such join round
      .least = "min",
      .greatest = "max",
      .nullsAscending = "",  // Null is below all values here
      .nullsDescending = "",
      .insertLenient = "INSERT OR IGNORE INTO",
      .updateLenient = "UPDATE OR IGNORE",
      .nesting = 20,
  };
  return dialect;
}

}  // namespace engine
