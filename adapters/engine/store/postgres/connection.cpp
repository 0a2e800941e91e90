#include "engine/store/postgres/connection.h"

#include <algorithm>
#include <utility>

#include "engine/errors.h"
#include "engine/store/flag.h"
#include "engine/store/postgres/link/failure.h"
#include "engine/store/postgres/wording/names.h"
#include "engine/store/query.h"
#include "engine/values/iso_date.h"

namespace engine::postgres {
namespace {

constexpr const char* kListen = "LISTEN orcussch";
constexpr std::chrono::milliseconds kBetweenQuestions{1};
// Whoever hears no number asks for everything again.
constexpr const char* kTellDefinitions = "SELECT pg_current_xact_id(), set_config('synchronous_commit', 'off', true), pg_notify('orcussch', '')";

// Others go on reading.
std::string LockText(const std::string& schema) {
  return "DO $$BEGIN EXECUTE (SELECT 'LOCK TABLE ' || string_agg(c.oid::regclass::text, ', ') || ' IN EXCLUSIVE MODE' FROM pg_class c "
         "JOIN pg_namespace n ON n.oid = c.relnamespace WHERE n.nspname = " +
         QuoteText(schema) + " AND c.relkind IN ('r', 'p')); END$$";
}

}  // namespace

ServerConnection::ServerConnection(const Target& target, Patience patience)
    : patience_(patience.connect),
      moment_(patience.moment),
      link_(target, patience, marks_.Desk(), [this] { ServePainting(); }),
      wholeFiles_(patience.wholeFiles),
      asks_(patience.asks) {}

ServerConnection::~ServerConnection() {
  // The server would go on with it for nobody.
  if (active_ != nullptr) {
    active_->unwanted = true;
    active_->unwantedSince = {};
    link_.Drain(*active_);
    // The end of a unit of reads, for which nobody waits, may have come: then there is room for the last words.
    if (active_->done) Settle(*active_);
  }
  if (!owed_.empty() && active_ == nullptr && !begun_) link_.LastWords(Notice(false));
  kept_.Clear();
}

// ---- statements

std::shared_ptr<Statement> ServerConnection::Prepare(std::string_view sql) {
  return kept_.Take(sql, [&] { return std::make_shared<ServerStatement>(*this, sql); });
}

void ServerConnection::Forget(const std::string& name) noexcept { forgotten_.push_back(name); }

std::string ServerConnection::MomentText() const { return "SET orcussch.moment = '" + IsoText(clock_()) + "'"; }

void ServerConnection::Ready(const std::string& schema) {
  FinishActive();
  if (link_.IsOpen()) return;
  if (begun_ || broken_ || opening_) throw ServerLost();
  const Flag opening(opening_);
  forgotten_.clear();
  watch_.Forget();
  fresh_ = true;
  listens_ = false;
  link_.Open(AskedOf(schema));
}

void ServerConnection::NoticeCut() {
  if (active_ == nullptr && units_.empty()) link_.IsCut();
}

std::shared_ptr<Run> ServerConnection::Start(Trip trip) {
  FinishActive();
  const bool unitKnown = begun_ && units_.front() == Unit::Kind::Read;
  trip.before.insert(trip.before.end(), pending_.begin(), pending_.end());
  pending_.clear();
  // Not before a unit's beginning, which must be the first to see a state.
  for (const std::string& name : forgotten_) trip.before.push_back("DEALLOCATE " + name);
  forgotten_.clear();
  if (!units_.empty()) {
    begun_ = true;
    // What fails inside a unit is undone by itself, and the unit goes on.
    trip.guarded = true;
    trip.before.push_back("SAVEPOINT guard");
    // What reads for a write inside a longer transaction writes, too, whether it finds a row or not.
    const bool writes = trip.asksNumber || (units_.size() > 1 && units_.back() == Unit::Kind::Write);
    if (wholeFiles_ && writes && !trip.schema.empty() && held_.insert(trip.schema).second) trip.before.push_back(LockText(trip.schema));
    trip.behind.push_back("RELEASE SAVEPOINT guard");
  }
  const bool marked = !trip.saves.empty() && !asking_ && marks_.AreKeptIn(trip.schema);
  if (marked && units_.empty()) trip.mark = marks_.Next(trip.schema);
  if (marked && !units_.empty()) saved_ = trip.schema;
  // Inside a unit of reads it stays the same.
  trip.asksSnapshot = !unitKnown;
  // It would hold for the rest of a unit.
  if (!units_.empty()) trip.planning = Planning::ForValues;
  if (units_.empty() && trip.tells) trip.notice = Notice(true);
  if (units_.empty() && trip.notice.empty() && OwesNotice()) trip.notice = Notice(false);
  if (!units_.empty() && trip.asksNumber) (trip.tells ? unitWrote_ : unitDefined_) = true;
  if (std::exchange(fresh_, false) && !asks_) trip.ahead.push_back(kListen);
  sent_ = std::chrono::steady_clock::now();
  active_ = link_.Send(trip);
  // What was not sent at all is known to be undone.
  if (marked && units_.empty() && !active_->done) {
    active_->save = marks_.Last();
    active_->schema = trip.schema;
    active_->sql = trip.saves;
  }
  return active_;
}

void ServerConnection::Take(Run& run) {
  if (goOn_ != nullptr) ServePainting();
  link_.Take(run);
  if (!run.done) return;
  Settle(run);
  if (run.save != 0 && run.failure && CanBeAsked(*run.failure)) Learn(run);
}

void ServerConnection::Abandon(Run& run) noexcept {
  run.unwanted = true;
  run.unwantedSince = std::chrono::steady_clock::now();
  run.rows.clear();
}

void ServerConnection::FinishActive() {
  while (active_ != nullptr) {
    const std::shared_ptr<Run> run = active_;
    // As in files, what painting asks in the midst of a long statement is refused.
    if (painting_ && !link_.FinishSoon(*run)) throw errors::FileInUse(AskedOf(run->schema));
    link_.Finish(*run);
    Settle(*run);
  }
}

// What a run leaves behind, once it is at its end.
void ServerConnection::Settle(Run& run) {
  if (active_.get() != &run) return;
  const std::shared_ptr<Run> held = std::exchange(active_, nullptr);  // maybe by nobody else
  ended_ = std::chrono::steady_clock::now();
  if (run.aheadDone) listens_ = true;
  if (!run.snapshot.empty()) {
    heard_ = sent_;
    if (watch_.Others(run.snapshot)) {
      ++others_;
      ++strangers_;
    }
  }
  watch_.Own(run.number);
  watch_.Own(run.notice);
  if (!units_.empty())
    unitNumber_ = run.number.empty() ? unitNumber_ : run.number;
  else if (run.tells && run.notice.empty() && !run.number.empty())
    owed_ += ' ' + run.number;
  if (!run.failure) return;
  held_.clear();
  if (run.failure->lost) {
    broken_ = !units_.empty();
    watch_.Forget();
  } else if (run.guarded) {
    pending_.insert(pending_.begin(), {"ROLLBACK TO SAVEPOINT guard", "RELEASE SAVEPOINT guard"});
  }
}

void ServerConnection::ExecuteAll(std::span<const std::string> statements, const std::string& schema) {
  Ready(schema);
  Trip trip;
  trip.behind.assign(statements.begin(), statements.end());
  if (units_.empty()) trip.notice = kTellDefinitions;
  unitDefined_ = !units_.empty() && (unitDefined_ || !statements.empty());
  const std::shared_ptr<Run> run = Start(std::move(trip));
  Take(*run);
  if (run->failure) Raise(*run->failure, Doing::Writing, schema);
  CountWrite(schema);
  CountDefinitions();
}

std::unique_ptr<CopyRows> ServerConnection::Copy(const std::string& copy, const std::string& schema) {
  // What begins the unit goes ahead.
  if (!pending_.empty()) ExecuteAll({}, schema);
  Ready(schema);
  return link_.Copy(copy);
}

void ServerConnection::Raise(const Failure& failure, Doing doing, const std::string& schema) const {
  throw StatementError(failure, doing, AskedOf(schema));
}

// ---- units

Channel::Unit ServerConnection::BeginUnit(Unit::Kind kind) {
  const Unit unit{kind, units_.empty(), static_cast<int>(units_.size())};
  if (unit.outermost) {
    FinishActive();
    pending_.push_back(kind == Unit::Kind::Read ? "BEGIN ISOLATION LEVEL REPEATABLE READ" : "BEGIN");
  } else if (kind == Unit::Kind::Write) {
    pending_.push_back("SAVEPOINT u" + std::to_string(unit.depth));
  }
  units_.push_back(kind);
  return unit;
}

void ServerConnection::CommitUnit(const Unit& unit) {
  const std::string name = "SAVEPOINT u" + std::to_string(unit.depth);
  if (unit.outermost) {
    FinishActive();
    held_.clear();
    if (broken_) throw ServerLost();
    if (begun_ && unit.kind == Unit::Kind::Read && !unitWrote_ && !unitDefined_ && saved_.empty())
      EndReading();
    else if (begun_)
      Commit();
    pending_.clear();
    begun_ = false;
    saved_.clear();
    ForgetUnit();
  } else if (unit.kind == Unit::Kind::Write) {
    if (!pending_.empty() && pending_.back() == name)
      pending_.pop_back();
    else
      pending_.push_back("RELEASE " + name);
  }
  units_.pop_back();
}

void ServerConnection::UndoUnit(const Unit& unit) noexcept {
  const std::string name = "SAVEPOINT u" + std::to_string(unit.depth);
  units_.pop_back();
  // Nobody can stop that.
  goOn_ = nullptr;
  if (unit.kind == Unit::Kind::Write) ++undone_;
  if (!unit.outermost) {
    if (unit.kind != Unit::Kind::Write) return;
    if (!pending_.empty() && pending_.back() == name)
      pending_.pop_back();
    else
      pending_.insert(pending_.end(), {"ROLLBACK TO " + name, "RELEASE " + name});
    return;
  }
  try {
    FinishActive();
    pending_.clear();
    if (begun_ && !broken_) End("ROLLBACK");
  } catch (const platform::Error&) {
    // Nobody can be told; a server that is gone has undone it.
  }
  begun_ = false;
  broken_ = false;
  saved_.clear();
  held_.clear();
  ForgetUnit();
}

void ServerConnection::ForgetUnit() noexcept {
  unitWrote_ = unitDefined_ = false;
  unitNumber_.clear();
}

// A statement that ends the outermost unit. Behind a failed one the transaction can only be undone, which the server does then.
std::optional<Failure> ServerConnection::End(const std::string& sql) {
  const bool commits = sql == kCommit;
  const bool tells = commits && unitWrote_ && !unitDefined_;
  Trip trip;
  if (tells) trip.notice = Notice(true);
  if (commits && unitDefined_) trip.notice = kTellDefinitions;
  trip.before = std::move(pending_);
  pending_.clear();
  trip.behind.push_back(sql);
  active_ = link_.Send(trip);
  const std::shared_ptr<Run> run = active_;
  Take(*run);
  if (run->failure) return run->failure;
  if (run->tag != sql) throw platform::Error(3000, "Reserved error (" + run->tag + ")");
  if (tells && run->notice.empty()) owed_ += ' ' + unitNumber_;
  return {};
}

// Nobody waits for the answer: nothing depends on it.
void ServerConnection::EndReading() {
  Trip trip;
  trip.before = std::exchange(pending_, {});
  trip.behind.emplace_back("COMMIT");
  active_ = link_.Send(trip);
  active_->unwanted = true;
}

// ---- who wrote

std::uint64_t ServerConnection::Writes(const std::string& schema) const {
  const auto found = writes_.find(schema);
  return undone_ + (found == writes_.end() ? 0 : found->second);
}

void ServerConnection::CountWrite(const std::string& schema) { ++writes_[schema]; }

// What tells others, in a transaction of its own that needn't wait for the disk: inside the writing one all writers of the server would
// queue. It names the transactions that wrote rows, and itself, so that whoever hears it knows them in the next snapshot. One in a tenth
// of a second will do; what is left over goes along with a later trip.
std::string ServerConnection::Notice(bool withLast) {
  const auto now = std::chrono::steady_clock::now();
  if (withLast && now - told_ < moment_) return {};
  told_ = now;
  // There is none behind a first write that failed.
  const std::string last = withLast ? "coalesce(current_setting('orcussch.wrote', true), '') || ' ' || " : "";
  return "SELECT pg_current_xact_id(), set_config('synchronous_commit', 'off', true), pg_notify('orcussch', " + last +
         "pg_current_xact_id()::text || '" + std::exchange(owed_, {}) + "')";
}

bool ServerConnection::OwesNotice() const { return !owed_.empty() && std::chrono::steady_clock::now() - told_ >= moment_; }

// Whoever has just asked something mostly asks more, and that trip takes along what is owed.
bool ServerConnection::IsInAnAct() const {
  constexpr std::chrono::milliseconds kBetweenTrips{20};
  return std::chrono::steady_clock::now() - ended_ < kBetweenTrips;
}

void ServerConnection::Hear() {
  for (const std::string& message : link_.Messages()) {
    bool news = message.empty();
    for (std::size_t at = 0; at < message.size();) {
      const std::size_t end = std::min(message.find(' ', at), message.size());
      if (end > at && watch_.Told(std::string_view(message).substr(at, end - at))) news = true;
      at = end + 1;
    }
    if (news) ++others_;
    if (message.empty()) ++strangers_;
  }
}

void ServerConnection::AskOthers() {
  std::shared_ptr<Run> run;
  do {
    Ready({});
    run = Start({});
    Take(*run);
  } while (run->failure && run->dropped);
  if (run->failure) Raise(*run->failure, Doing::Reading, {});
}

std::int64_t ServerConnection::OthersVersion() {
  if (active_ != nullptr && active_->unwanted) {
    const std::shared_ptr<Run> run = active_;
    link_.Drain(*run);
    if (run->done) Settle(*run);
  }
  if (active_ == nullptr) Hear();
  if (!listens_ || !link_.IsOpen()) {
    AskOthers();
  } else if (active_ == nullptr && units_.empty() && OwesNotice() && !IsInAnAct()) {
    Trip trip;  // as at EndReading
    trip.notice = Notice(false);
    active_ = link_.Send(trip);
    active_->unwanted = true;
  }
  return others_;
}

bool ServerConnection::IsTold() const { return listens_ && link_.IsOpen(); }

bool ServerConnection::HeardJustNow() const { return IsTold() && std::chrono::steady_clock::now() - heard_ < moment_; }

const std::string& ServerConnection::AskedOf(const std::string& schema) const {
  static const std::string none;
  const auto found = asked_.find(schema);
  if (found != asked_.end()) return found->second;
  // A statement about none of them: any will do.
  return asked_.empty() ? none : asked_.begin()->second;
}

void ServerConnection::ServePainting() {
  if (painting_ || !(goOn_ != nullptr || servePainting_)) return;
  const Flag painting(painting_);
  if (goOn_ == nullptr) return servePainting_();
  const auto now = std::chrono::steady_clock::now();
  if (now - askedLast_ < kBetweenQuestions) return;
  askedLast_ = now;
  if (!(*goOn_)()) throw ReadingGivenUp();
}

}  // namespace engine::postgres
