#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/values/value.h"

namespace printing {

/// What a name in braces stands for: {Table.Field}, {@Formula}, {#Total}.
enum class NameKind { Field, Formula, Total };

/// What the engine itself knows while a report runs.
enum class SystemValue { PageNumber, PageCount, RecordNumber, Today, Selection, ReportTitle };

enum class Operator {
  And,
  Or,
  Not,
  Equal,
  NotEqual,
  Less,
  LessOrEqual,
  Greater,
  GreaterOrEqual,
  Join,
  Add,
  Subtract,
  Multiply,
  Divide,
  Negate
};

enum class Function { IsNull, Trim, UpperCase, Left, Right, Length, ToText, Year, Month, Round, ToNumber };

enum class ExpressionKind { Constant, Name, System, Operation, Call, InList, InRange, StartsWith, Like, Choice };

/// What an expression gives, known before any row is read. Each may be Null.
enum class ValueType { Boolean, Number, Date, Text };

/// One expression of a report file or of a selection, as a tree.
///
/// The operands by kind: Operation its one or two (And, Or and Join: two or more in a row); Call the arguments; InList the tested value,
/// then the list; InRange the tested value, the low and the high end (both belong to the range); StartsWith and Like the tested value and
/// the text; Choice (If a Then b Else c) the three.
struct Expression {
  ExpressionKind kind = ExpressionKind::Constant;
  platform::Value constant;  ///< Constant: Boolean, Double, Date or Text
  NameKind nameKind = NameKind::Field;
  std::string table;  ///< Name of kind Field: as the report names the table
  std::string name;   ///< Name: the field, formula or total
  SystemValue system = SystemValue::PageNumber;
  Operator operation = Operator::And;
  Function function = Function::Trim;
  std::vector<Expression> operands;
  std::size_t place = 0;  ///< where it begins in its text, in bytes, for messages
  int line = 0;           ///< of the report file; 0 for an expression that stands in none
  int height = 1;         ///< levels of the tree below and with this one
};

/// No tree is higher; who writes a higher one gets an error.
inline constexpr int kHighestExpression = 100;

}  // namespace printing
