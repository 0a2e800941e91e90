#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/data/table_definition.h"
#include "platform/values/value.h"

namespace engine {

class LikePattern;

/// How a store orders texts that can't do it by itself: it compares keys of them, whose bytes stand in the text order.
struct TextKeys {
  /// The key of a text: of constants and of parameters.
  std::string (*ofText)(std::string_view text) = nullptr;
  /// The expression for the key of what a field holds; `alias` stands for its table.
  std::string (*ofField)(const platform::TableDefinition& table, const platform::FieldDefinition& field, std::string_view alias) = nullptr;
  /// The same beside a constant's key that it is compared with for equality: quicker where it is another one. `text` is the field itself.
  std::string (*ofFieldBeside)(const std::string& ofField, const std::string& text, std::string_view key) = nullptr;
  /// Where a row stands, roughly, beside a bound: no row whose key is within the bound's key stands beyond, and few others are within.
  struct Rough {
    std::string row;
    std::string bound;
  };
  /// Of what a field holds, `text` being the field itself; without texts where comparing the keys is as little work. `key`: the expression
  /// for the bound's key; Nulls alone are within a Null, and descending all rows.
  Rough (*ofFieldRoughly)(const std::string& ofField, const std::string& text, const std::string& key, bool descending) = nullptr;
  /// The store's function that makes the key of any text.
  std::string function;
  /// Behind a call of it, so that its keys stand in the order of their bytes whatever they were made of.
  std::string behind{};
};

/// The Like test of a store that makes it by expressions of its own.
struct LikeForms {
  /// The pattern as the test by a parameter takes it.
  std::string (*ofPattern)(const LikePattern& pattern) = nullptr;
  /// That test as a condition; `parameter` is the expression for such a pattern.
  std::string (*test)(const std::string& value, const std::string& parameter) = nullptr;
  /// The test by a pattern that the statement holds itself.
  std::string (*ofKnown)(const std::string& value, const LikePattern& pattern) = nullptr;
};

/// What differs between the stores that run translated statements. Shared code never asks which store it is; each store fills
/// in all of it.
struct Dialect {
  /// Quotes of names and of text literals; within the text they are doubled.
  char nameQuote = 0;
  char textQuote = 0;
  /// Stands before the number of a parameter.
  std::string parameterSign;
  /// A number beyond all others, as a literal.
  std::string endless;
  /// The type of real numbers, behind CAST ... AS.
  std::string realType;
  /// Behind a table in FROM: before the quoted name of an index that the rows must be read along, and the words for none; both
  /// "" where the store takes no such hints.
  std::string alongIndex;
  std::string withoutIndex;
  /// Set where the store plans each statement for its values by what it knows of the tables: how a list begins is left to it then, but for
  /// whether the first rows are near. Gives a field of that type in a form by which no index orders it.
  std::string (*byNoIndex)(const std::string& key, platform::FieldType type) = nullptr;
  /// Collation of the text order, written as COLLATE "..." on every text comparison; declared on text columns too.
  std::string collation;
  /// What is compared instead in a store that has no such collation.
  const TextKeys* textKeys = nullptr;
  /// The whole Like test: like(value, pattern) gives -1, 0 or Null.
  std::string like;
  /// The test by a pattern that is known beforehand; nullptr where the call does as well.
  const LikeForms* likeForms = nullptr;
  /// Behind a condition, to make it the number 1 or 0, and behind a real number's constant; "" where these are numbers by themselves.
  /// A store whose conditions are no numbers takes no number for a condition either.
  std::string conditionCast{};
  std::string realCast{};
  /// Stands in front of the names of the dialect's functions and of the helpers in store_functions.h ("f_val", "f_ccur"),
  /// so that they never meet the store's own.
  std::string functionPrefix;
  /// The same functions for a computed cell: one that fails gives Null and leaves a mark instead of failing its statement.
  std::string cellPrefix;
  /// Names of two more of these: cell(begin(), expression) is the expression, or Null when a function left its mark in it.
  std::string cellBegin;
  std::string cell;
  /// Whether numbers are added, multiplied and negated by functions of the store ("f_addlong"), as its own operators would compute
  /// in 32 bits, or fail where a number passes all others.
  bool arithmeticCalls = false;
  /// Whether rows for which no order is asked come in the order of their row keys, and UPDATE changes them in it.
  bool rowsInOrder = true;
  /// Whether a statement may stay open, at its last row, while others run. Elsewhere what is left of its rows would be fetched first.
  bool openResults = true;
  /// Calls that stand only in this store's texts, and don't count where expressions are nested.
  std::span<const std::string_view> uncounted{};
  /// Between two tables: for each row of the first one the second is entered by the condition behind ON.
  std::string joinInOrder;
  /// Between two tables without a condition of their own.
  std::string joinAll = " INNER JOIN ";
  /// The smallest and the greatest of their arguments, Null if one is Null.
  std::string least;
  std::string greatest;
  /// Whether rows are compared as wholes, "(a, b) > (x, y)", along an index, and the parts of a UNION ALL come in their order: then the rows
  /// behind a place are one statement.
  bool rowValues = false;
  /// How many rows are read where one is wanted: more than one where asking costs more than rows do.
  int rowsAtOnce = 1;
  /// Behind a key of ORDER BY to get Null first ascending and last descending; "" where the store does so by itself.
  std::string nullsAscending;
  std::string nullsDescending;
  /// How an INSERT and an UPDATE begin that leave out rows which break a key; "" where the store has no such statements.
  std::string insertLenient;
  std::string updateLenient;
  /// Behind an INSERT or UPDATE of one row, before columns that are to be given back; "" where a statement knows the new key anyway.
  std::string givingBack{};
  /// How deep calls and parentheses of an expression may nest; deeper ones raise 3360.
  int nesting = 0;

  /// The dialect in which the columns of a list are written: its functions are those of cells.
  Dialect ForCells() const;

  /// Whether the store finds the best way for each statement by itself (byNoIndex), and serves painting while it looks: then a look at all
  /// rows is one statement.
  bool PlansByItself() const noexcept { return byNoIndex != nullptr; }

  /// A name in the store's quotes: "Customers".
  std::string Name(std::string_view name) const;
  /// A text literal; a NUL is a bug.
  std::string Text(std::string_view text) const;
  /// A constant in its stored form: Booleans as -1 and 0, Currency as its ten-thousandths, dates as ISO text.
  std::string Constant(const platform::Value& value) const;
  /// Parameter of that number, from 1 on.
  std::string Parameter(std::size_t number) const;
  /// Behind a table: read along that index of it.
  std::string Along(std::string_view table, std::string_view index) const;
  /// What a field is compared and ordered by: its column, or its text's key. `alias` stands for its table.
  std::string Comparable(const platform::TableDefinition& table, const platform::FieldDefinition& field, std::string_view alias) const;
  /// A text as it is compared: itself, or its key.
  std::string Comparable(std::string_view text) const { return textKeys != nullptr ? textKeys->ofText(text) : std::string(text); }
  /// The test by a parameter that takes what LikeForm gives: a condition, or a call that gives -1, 0 or Null.
  std::string LikeTest(const std::string& value, const std::string& parameter) const;
  std::string LikeForm(std::string_view pattern) const;
  /// Behind a key of ORDER BY.
  std::string OrderSuffix(bool descending) const;
};

/// The name of a table's index in the store.
std::string IndexName(std::string_view table, std::string_view index);

}  // namespace engine
