#include "engine/store/sqlite/clock_functions.h"

#include <sqlite3.h>

#include <memory>
#include <string>

#include "engine/store/sqlite/connection.h"
#include "engine/store/sqlite/dialect.h"
#include "engine/values/iso_date.h"

namespace engine {
namespace {

void Now(sqlite3_context* context, int, sqlite3_value**) {
  const auto& clock = *static_cast<const Clock*>(sqlite3_user_data(context));
  try {
    const std::string now = IsoText(clock());
    sqlite3_result_text64(context, now.data(), now.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  } catch (const std::exception& failure) {
    sqlite3_result_error(context, failure.what(), -1);
  }
}

}  // namespace

void RegisterClock(Connection& connection, const Clock& now) {
  for (const Dialect& dialect : {SqliteDialect(), SqliteDialect().ForCells()}) {
    const std::string name = dialect.functionPrefix + "now";
    auto clock = std::make_unique<Clock>(now);
    sqlite3_create_function_v2(connection.Handle(), name.c_str(), 0, SQLITE_UTF8 | SQLITE_INNOCUOUS, clock.release(), Now, nullptr, nullptr,
                               [](void* gone) { std::unique_ptr<Clock>(static_cast<Clock*>(gone)); });
  }
}

}  // namespace engine
