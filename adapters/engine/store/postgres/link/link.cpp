#include "engine/store/postgres/link/link.h"

#include <libpq-fe.h>

#include <algorithm>
#include <array>
#include <cstdlib>

#include "engine/store/postgres/link/connect.h"

namespace engine::postgres {
namespace {

using Clock = std::chrono::steady_clock;

// The client library's numbers for the server's own types.
constexpr int kTextFormat = 0;
constexpr int kAsItIs = 1;

// In the order of Planning. What they set is for the rest of the trip, with the statement behind it.
constexpr std::array<const char*, 3> kSnapshotAsks{
    "SELECT pg_current_snapshot()", "SELECT pg_current_snapshot(), set_config('plan_cache_mode', 'force_generic_plan', true)",
    "SELECT pg_current_snapshot(), set_config('enable_sort', 'off', true)"};

// It is kept for who tells others of it.
constexpr const char* kAskNumber = "SELECT set_config('orcussch.wrote', coalesce(pg_current_xact_id_if_assigned()::text, ''), false)";

std::string FieldOf(const PGresult* result, int field) {
  const char* text = PQresultErrorField(result, field);
  return text == nullptr ? std::string() : std::string(text);
}

}  // namespace

Failure FailureOf(const pg_result* result, bool lost) {
  return {FieldOf(result, PG_DIAG_SQLSTATE), FieldOf(result, PG_DIAG_MESSAGE_PRIMARY), FieldOf(result, PG_DIAG_CONSTRAINT_NAME), lost,
          FieldOf(result, PG_DIAG_SOURCE_FUNCTION)};
}

void ClearResult::operator()(pg_result* result) const noexcept { PQclear(result); }

Link::Link(const Target& target, Patience patience, std::string name, std::function<void()> serveOthers)
    : target_(target), patience_(patience), name_(std::move(name)), serveOthers_(std::move(serveOthers)) {}

Link::~Link() { Close(); }

void Link::Close() noexcept {
  PQfinish(connection_);
  connection_ = nullptr;
}

void Link::Open(const std::string& asked) {
  Close();
  connection_ = Connect(target_, patience_, name_, serveOthers_, asked);
  kept_.clear();
  PQsetNoticeReceiver(
      connection_,
      [](void* link, const PGresult* notice) {
        if (MeansStoredHereAlone(FailureOf(notice, false))) static_cast<Link*>(link)->storedHereAlone_ = true;
      },
      this);
  ++openings_;
}

bool Link::IsOpen() const { return connection_ != nullptr && PQstatus(connection_) == CONNECTION_OK; }

// Whether the other side has ended it already. What then isn't sent is surely not done.
bool Link::IsCut() {
  // Its last words come first, then the end.
  for (int look = 0; look < 2 && IsOpen(); ++look) PQconsumeInput(connection_);
  return !IsOpen();
}

// ---- sending

bool Link::SendStatement(const Trip& trip) {
  const std::vector<Parameter>& parameters = *trip.parameters;
  std::vector<const char*> values;
  std::vector<int> lengths;
  std::vector<int> formats;
  for (const Parameter& parameter : parameters) {
    values.push_back(parameter.kind == Parameter::Kind::Null ? nullptr : parameter.bytes.c_str());
    lengths.push_back(static_cast<int>(parameter.bytes.size()));
    formats.push_back(parameter.kind == Parameter::Kind::Text ? kAsItIs : kTextFormat);
  }
  return PQsendQueryPrepared(connection_, trip.name.c_str(), static_cast<int>(parameters.size()), values.data(), lengths.data(),
                             formats.data(), kTextFormat) != 0;
}

// What goes along with many trips is prepared once.
bool Link::SendKept(const std::string& sql, const std::string* parameter, Run::Part part, Run& run) {
  bool sent = true;
  auto kept = kept_.find(sql);
  std::string name = kept == kept_.end() ? "kept" + std::to_string(++names_) : kept->second;
  if (kept == kept_.end()) {
    sent = PQsendPrepare(connection_, name.c_str(), sql.c_str(), 0, nullptr) != 0;
    run.parts.push_back(Run::Part::Keep);
    run.keeps.emplace_back(sql, name);
  }
  run.parts.push_back(part);
  const char* const value = parameter == nullptr ? nullptr : parameter->c_str();
  return sent && PQsendQueryPrepared(connection_, name.c_str(), parameter == nullptr ? 0 : 1, &value, nullptr, nullptr, kTextFormat) != 0;
}

std::shared_ptr<Run> Link::Send(const Trip& trip) {
  auto run = std::make_shared<Run>();
  run->guarded = trip.guarded;
  run->isShort = trip.isShort;
  run->tells = trip.tells;
  run->onlyReads = trip.parameters != nullptr && !trip.asksNumber;
  storedHereAlone_ = false;
  bool sent = !IsCut();
  const auto control = [&](const std::string& sql, Run::Part part) {
    sent = sent && PQsendQueryParams(connection_, sql.c_str(), 0, nullptr, nullptr, nullptr, nullptr, kTextFormat) != 0;
    run->parts.push_back(part);
  };
  const auto sync = [&](Run::Part part) {
    sent = sent && PQpipelineSync(connection_) != 0;
    run->parts.push_back(part);
  };
  if (!trip.ahead.empty()) {
    for (const std::string& sql : trip.ahead) control(sql, Run::Part::Ahead);
    sync(Run::Part::Sync);
  }
  for (const std::string& sql : trip.before) control(sql, Run::Part::Control);
  const auto along = [&](const std::string& sql, const std::string* parameter, Run::Part part) {
    sent = sent && SendKept(sql, parameter, part, *run);
  };
  if (trip.asksSnapshot) along(kSnapshotAsks[static_cast<std::size_t>(trip.planning)], nullptr, Run::Part::Snapshot);
  if (!trip.prepare.empty()) {
    sent = sent && PQsendPrepare(connection_, trip.name.c_str(), trip.prepare.c_str(), static_cast<int>(trip.types.size()), trip.types.data()) != 0;
    run->parts.push_back(Run::Part::Prepare);
  }
  if (trip.parameters != nullptr) {
    sent = sent && SendStatement(trip);
    run->parts.push_back(Run::Part::Statement);
  }
  if (trip.asksNumber) along(kAskNumber, nullptr, Run::Part::Number);
  if (!trip.mark.sql.empty()) along(trip.mark.sql, &trip.mark.save, Run::Part::Mark);
  for (const std::string& sql : trip.behind) control(sql, Run::Part::Control);
  if (!trip.notice.empty()) {
    sync(Run::Part::Sync);
    control(trip.notice, Run::Part::Notice);
  }
  sync(Run::Part::End);
  unsent_ = true;
  ++trips_;
  if (!sent) {
    Lose(*run);
    return run;
  }
  BeginPart(*run);
  return run;
}

// ---- taking

void Link::Lose(Run& run) {
  if (!run.over) {
    if (!run.failure) run.failure = storedHereAlone_ ? OutcomeUnknown() : Failure{};
    run.failure->lost = true;
  }
  run.done = true;
  Close();
}

// A row at a time, so that a long result is never here as a whole. Each row costs a result of its own then, with all columns' names.
void Link::BeginPart(Run& run) {
  if (!run.isShort && run.at < run.parts.size() && run.parts[run.at] == Run::Part::Statement) PQsetSingleRowMode(connection_);
}

void Link::NextPart(Run& run) {
  ++run.at;
  BeginPart(run);
}

void Link::Receive(Run& run, Result result) {
  const Run::Part part = run.parts[run.at];
  switch (PQresultStatus(result.get())) {
    case PGRES_PIPELINE_SYNC:
      if (storedHereAlone_ && !run.over && !run.failure) run.failure = OutcomeUnknown();
      run.done = part == Run::Part::End;
      if (!run.done) NextPart(run);
      run.over = !run.done && run.parts[run.at] == Run::Part::Notice;
      return;
    case PGRES_FATAL_ERROR:
    case PGRES_BAD_RESPONSE:
      if (part == Run::Part::Notice || (part == Run::Part::Ahead && IsOpen())) return;
      if (!run.failure) run.failure = FailureOf(result.get(), !IsOpen());
      run.dropped = MustPrepareAgain(*run.failure) && (part == Run::Part::Snapshot || part == Run::Part::Number || part == Run::Part::Mark);
      if (run.dropped) kept_.clear();
      return;
    case PGRES_SINGLE_TUPLE:
    case PGRES_TUPLES_OK:
      if (PQntuples(result.get()) == 1) {
        const char* const text = PQgetvalue(result.get(), 0, 0);
        if (part == Run::Part::Number) run.number = text;
        if (part == Run::Part::Notice) run.notice = text;
        if (part == Run::Part::Snapshot) run.snapshot = text;
      }
      if (part != Run::Part::Statement) return;
      run.changed = std::atoll(PQcmdTuples(result.get()));
      if (PQntuples(result.get()) > 0) {
        run.came += PQntuples(result.get());
        if (run.unwanted)
          ++run.thrownAway;
        else
          run.rows.push_back(std::move(result));
        return;
      }
      [[fallthrough]];
    case PGRES_COMMAND_OK:
      if (part == Run::Part::Statement) run.changed = std::atoll(PQcmdTuples(result.get()));
      if (part == Run::Part::Prepare) run.prepared = true;
      if (part == Run::Part::Ahead) run.aheadDone = true;
      if (part == Run::Part::Keep) {
        kept_.insert(std::move(run.keeps.front()));
        run.keeps.pop_front();
      }
      run.tag = PQcmdStatus(result.get());
      return;
    default:  // skipped behind an error
      return;
  }
}

// Takes what has come; false when there is nothing more for now.
bool Link::Pump(Run& run) {
  if (unsent_) {
    const int left = PQflush(connection_);
    if (left < 0 && PQconsumeInput(connection_) == 0) {
      Lose(run);
      return true;
    }
    unsent_ = left != 0;
  }
  if (PQisBusy(connection_) != 0) {
    if (PQconsumeInput(connection_) == 0) {
      Lose(run);
      return true;
    }
    if (PQisBusy(connection_) != 0) return false;
  }
  Result result(PQgetResult(connection_));
  if (result == nullptr) {
    if (IsOpen())
      NextPart(run);
    else
      Lose(run);
    return true;
  }
  Receive(run, std::move(result));
  if (!run.done && !IsOpen()) Lose(run);
  return true;
}

void Link::Wait(Run& run, Moment& since) {
  const auto before = Clock::now();
  WaitForSocket(connection_, true, unsent_);
  const auto now = Clock::now();
  constexpr auto kLong = std::chrono::milliseconds(10);
  if (now - before < kLong) {
    since = now;
    return;
  }
  if (now - since >= std::chrono::milliseconds(patience_.silence)) return Lose(run);
  serveOthers_();
}

void Link::Take(Run& run) {
  auto since = Clock::now();
  // Whoever is served meanwhile may need a trip of their own; they take the rest of this one first.
  while (!run.done && run.rows.empty()) {
    if (!Pump(run)) Wait(run, since);
  }
}

void Link::Finish(Run& run) {
  auto since = Clock::now();
  while (!run.done) {
    EndUnwanted(run);
    if (!Pump(run)) Wait(run, since);
  }
}

// What painting asks for must neither bring a long result here as a whole nor stop all painting until a long statement gives its first row.
bool Link::FinishSoon(Run& run) {
  constexpr std::size_t kMostRows = 10'000;
  constexpr auto kMostTime = std::chrono::milliseconds(500);
  auto since = Clock::now();
  const auto begin = since;
  while (!run.done && !run.keptOut) {
    EndUnwanted(run);
    if (!Pump(run)) Wait(run, since);
    run.keptOut = !run.unwanted && (run.rows.size() >= kMostRows || Clock::now() - begin >= kMostTime);
  }
  return run.done;
}

void Link::Drain(Run& run) {
  while (!run.done && Pump(run)) {
  }
  if (!run.done) EndUnwanted(run);
}

std::vector<std::string> Link::Messages() {
  struct Free {
    void operator()(PGnotify* message) const noexcept { PQfreemem(message); }
  };
  std::vector<std::string> texts;
  if (!IsOpen() || PQconsumeInput(connection_) == 0) return texts;
  while (const std::unique_ptr<PGnotify, Free> message{PQnotifies(connection_)}) texts.emplace_back(message->extra);
  return texts;
}

void Link::LastWords(const std::string& sql) noexcept {
  if (!IsOpen()) return;
  const bool sent = PQsendQueryParams(connection_, sql.c_str(), 0, nullptr, nullptr, nullptr, nullptr, kTextFormat) != 0;
  if (sent && PQpipelineSync(connection_) != 0) PQflush(connection_);
}

// A statement that nobody reads on would compute and send to its end, however long that is. What is nearly over isn't worth another
// connection, which that costs; and a write goes on, as nobody has taken it back. Asked before the statement begins, or between two of a
// trip, the server does nothing: so it is asked again.
void Link::EndUnwanted(Run& run) {
  constexpr int kWorthTaking = 1'000;
  constexpr auto kWorthWaiting = std::chrono::milliseconds(20);
  constexpr auto kAgain = std::chrono::milliseconds(200);
  if (!run.unwanted || !run.onlyReads || !IsOpen()) return;
  const bool reads = std::find(run.parts.begin() + static_cast<std::ptrdiff_t>(run.at), run.parts.end(), Run::Part::Statement) != run.parts.end();
  const auto now = Clock::now();
  if (!reads || now - run.endedLast < kAgain) return;
  if (run.thrownAway < kWorthTaking && now - run.unwantedSince < kWorthWaiting) return;
  run.endedLast = now;
  PGcancel* cancel = PQgetCancel(connection_);
  std::array<char, 256> message{};
  PQcancel(cancel, message.data(), static_cast<int>(message.size()));
  PQfreeCancel(cancel);
}

}  // namespace engine::postgres
