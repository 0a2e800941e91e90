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
      .likeKnown = nullptr,
      .functionPrefix = "f_",
      .cellPrefix = "c_",
      .cellBegin = "begin",
      .cell = "cell",
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
