#pragma once

#include <string>
#include <string_view>

namespace engine {

/// What differs between the stores that run translated statements. Shared code never asks which store it is.
struct Dialect {
  /// Collation of the text order, written as COLLATE "..." on every text comparison; declared on text columns too.
  std::string collation = "GENERAL";
  /// The whole Like test: like(value, pattern) gives -1, 0 or Null.
  std::string like = "jlike";
  /// Stands in front of the names of the dialect's functions and of the helpers in store_functions.h ("f_val", "f_ccur"),
  /// so that they never meet the store's own.
  std::string functionPrefix = "f_";
  /// The same functions for a computed cell: one that fails gives Null and leaves a mark instead of failing its statement.
  std::string cellPrefix = "c_";
  /// Names of two more of these: cell(begin(), expression) is the expression, or Null when a function left its mark in it.
  std::string cellBegin = "begin";
  std::string cell = "cell";
  /// The smallest and the greatest of their arguments, Null if one is Null.
  std::string least = "min";
  std::string greatest = "max";
  /// Behind a key of ORDER BY to get Null first ascending and last descending; "" where the store does so by itself.
  std::string nullsAscending;
  std::string nullsDescending;
  /// How an INSERT and an UPDATE begin that leave out rows which break a key.
  std::string insertLenient = "INSERT OR IGNORE INTO";
  std::string updateLenient = "UPDATE OR IGNORE";
  /// Comparison that takes two Nulls as equal.
  std::string same = "IS";
  /// How deep calls and parentheses of an expression may nest; deeper ones raise 3360.
  int nesting = 20;

  /// The dialect in which the columns of a list are written: its functions are those of cells.
  Dialect ForCells() const;
};

/// A name in the store's quotes: "Customers", with its own quotes doubled.
std::string QuoteName(std::string_view name);
/// A text literal of the store; a NUL is a bug.
std::string QuoteText(std::string_view text);

}  // namespace engine
