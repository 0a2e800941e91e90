// Saves whose answer was cut: what the connection does then.
#include <algorithm>
#include <chrono>
#include <utility>

#include "engine/errors.h"
#include "engine/store/flag.h"
#include "engine/store/postgres/connection.h"
#include "engine/store/postgres/link/connect.h"

namespace engine::postgres {

void ServerConnection::Commit() {
  const std::string schema = std::exchange(saved_, {});
  if (!schema.empty()) pending_.push_back(marks_.NextText(schema));
  const std::uint64_t save = marks_.Last();
  const std::optional<Failure> failure = End(kCommit);
  if (!failure) return;
  if (schema.empty() || !CanBeAsked(*failure)) Raise(*failure, Doing::Writing, {});
  // The unit is over on the server, and what is asked now stands in none.
  const std::vector<Unit::Kind> units = std::exchange(units_, {});
  begun_ = broken_ = false;
  const bool stored = Stored(schema, save).has_value();
  units_ = units;
  broken_ = !stored;
  if (!stored) Raise(*failure, Doing::Writing, {});
}

// One that was stored ends as if its answer had come.
void ServerConnection::Learn(Run& run) {
  const std::optional<std::string> number = Stored(run.schema, run.save);
  if (!number) return;
  // Rows that are gone, or that others have changed since, can't be counted; there was one at least.
  const bool wrote = *number != SaveMarks::kWroteNothing;
  std::int64_t count = wrote ? 1 : 0;
  if (const std::string ask = RowsWrittenBy(run.sql, *number); wrote && !ask.empty()) {
    const auto told = RowsOf(ask, run.schema);
    if (told == nullptr) return;
    count = std::max<std::int64_t>(count, told->came);
    if (GivesRowsBack(run.sql)) run.rows = std::move(told->rows);
    for (; run.came > 0 && !run.rows.empty(); --run.came) run.rows.pop_front();
  }
  run.changed = count;
  run.failure.reset();
}

// The number of its transaction if it was stored. Asks again and again while there is nobody to ask, as long as connecting may take.
std::optional<std::string> ServerConnection::Stored(const std::string& schema, std::uint64_t save) {
  const Flag asking(asking_);
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(patience_);
  for (;;) {
    try {
      return marks_.Stored(*this, schema, save);
    } catch (const platform::Error& error) {
      if (error.Number() != errors::DiskOrNetwork().Number() || std::chrono::steady_clock::now() >= end) return {};
    }
    Pause();
    ServePainting();
  }
}

std::shared_ptr<Run> ServerConnection::RowsOf(const std::string& sql, const std::string& schema) {
  try {
    Ready(schema);
    const std::vector<Parameter> none;
    Trip trip;
    trip.name = NewName();
    trip.prepare = sql;
    trip.parameters = &none;
    Forget(trip.name);
    const std::vector<std::string> forgotten = std::exchange(forgotten_, {});
    const std::shared_ptr<Run> run = Start(std::move(trip));
    forgotten_ = forgotten;
    link_.Finish(*run);
    Settle(*run);
    return run->failure ? nullptr : run;
  } catch (const platform::Error&) {
    return nullptr;
  }
}

}  // namespace engine::postgres
