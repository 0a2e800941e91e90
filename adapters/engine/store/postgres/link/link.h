#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/store/postgres/link/copy_rows.h"
#include "engine/store/postgres/link/run.h"
#include "engine/store/postgres/link/target.h"

struct pg_conn;

namespace engine::postgres {

/// How long things may take, in milliseconds, and how much of others' work a write keeps off.
struct Patience {
  int lock = 2'000;        ///< for others' locks
  int connect = 10'000;    ///< for all hosts together
  int silence = 120'000;   ///< for a server that takes what it is sent and answers nothing
  int moment = 100;        ///< in which a desk gathers what it tells others, and rows that were read needn't be read again
  bool asks = false;       ///< whoever looks at rows that are here first asks whether others have written, instead of waiting to be told
  bool wholeFiles = false; ///< whoever writes in a unit locks all tables of the schema
};

/// The connection to one database of a server: it sends trips, one at a time, and takes their answers without ever blocking: while
/// it waits, it lets others do their work. A connection that was lost stays lost until it is opened again.
class Link {
 public:
  /// `name` is how the server knows its connections.
  Link(const Target& target, Patience patience, std::string name, std::function<void()> serveOthers);
  ~Link();
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;

  /// Connects, anew if need be. Raises what the failed attempt comes to, in the name of `asked`.
  void Open(const std::string& asked);
  bool IsOpen() const;
  /// Whether the other side has ended it already, as far as it can be told without asking. It isn't open then.
  bool IsCut();
  /// How often it was opened: what a server keeps for a connection is gone with it.
  int Openings() const noexcept { return openings_; }

  /// Sends it. The answer to the one before must have been taken whole.
  std::shared_ptr<Run> Send(const Trip& trip);
  /// Rows for a table by COPY, which has the connection until it goes. The answer to the last trip must have been taken whole.
  std::unique_ptr<CopyRows> Copy(const std::string& copy) { return std::make_unique<CopyRows>(connection_, copy); }
  /// Waits for a row, or the end.
  void Take(Run& run);
  /// Waits for the end and keeps what comes, or throws it away where it isn't wanted.
  void Finish(Run& run);
  /// The same for who only paints meanwhile: keeps some rows and waits a moment, once. False when that wasn't the end.
  bool FinishSoon(Run& run);
  /// Takes what has come, without waiting, and has the server end what nobody wants.
  void Drain(Run& run);
  /// What others have told on the channel that was listened to; the answer to the last trip must have been taken whole. A connection that
  /// is found lost is so from then on.
  std::vector<std::string> Messages();
  /// Sends what nobody waits for, as the last words.
  void LastWords(const std::string& sql) noexcept;
  /// Number of trips so far; connecting isn't one.
  std::uint64_t Trips() const noexcept { return trips_; }

 private:
  using Moment = std::chrono::steady_clock::time_point;
  bool Pump(Run& run);
  void Receive(Run& run, Result result);
  void BeginPart(Run& run);
  void NextPart(Run& run);
  void Wait(Run& run, Moment& since);
  void Lose(Run& run);
  void EndUnwanted(Run& run);
  bool SendStatement(const Trip& trip);
  bool SendKept(const std::string& sql, const std::string* parameter, Run::Part part, Run& run);
  void Close() noexcept;

  Target target_;
  Patience patience_;
  std::string name_;
  std::function<void()> serveOthers_;
  pg_conn* connection_ = nullptr;
  int openings_ = 0;
  bool unsent_ = false;
  bool storedHereAlone_ = false;  ///< the server has said so of this trip
  std::unordered_map<std::string, std::string> kept_;  ///< names of statements that the server has, by their texts
  std::uint64_t names_ = 0;
  std::uint64_t trips_ = 0;
};

}  // namespace engine::postgres
