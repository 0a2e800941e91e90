#include "engine/store/sqlite/sqlite_store.h"

#include "engine/store/sqlite/clock_functions.h"
#include "engine/store/sqlite/dialect.h"

namespace engine {

SqliteStore::SqliteStore(int lockWait, NetworkTest onNetwork, const Clock& clock)
    : connection_(lockWait), files_(connection_, std::move(onNetwork)) {
  RegisterClock(connection_, clock);
}

const Dialect& SqliteStore::OwnDialect() const { return SqliteDialect(); }

bool SqliteStore::ScansAll(std::string_view sql) {
  Query way(connection_, "EXPLAIN QUERY PLAN " + std::string(sql));
  return way.Step() && way.Text(3).starts_with("SCAN");
}

bool SqliteStore::ReadsCheaply(int rows, const std::function<void()>& read) {
  constexpr int kStepsARow = 60;
  try {
    const WorkLimit limit(connection_, rows * kStepsARow);
    read();
    return true;
  } catch (const WorkLimitReached&) {
    return false;
  }
}

bool SqliteStore::ReadsToItsEnd(const std::function<bool()>& goOn, const std::function<void()>& read) {
  try {
    const Stoppable stoppable(connection_, goOn);
    read();
    return true;
  } catch (const WorkLimitReached&) {
    return false;
  }
}

void SqliteStore::ServedMeanwhile(const std::function<void()>& act) {
  const Served served(connection_);
  act();
}

}  // namespace engine
