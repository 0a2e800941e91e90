#include "engine/errors.h"

#include <initializer_list>
#include <string>

namespace engine::errors {
namespace {

std::string Join(std::initializer_list<std::string_view> parts) {
  std::string text;
  for (const std::string_view part : parts) text += part;
  return text;
}

}  // namespace

Error TooManyTransactions() { return {3003, "Couldn't start transaction; too many transactions already nested."}; }
Error TooManyDatabases() { return {3048, "Can't open any more databases."}; }
Error ObjectNotFound(std::string_view name) {
  return {3011, Join({"The Microsoft Jet database engine could not find the object '", name,
                      "'. Make sure the object exists and that you spell its name and the path name correctly."})};
}
Error ObjectExists(std::string_view name) { return {number::ObjectExists, Join({"Object '", name, "' already exists."})}; }
Error CommitWithoutBegin() { return {3034, "You tried to commit or roll back a transaction without first using BeginTrans."}; }
Error NameInCollection() { return {3367, "Can't append.  An object with that name already exists in the collection."}; }

Error UnknownIndex(std::string_view name) {
  return {3015, Join({"'", name,
                      "' isn't an index in this table. Look in the Indexes collection of the TableDef object to determine the valid "
                      "index names."})};
}
Error NoCurrentIndex() { return {3019, "Operation invalid without a current index."}; }
Error UpdateWithoutEdit() { return {3020, "Update or CancelUpdate without AddNew or Edit."}; }
Error DuplicateKey() {
  return {platform::error::number::DuplicateKey,
          "The changes you requested to the table were not successful because they would create duplicate values in the index, primary "
          "key, or relationship.  Change the data in the field or fields that contain duplicate data, remove the index, or redefine the "
          "index to permit duplicate entries and try again."};
}
Error ReadOnly() { return {number::ReadOnly, "Can't update.  Database or object is read-only."}; }
Error NullInKey() { return {3058, "Index or primary key can't contain a Null value."}; }
Error BadBookmark() { return {3159, "Not a valid bookmark."}; }
Error FieldTooSmall() {
  return {3163, "The field is too small to accept the amount of data you attempted to add.  Try inserting or pasting less data."};
}
Error FieldLocked() {
  return {3164, "The field can't be updated because another user or process has locked the corresponding record or table."};
}
Error InvalidOperation() { return {3219, "Invalid operation."}; }
Error NotSupported() { return {3251, "Operation is not supported for this type of object."}; }
Error NumericOverflow() { return {3349, "Numeric field overflow."}; }
Error DataConversion() { return {3421, "Data type conversion error."}; }

Error FileNotFound(std::string_view path) { return {3024, Join({"Couldn't find file '", path, "'."})}; }
Error DiskOrNetwork() { return {3043, "Disk or network error."}; }
Error InvalidPath(std::string_view path) {
  return {3044, Join({"'", path,
                      "' isn't a valid path.  Make sure that the path name is spelled correctly and that you are connected to the server "
                      "on which the file resides."})};
}
Error FileInUse(std::string_view path) { return {number::FileInUse, Join({"Couldn't use '", path, "'; file already in use."})}; }
Error NotADatabase(std::string_view path) {
  return {number::NotADatabase, Join({"Can't open database '", path,
                                      "'.  It may not be a database that your application recognizes, or the file may be corrupt."})};
}
Error OpenedExclusively(std::string_view path) {
  return {number::OpenedExclusively,
          Join({"The Microsoft Jet database engine cannot open the file '", path,
                "'.  It is already opened exclusively by another user, or you need permission to view its data."})};
}
Error UnrecognizedFormat(std::string_view path) { return {3343, Join({"Unrecognized database format '", path, "'."})}; }
Error OtherStore(std::string_view path) {
  return {InvalidOperation().Number(),
          Join({InvalidOperation().Description(), "  '", path,
                "' and the database that asks for it must lie on the same server's database, or must both be files: tables can't be linked or "
                "joined across them."})};
}

Error UpdateLocked() { return {number::UpdateLocked, "Couldn't update; currently locked."}; }

Error TooFewParameters(int count) { return {3061, Join({"Too few parameters. Expected ", std::to_string(count), "."})}; }
Error DuplicateDestination(std::string_view name) { return {3063, Join({"Duplicate output destination '", name, "'."})}; }
Error SelectExecuted() { return {3065, "Can't execute a select query."}; }
Error UnknownNameInCriterion(std::string_view name) {
  return {3070, Join({"The Microsoft Jet database engine does not recognize '", name, "' as a valid field name or expression."})};
}
Error QueryExpression(std::string_view message, std::string_view expression) {
  return {3075, Join({message, " in query expression '", expression, "'."})};
}
Error CriterionExpression(std::string_view message) { return {3077, Join({message, " in expression."})}; }
Error NotUpdatableQuery() { return {3073, "Operation must use an updatable query."}; }
Error UnknownTable(std::string_view name) {
  return {3078, Join({"The Microsoft Jet database engine cannot find the input table or query '", name,
                      "'.  Make sure it exists and that its name is spelled correctly."})};
}
Error AmbiguousField(std::string_view name) {
  return {3079,
          Join({"The specified field '", name, "' could refer to more than one table listed in the FROM clause of your SQL statement."})};
}
Error UndefinedFunction(std::string_view name) { return {3085, Join({"Undefined function '", name, "' in expression."})}; }
Error OrderConflictsWithDistinct(std::string_view clause) {
  return {3093, Join({"ORDER BY clause (", clause, ") conflicts with DISTINCT."})};
}
Error AggregateInExpression(std::string_view expression) {
  return {3095, Join({"Can't have aggregate function in expression (", expression, ")."})};
}
Error AggregateInWhere(std::string_view clause) { return {3096, Join({"Can't have aggregate function in WHERE clause (", clause, ")."})}; }
Error AggregateInOrderBy(std::string_view clause) {
  return {3097, Join({"Can't have aggregate function in ORDER BY clause (", clause, ")."})};
}
Error FieldNotUpdatable(std::string_view name) { return {3113, Join({"Can't update '", name, "'; field not updatable."})}; }
Error SortOnMemo(std::string_view clause) { return {3117, Join({"Can't sort on Memo or OLE Object (", clause, ")."})}; }
Error JoinOnMemo(std::string_view name) { return {3118, Join({"Can't join on Memo or OLE Object (", name, ")."})}; }
Error NotInAggregate(std::string_view expression) {
  return {3122, Join({"You tried to execute a query that doesn't include the specified expression '", expression,
                      "' as part of an aggregate function."})};
}
Error UnknownInsertField(std::string_view name) {
  return {3127, Join({"The INSERT INTO statement contains the following unknown field name: '", name,
                      "'.  Make sure you've typed the name correctly, and try the operation again."})};
}
Error NoStatement() { return {3129, "Invalid SQL statement; expected 'DELETE', 'INSERT', 'PROCEDURE', 'SELECT', or 'UPDATE'."}; }
Error FromSyntax() { return {3131, "Syntax error in FROM clause."}; }
Error InsertSyntax() { return {3134, "Syntax error in INSERT INTO statement."}; }
Error JoinSyntax() { return {3135, "Syntax error in JOIN operation."}; }
Error OrderBySyntax() { return {3138, "Syntax error in ORDER BY clause."}; }
Error SelectSyntax() {
  return {3141,
          "The SELECT statement includes a reserved word or an argument name that is misspelled or missing, or the punctuation is "
          "incorrect."};
}
Error TextAfterEnd() { return {3142, "Characters found after end of SQL statement."}; }
Error UpdateSyntax() { return {3144, "Syntax error in UPDATE statement."}; }
Error WhereSyntax() { return {3145, "Syntax error in WHERE clause."}; }
Error AmbiguousOuterJoins() {
  return {3258,
          "The SQL statement couldn't be executed because it contains ambiguous outer joins.  To force one of the joins to be "
          "performed first, create a separate query that performs the first join and then include that query in your SQL "
          "statement."};
}
Error InsertCountMismatch() { return {3346, "Number of query values and destination fields aren't the same."}; }
Error QueryTooComplex() { return {3360, "Query is too complex."}; }
Error UnlikeTypes() { return {3464, "Data type mismatch in criteria expression."}; }

}  // namespace engine::errors
