#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/store/dialect.h"
#include "engine/translate/emit/emitted.h"

/// Turning translated expressions from one form into another.
namespace engine {

class Forms {
 public:
  explicit Forms(const Dialect& dialect) : dialect_(dialect) {}
  const Dialect& GetDialect() const { return dialect_; }

  /// A constant in the store's form.
  Emitted Constant(const platform::Value& value) const;
  /// A call of one of the store's helpers or of the dialect's functions.
  Emitted Call(std::string_view name, const std::vector<std::string>& arguments, SqlType type) const;
  Emitted Call(std::string_view name, const Emitted& argument, SqlType type) const;
  /// left + right and the like, in the store's form. `own` is how tight the sign binds.
  Emitted Arithmetic(const Emitted& left, char sign, const Emitted& right, SqlType type, Tightness own) const;
  /// -operand
  Emitted Negative(const Emitted& operand, SqlType type) const;
  /// The present moment, which the store asks for once in a statement, not for each row.
  Emitted Moment() const;

  /// As a cell of a list, in a dialect for cells: Null where it can't be computed. Constants stay as they are.
  Emitted Cell(Emitted expression) const;

  /// Range tested, -1/0 instead of 1/0: what a column shows.
  Emitted Stored(Emitted expression) const;
  /// As a condition; a text: 3464.
  Emitted Truth(Emitted expression) const;
  /// As a condition that is exactly 1, 0 or Null.
  Emitted OneOrZero(Emitted expression) const;

  /// As a plain number of the store: Currency and texts become real, dates their serial, others stay.
  Emitted Number(Emitted expression) const;
  /// As Number, and sure to be real.
  Emitted Real(Emitted expression) const;
  /// As ten-thousandths. Stays unchecked when it was.
  Emitted Currency(Emitted expression) const;
  /// As the text that it shows (a Boolean "True" or "False"; for Like "-1" or "0").
  Emitted Text(Emitted expression, bool forLike = false) const;
  Emitted Date(Emitted expression) const;
  Emitted As(SqlType type, Emitted expression) const;

  /// Brings values that are compared with each other into one form. Unlike types: 3464. True when they are texts.
  bool Align(std::vector<Emitted>& values) const;

  /// " COLLATE ..." of the text order; "" where keys are compared.
  std::string Collate() const;
  /// A text as it is compared and ordered: in the text order's collation, or its key.
  std::string Collated(const Emitted& text) const;
  /// A field that is compared with a constant for equality may be worded for that.
  void PutBeside(Emitted& field, const Emitted& constant) const;
  /// A constant as a text is compared with it.
  std::string CollatedConstant(std::string_view text) const;

 private:
  std::string KeyOf(const Emitted& text) const;
  void AlignDates(std::vector<Emitted>& values) const;
  void AlignNumbers(std::vector<Emitted>& values) const;

  const Dialect& dialect_;
};

/// The constant number in ten-thousandths, exact: a whole number or a real one.
std::string ScaledConstant(const platform::Value& number);

}  // namespace engine
