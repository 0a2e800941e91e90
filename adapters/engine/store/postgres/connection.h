#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/store/channel.h"
#include "engine/store/kept_statements.h"
#include "engine/store/postgres/link/link.h"
#include "engine/store/postgres/link/outcome.h"
#include "engine/store/postgres/link/snapshot_watch.h"
#include "engine/store/postgres/statement.h"
#include "engine/values/clock.h"

namespace engine::postgres {

/// Leaves a statement whose reader was told not to go on. Never leaves the store.
struct ReadingGivenUp {};

/// The one connection of an engine to a database. It keeps statements, groups them, and turns the server's failures into the engine's
/// errors. What groups statements (BEGIN, savepoints) travels along with the first statement that needs it. A connection that was
/// lost fails what runs on it; the next statement outside of a unit connects anew.
class ServerConnection final : public Channel {
 public:
  ServerConnection(const Target& target, Patience patience);
  ~ServerConnection() override;

  std::shared_ptr<Statement> Prepare(std::string_view sql) override;
  Unit BeginUnit(Unit::Kind kind) override;
  void CommitUnit(const Unit& unit) override;
  void UndoUnit(const Unit& unit) noexcept override;

  /// Runs statements without rows and without parameters, in one trip: outside of a unit all of them or none.
  void ExecuteAll(std::span<const std::string> statements, const std::string& schema);

  /// Rows for a table by COPY; the connection can do nothing else until it goes.
  std::unique_ptr<CopyRows> Copy(const std::string& copy, const std::string& schema);

  void OnWait(std::function<void()> servePainting) { servePainting_ = std::move(servePainting); }
  /// The desk's own clock, for statements that ask for the moment.
  void OnMoment(Clock clock) { clock_ = std::move(clock); }
  /// Lets the windows paint; does nothing when called from inside painting.
  void ServePainting();

  /// Changes with each write of this connection to tables of the schema.
  std::uint64_t Writes(const std::string& schema) const;
  /// Changes when somebody else has written anything there and this connection knows of it: at once where he tells (as the program does),
  /// with the next trip in any case. Asks the server only where it can't listen or was told to ask.
  std::int64_t OthersVersion();
  /// Whether others tell of their commits.
  bool IsTold() const;
  /// Whether a trip has told of them that began in this moment.
  bool HeardJustNow() const;
  /// Changes with what others may have done to definitions: every write of which nobody told that it wrote rows alone.
  std::int64_t StrangersVersion() const noexcept { return strangers_; }
  /// Changes with each change of definitions by this connection.
  std::uint64_t OwnDefinitions() const noexcept { return definitions_ + undone_; }

  /// Whoever begins anew needn't be told that the line was cut while nobody used it: it is made anew then.
  void NoticeCut();

  /// For messages: the path of a schema as the program names it.
  void NameSchema(const std::string& schema, std::string asked) { asked_[schema] = std::move(asked); }
  const std::string& AskedOf(const std::string& schema) const;

  /// What becomes of saves in the schema can be asked.
  void MarkSaves(const std::string& schema) { marks_.KeptIn(schema); }

  std::uint64_t Trips() const noexcept { return link_.Trips(); }

  /// While it is set, a statement that would look at more than about so many rows, or put all rows in order first, isn't run:
  /// WorkLimitReached.
  void LimitWork(std::optional<int> rows) { workLimit_ = rows; }

  /// While it is set, who waits for rows asks it every few milliseconds whether to go on: else ReadingGivenUp. It serves painting itself.
  void AskWhetherToGoOn(const std::function<bool()>* goOn) noexcept {
    goOn_ = goOn;
    askedLast_ = {};
  }

  // For its statements.
  /// Connects if need be.
  void Ready(const std::string& schema);
  std::shared_ptr<Run> Start(Trip trip);
  void Take(Run& run);
  void Abandon(Run& run) noexcept;
  [[noreturn]] void Raise(const Failure& failure, Doing doing, const std::string& schema) const;
  void CountWrite(const std::string& schema);
  void CountDefinitions() noexcept { ++definitions_; }
  std::string NewName() { return "s" + std::to_string(++lastName_); }
  void Forget(const std::string& name) noexcept;
  int Openings() const noexcept { return link_.Openings(); }
  /// What tells the server the moment; before the statement.
  std::string MomentText() const;
  std::optional<int> WorkLimit() const noexcept { return workLimit_; }

 private:
  void FinishActive();
  void Settle(Run& run);
  static constexpr const char* kCommit = "COMMIT";
  void EndReading();
  std::optional<Failure> End(const std::string& sql);
  void Commit();
  void Learn(Run& run);
  std::optional<std::string> Stored(const std::string& schema, std::uint64_t save);
  std::shared_ptr<Run> RowsOf(const std::string& sql, const std::string& schema);
  void ForgetUnit() noexcept;
  void Hear();
  void AskOthers();
  std::string Notice(bool withLast);
  bool OwesNotice() const;
  bool IsInAnAct() const;

  SaveMarks marks_;
  bool asking_ = false;  ///< what became of a save
  int patience_;         ///< for connecting
  std::chrono::milliseconds moment_;
  Link link_;
  Clock clock_ = LocalNow;
  bool wholeFiles_;
  std::set<std::string> held_;  ///< schemas whose tables the outermost unit has locked
  std::function<void()> servePainting_;
  bool painting_ = false;
  bool opening_ = false;
  KeptStatements<ServerStatement> kept_;
  int lastName_ = 0;
  std::vector<std::string> forgotten_;  ///< names of prepared statements that nobody needs
  std::shared_ptr<Run> active_;         ///< the last one, while it isn't settled
  std::vector<std::string> pending_;    ///< what goes before the next statement
  std::vector<Unit::Kind> units_;
  std::string saved_;    ///< a schema in which the outermost unit has saved something
  bool begun_ = false;   ///< the server knows of the outermost unit
  bool broken_ = false;  ///< the connection was lost inside the units
  std::map<std::string, std::uint64_t> writes_;
  std::uint64_t undone_ = 0;
  std::map<std::string, std::string> asked_;
  SnapshotWatch watch_;
  std::int64_t others_ = 0;
  std::chrono::steady_clock::time_point sent_;   ///< the last trip, all of which ask for others' commits
  std::chrono::steady_clock::time_point ended_;  ///< the last one, too
  std::chrono::steady_clock::time_point heard_;  ///< when the last one was sent that has told of them
  std::int64_t strangers_ = 0;
  std::uint64_t definitions_ = 0;
  bool asks_;             ///< whether others have written is asked each time
  bool fresh_ = false;    ///< nothing was sent on the present connection yet
  bool listens_ = false;  ///< others' messages come
  std::string owed_;      ///< numbers of own writes of which others weren't told yet
  bool unitWrote_ = false;    ///< the outermost unit has written rows,
  bool unitDefined_ = false;  ///< or something else
  std::string unitNumber_;
  std::chrono::steady_clock::time_point told_{};
  std::optional<int> workLimit_;
  const std::function<bool()>* goOn_ = nullptr;
  std::chrono::steady_clock::time_point askedLast_;
};

}  // namespace engine::postgres
