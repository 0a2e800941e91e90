#include "engine/store/sqlite/functions.h"

#include <sqlite3.h>

#include <cmath>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "engine/functions/store_functions.h"
#include "engine/store/sqlite/connection.h"
#include "engine/store/sqlite/dialect.h"
#include "engine/text/like.h"
#include "engine/text/text_order.h"

namespace engine {
namespace {

// As bytes: asked for as a text, the store would first copy it to put an end mark behind it.
std::string_view TextOf(sqlite3_value* value) {
  const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
  return bytes == nullptr ? std::string_view() : std::string_view(bytes, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

int Collate(void*, int leftSize, const void* left, int rightSize, const void* right) {
  return CompareText({static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
                     {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
}

// What a registered function needs when it is called.
struct Helper {
  Connection* connection;
  const StoreFunction* function;
  bool inCell;  ///< one that fails leaves its mark and is Null
};

const Helper& HelperOf(sqlite3_context* context) { return *static_cast<const Helper*>(sqlite3_user_data(context)); }

// The store's functions can't throw: the error waits in the connection until the statement has failed.
void Fail(sqlite3_context* context, const Helper& helper, const std::exception_ptr& failure) {
  try {
    std::rethrow_exception(failure);
  } catch (const platform::Error& error) {
    if (helper.inCell) {
      helper.connection->MarkCell(true);
      return sqlite3_result_null(context);
    }
    helper.connection->PendingError(error);
    sqlite3_result_error(context, error.what(), -1);
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  }
}

// A pattern that stays the same for a whole statement is read once.
const LikePattern& PatternOf(sqlite3_context* context, sqlite3_value* argument, std::unique_ptr<LikePattern>& own) {
  if (const auto* kept = static_cast<const LikePattern*>(sqlite3_get_auxdata(context, 1))) return *kept;
  own = std::make_unique<LikePattern>(TextOf(argument));
  return *own;
}

void Like(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (sqlite3_value_type(arguments[0]) == SQLITE_NULL || sqlite3_value_type(arguments[1]) == SQLITE_NULL)
    return sqlite3_result_null(context);
  try {
    std::unique_ptr<LikePattern> own;
    sqlite3_result_int(context, PatternOf(context, arguments[1], own).Matches(TextOf(arguments[0])) ? -1 : 0);
    if (own)
      sqlite3_set_auxdata(context, 1, own.release(), [](void* gone) { std::unique_ptr<LikePattern>(static_cast<LikePattern*>(gone)); });
  } catch (...) {
    Fail(context, HelperOf(context), std::current_exception());
  }
}

StoredValue ArgumentOf(sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
      return std::int64_t{sqlite3_value_int64(value)};
    case SQLITE_FLOAT:
      return sqlite3_value_double(value);
    case SQLITE_NULL:
      return std::monostate();
    default:
      return std::string(TextOf(value));
  }
}

void Answer(sqlite3_context* context, const StoredValue& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value)) return sqlite3_result_int64(context, *number);
  if (const auto* real = std::get_if<double>(&value)) return sqlite3_result_double(context, *real);
  if (const auto* text = std::get_if<std::string>(&value))
    return sqlite3_result_text64(context, text->data(), text->size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  sqlite3_result_null(context);
}

void CallHelper(sqlite3_context* context, int count, sqlite3_value** arguments) {
  const Helper& helper = HelperOf(context);
  try {
    std::vector<StoredValue> values;
    values.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) values.push_back(ArgumentOf(arguments[i]));
    Answer(context, helper.function->call(values));
  } catch (...) {
    Fail(context, helper, std::current_exception());
  }
}

// A cell's expression is computed between these two, as the store computes arguments in their order. Whatever failed in it
// makes the whole cell Null; so does a number without end, which the store's own operators give.
void BeginCell(sqlite3_context* context, int, sqlite3_value**) {
  HelperOf(context).connection->MarkCell(false);
  sqlite3_result_null(context);
}

void EndCell(sqlite3_context* context, int, sqlite3_value** arguments) {
  const bool endless = sqlite3_value_type(arguments[1]) == SQLITE_FLOAT && !std::isfinite(sqlite3_value_double(arguments[1]));
  if (endless || HelperOf(context).connection->CellMarked()) return sqlite3_result_null(context);
  sqlite3_result_value(context, arguments[1]);
}

using Function = void (*)(sqlite3_context*, int, sqlite3_value**);

void Register(const Helper& helper, const std::string& name, int arguments, int flags, Function function) {
  sqlite3_create_function_v2(helper.connection->Handle(), name.c_str(), arguments, flags, std::make_unique<Helper>(helper).release(),
                             function, nullptr, nullptr, [](void* gone) { std::unique_ptr<Helper>(static_cast<Helper*>(gone)); });
}

// Those of cells are not deterministic for the store: it would compute one of constants alone before the cell begins.
void RegisterAll(Connection& connection, const Dialect& dialect, bool inCell) {
  const int flags = SQLITE_UTF8 | SQLITE_INNOCUOUS | (inCell ? 0 : SQLITE_DETERMINISTIC);
  Register({&connection, nullptr, inCell}, dialect.like, 2, flags, Like);
  for (const StoreFunction& function : StoreFunctions())
    Register({&connection, &function, inCell}, dialect.functionPrefix + std::string(function.name), function.arguments, flags, CallHelper);
}

}  // namespace

void RegisterFunctions(Connection& connection) {
  const Dialect& dialect = SqliteDialect();
  const Dialect cells = dialect.ForCells();
  sqlite3_create_collation_v2(connection.Handle(), dialect.collation.c_str(), SQLITE_UTF8, nullptr, Collate, nullptr);
  RegisterAll(connection, dialect, false);
  RegisterAll(connection, cells, true);
  const Helper helper{&connection, nullptr, true};
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_INNOCUOUS;
  Register(helper, cells.functionPrefix + cells.cellBegin, 0, kFlags, BeginCell);
  Register(helper, cells.functionPrefix + cells.cell, 2, kFlags, EndCell);
}

}  // namespace engine
