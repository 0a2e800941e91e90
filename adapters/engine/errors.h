#pragma once

#include <string_view>

#include "platform/values/error.h"

/// The engine's errors by name: each function makes the error with its number and its full description. The language's own
/// errors (5, 6, 11, 13, 91, 93, 94), and those that recordsets outside of it raise too, stand in platform/values/error.h.
namespace engine::errors {

using platform::Error;
using platform::error::ActionCancelled;  // 3426
using platform::error::NoCurrentRecord;  // 3021
using platform::error::RecordDeleted;    // 3167

/// Numbers by which the engine tells its own errors apart, beside platform::error::number.
namespace number {
inline constexpr int ObjectExists = 3012;
inline constexpr int ReadOnly = 3027;
inline constexpr int FileInUse = 3045;
inline constexpr int NotADatabase = 3049;
inline constexpr int OpenedExclusively = 3051;
inline constexpr int UpdateLocked = 3218;
}  // namespace number

// Transactions and objects.
Error TooManyTransactions();                  ///< 3003: sixth nested BeginTrans
Error TooManyDatabases();                     ///< 3048: all files that the store can have attached are in use
Error ObjectNotFound(std::string_view name);  ///< 3011: table not found by its bare name
Error ObjectExists(std::string_view name);    ///< 3012: appended object's name is taken
Error CommitWithoutBegin();                   ///< 3034: CommitTrans or Rollback without BeginTrans
Error NameInCollection();                     ///< 3367

// Recordsets.
Error UnknownIndex(std::string_view name);  ///< 3015
Error NoCurrentIndex();                     ///< 3019: Seek before Index
Error UpdateWithoutEdit();                  ///< 3020
Error DuplicateKey();                       ///< 3022: unique index or primary key violated
Error ReadOnly();                           ///< 3027
Error NullInKey();                          ///< 3058: Null in a primary key
Error BadBookmark();                        ///< 3159
Error FieldTooSmall();                      ///< 3163: text longer than the field
Error FieldLocked();                        ///< 3164
Error InvalidOperation();                   ///< 3219
Error NotSupported();                       ///< 3251: method not for this kind of recordset
Error NumericOverflow();                    ///< 3349: an SQL result does not fit a number field
Error DataConversion();                     ///< 3421: value can't become the field's type

// Files.
Error FileNotFound(std::string_view path);        ///< 3024: file missing, folder present
Error DiskOrNetwork();                            ///< 3043
Error InvalidPath(std::string_view path);         ///< 3044: folder missing
Error FileInUse(std::string_view path);           ///< 3045
Error NotADatabase(std::string_view path);        ///< 3049: no usable database
Error OpenedExclusively(std::string_view path);   ///< 3051
Error UnrecognizedFormat(std::string_view path);  ///< 3343
Error OtherStore(std::string_view path);          ///< 3219: a file of another store than the database that asks for it

// Locks.
Error UpdateLocked();  ///< 3218: holder unknown

// Statements.
Error TooFewParameters(int count);                                             ///< 3061: names that are neither fields nor tables
Error DuplicateDestination(std::string_view name);                             ///< 3063: INSERT names a field twice
Error SelectExecuted();                                                        ///< 3065: Execute of a SELECT
Error UnknownNameInCriterion(std::string_view name);                           ///< 3070
Error QueryExpression(std::string_view message, std::string_view expression);  ///< 3075: bad expression inside a statement
Error CriterionExpression(std::string_view message);                           ///< 3077: bad expression in a Find criterion
Error NotUpdatableQuery();                                                     ///< 3073: UPDATE of more than one table
Error UnknownTable(std::string_view name);                                     ///< 3078
Error AmbiguousField(std::string_view name);                                   ///< 3079
Error UndefinedFunction(std::string_view name);                                ///< 3085
Error OrderConflictsWithDistinct(std::string_view clause);                     ///< 3093
Error AggregateInExpression(std::string_view expression);                      ///< 3095: Max, Count ... where none may stand
Error AggregateInWhere(std::string_view clause);                               ///< 3096
Error AggregateInOrderBy(std::string_view clause);                             ///< 3097
Error FieldNotUpdatable(std::string_view name);                                ///< 3113: UPDATE of a Counter
Error SortOnMemo(std::string_view clause);                                     ///< 3117
Error JoinOnMemo(std::string_view name);                                       ///< 3118
Error NotInAggregate(std::string_view expression);                             ///< 3122: a plain field beside an aggregate
Error UnknownInsertField(std::string_view name);                               ///< 3127
Error NoStatement();                                                           ///< 3129: first word is no statement
Error FromSyntax();                                                            ///< 3131
Error InsertSyntax();                                                          ///< 3134
Error JoinSyntax();                                                            ///< 3135
Error OrderBySyntax();                                                         ///< 3138
Error SelectSyntax();                                                          ///< 3141: field list does not parse
Error TextAfterEnd();                                                          ///< 3142: text behind the closing semicolon
Error UpdateSyntax();                                                          ///< 3144
Error WhereSyntax();                                                           ///< 3145
Error AmbiguousOuterJoins();                                                   ///< 3258
Error InsertCountMismatch();                                                   ///< 3346
Error QueryTooComplex();                                                       ///< 3360: deeper or longer than a statement may be
Error UnlikeTypes();                                                           ///< 3464: comparison of unlike types

}  // namespace engine::errors
