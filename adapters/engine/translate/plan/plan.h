#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/translate/names/catalogue.h"
#include "platform/data/table_definition.h"
#include "platform/values/value.h"

/// What translation makes of a statement: not one SQL text but the parts from which the cursors build their own
/// statements (a page from a key, a count, a row by its key). All names in the SQL parts are qualified by the table's
/// alias ("t0", "t1" ...) and quoted; literals are written in by the emitter in the store's form.
namespace engine {

/// One table occurrence of FROM.
struct PlanTable {
  const ResolvedTable* table = nullptr;
  std::string alias;      ///< "t0", "t1" ... in the order of the statement
  std::string name;       ///< the statement's own name for it
  bool nullable = false;  ///< an outer join can leave it without a row
  bool follows = false;   ///< in a row that is read anew: found by `tie` alone, not by its key
  std::string tie = {};   ///< condition that ties it to the tables before it in `fetchOrder`; "" for none
};

/// One column that the recordset shows.
struct PlanColumn {
  std::string name;  ///< field name, alias, or "Table.field"
  platform::FieldType type = platform::FieldType::Long;
  int size = 0;
  std::string sql;  ///< expression; yields the stored form of `type`
  int table = -1;   ///< which PlanTable owns the field, -1 for a computed column
  int field = -1;   ///< place in that table's definition
  std::string comparable{};  ///< what equal texts have in common, "" where that is `sql`
};

/// One key of ORDER BY.
struct PlanOrder {
  std::string sql;  ///< expression with its COLLATE where it needs one
  std::string comparable{};  ///< what it is ordered by, "" where that is `sql`
  bool descending = false;
  platform::FieldType type = platform::FieldType::Long;
  int table = -1;  ///< a bare column: its table and field; -1 for an expression
  int field = -1;

  const std::string& By() const { return comparable.empty() ? sql : comparable; }
};

/// A way to the rows of a plan's one table that need not look at all of them: by another table that is joined to its row key,
/// or by an index of its own on a field that a condition holds to constants.
struct PlanDriver {
  std::string keys;  ///< a SELECT of row keys, as "k", Null and doubles among them: no row of the plan has another one
  std::string asks;  ///< the condition on a row by which it has one of these keys
  std::string rest;  ///< what is left of `rowWhere` to ask of a row with such a key, "" for nothing
  int field = -1;    ///< whose index it is; -1 for another table
  /// Where no index leads to the keys: the column by which the other table is read in pieces, and the table.
  std::string pieceKey{};
  std::string pieceTable{};
};

/// A condition of the plan's WHERE that holds one field of its one table to constants.
struct PlanBound {
  int field = -1;
  bool equals = false;  ///< to one value
  std::string sql;
  std::optional<std::string> start{};  ///< of a Like: what its texts begin with, without blanks at its end
  std::optional<std::int64_t> number{};  ///< of a field that equals a whole number
};

/// A SELECT ready for a cursor. Row identity is the tuple of the row keys of `tables`.
struct SelectPlan {
  std::vector<PlanTable> tables;
  std::string from;   ///< text behind FROM
  std::string where;  ///< text behind WHERE, "" if none; already a Boolean expression of the store
  /// The same for rows that are looked at one at a time: other tables are asked for each row by an index of theirs. Equal to
  /// `where` unless `asksByRow`.
  std::string rowWhere;
  bool asksByRow = false;
  std::vector<PlanDriver> drivers;  ///< of one table
  std::vector<PlanBound> bounds;    ///< of one table
  std::vector<PlanColumn> columns;
  std::vector<PlanOrder> order;
  bool distinct = false;   ///< DISTINCT: distinct output values, read-only
  bool aggregate = false;  ///< always one row, read-only; the columns' expressions hold the aggregates
  bool oneTable = false;   ///< `from` is one table alone: its rows are the plan's, without those that `where` refuses
  /// DISTINCTROW over tables that give no output: `tables` holds only those that give output, and `from`/`where` ask for
  /// the others by IN or EXISTS, so that each combination of output rows comes once.
  bool asksOtherTables = false;
  std::vector<std::shared_ptr<StoreFile>> askedFiles;  ///< where the others lie
  bool updatable = true;
  /// Driving table for "no order: row key order", and for the exact strategy's ties: index into tables. In a join it is
  /// the "many" side (no other table is joined to it by a unique field of its own), whose row a Delete removes. Never one
  /// that an outer join can leave without a row.
  int driving = 0;
  /// In which order the tables of one row are found when it is read anew, the driving table first. Empty for a bare table.
  std::vector<int> fetchOrder;
};

/// INSERT, DELETE or UPDATE as the store runs it.
///
/// INSERT and UPDATE that are `direct` run as one statement. Others can meet a value that does not convert or a text that
/// is too long for its field: their rows are read by `source`, each value is assigned to its field by the rules of field
/// assignment (without fail-on-error: Null where it fails), and they are written one by one. So are the rows of an INSERT into
/// another store, which are written in that store's dialect.
struct ActionPlan {
  enum class Kind { Insert, Delete, Update } kind = Kind::Delete;
  const ResolvedTable* target = nullptr;
  bool direct = true;
  /// The one statement; "" when not direct. DELETE always has it.
  std::string sql;
  /// The same, leaving out rows that break a key; "" where the store has no such statement. Equal to `sql` for DELETE.
  std::string lenientSql;
  /// Insert: statement whose columns are the values for `targetFields`, in their order, each the stored form of its
  /// `sourceTypes`. Update: the same with the target's row key as one more column in front.
  std::string source;
  std::vector<int> targetFields;
  std::vector<platform::FieldType> sourceTypes;
  /// Insert: the target has a Counter and `targetFields` does not hold it, so the store gives each row its number. When
  /// they hold it, the table's next number must afterwards stand above the highest.
  bool needsCounter = false;
};

/// How a criterion can be searched without looking at every row.
struct SearchShape {
  enum class Kind {
    Scan,    ///< only by looking at rows
    Equals,  ///< one bare column equals `value`
    Prefix,  ///< one bare text column Like a pattern with the fixed start `value`
  } kind = Kind::Scan;
  int table = -1;
  int field = -1;
  platform::Value value;  ///< Equals: of the field's own type (Long for Byte to Counter); Prefix: the fixed start as text
  std::string pattern;    ///< Prefix: the whole pattern
};

/// A Find criterion against an open SelectPlan's columns.
struct CriterionPlan {
  std::string where;  ///< Boolean expression of the store over the plan's aliases, complete (the whole Like test included)
  SearchShape shape;
};

}  // namespace engine
