#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "engine/store/postgres/link/failure.h"

struct pg_result;

namespace engine::postgres {

struct ClearResult {
  void operator()(pg_result* result) const noexcept;
};
using Result = std::unique_ptr<pg_result, ClearResult>;

/// What a failed result says.
Failure FailureOf(const pg_result* result, bool lost);

/// A parameter as it travels. Texts go as they are, with their length; numbers in words.
struct Parameter {
  enum class Kind : std::uint8_t { Null, Whole, Real, Text } kind = Kind::Null;
  std::string bytes;
};

/// What the server is told before it plans a statement.
enum class Planning : std::uint8_t {
  ForValues,  ///< nothing: it plans for the values of each run
  Once,       ///< one plan for all values, which is kept
  Along,      ///< nothing is to be put in order that an index gives in order
};

/// What a desk leaves behind a save (SaveMarks).
struct Mark {
  std::string sql;   ///< the same for most saves of a schema; its parameter is the number
  std::string save;  ///< number
};

/// What goes to the server at once, up to where it answers to all of it. An error skips the rest.
struct Trip {
  std::vector<std::string> ahead;   ///< statements that stand for themselves: whether they fail is told apart (Run::aheadDone)
  std::vector<std::string> before;  ///< statements without rows
  bool asksSnapshot = false;        ///< which transactions have ended is asked for, in front of the statement
  Planning planning{};              ///< told together with that
  bool isShort = false;             ///< the statement has few rows: they may come as a whole
  std::string name;                 ///< of the prepared statement
  std::string prepare;              ///< its text, "" when the server has it
  std::vector<unsigned> types;      ///< of its parameters, where it is prepared
  const std::vector<Parameter>* parameters = nullptr;
  Mark mark;                        ///< behind the statement; "" where there is none
  std::vector<std::string> behind;  ///< statements without rows
  bool guarded = false;             ///< stands behind a savepoint that a failure must go back to
  bool asksNumber = false;          ///< the transaction's own number is asked for, behind the statement
  bool tells = false;               ///< it writes rows and nothing else, of which others can be told
  std::string notice;               ///< tells others of the commit, behind it and by itself; gives its own transaction's number
  std::string schema;               ///< that the statement speaks of first
  std::string saves;                ///< its text, where it writes rows
};

/// The answer to a trip, as far as it has come. Rows come as they are taken, and all of them before another trip begins.
class Run {
 public:
  std::deque<Result> rows;         ///< of one row, or of many
  std::optional<Failure> failure;  ///< complete once it is done
  bool done = false;
  bool unwanted = false;  ///< what still comes is thrown away, and a statement that only reads is ended
  bool onlyReads = false;
  bool keptOut = false;  ///< painting has waited for it once already
  bool guarded = false;
  bool isShort = false;  ///< its rows come as a whole
  std::int64_t changed = 0;
  bool prepared = false;  ///< the server has the statement now
  bool dropped = false;   ///< the server had dropped one of those that go along with it, and is given them again
  std::string tag;        ///< what the server says that the last part did
  std::string number;    ///< of the transaction, "" if it has none
  std::string notice;    ///< number of the transaction that told others
  std::string snapshot;  ///< the server's, older than what the statement has seen; "" if it wasn't asked for
  bool aheadDone = false;
  bool tells = false;
  bool over = false;      ///< all but the notice is done: whatever comes now doesn't concern the statement
  std::int64_t came = 0;  ///< rows so far

  // A save that has a mark.
  std::uint64_t save = 0;
  std::string schema;
  std::string sql;

  enum class Part : std::uint8_t { Ahead, Control, Keep, Snapshot, Prepare, Statement, Number, Mark, Notice, Sync, End };
  std::vector<Part> parts;
  std::deque<std::pair<std::string, std::string>> keeps;  ///< what the server is given to keep, each text with its name
  std::size_t at = 0;
  int thrownAway = 0;
  std::chrono::steady_clock::time_point unwantedSince;
  std::chrono::steady_clock::time_point endedLast;  ///< when the server was asked to end it
};

}  // namespace engine::postgres
