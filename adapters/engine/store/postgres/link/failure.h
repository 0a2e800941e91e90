#pragma once

#include <optional>
#include <string>

#include "platform/values/error.h"

namespace engine::postgres {

/// What a server said was wrong: its five-letter state (SQLSTATE), and what belongs to it.
struct Failure {
  std::string state;       ///< "" where the connection was cut and nobody said anything
  std::string message;     ///< in the server's language; for messages about what no state of ours covers
  std::string constraint;  ///< the key that would have been broken
  bool lost = false;       ///< the connection is gone
  std::string toldBy = {}; ///< the server's own function that said so; its name is in no language
};

/// What the statement that failed was doing.
enum class Doing { Reading, Writing };

/// The engine's error for a failed statement. `asked` names the file as the program does.
platform::Error StatementError(const Failure& failure, Doing doing, const std::string& asked);

/// The engine's error for a connection that could not be made.
platform::Error ConnectError(const Failure& failure, const std::string& asked);

/// The connection is gone and with it all that was to be had by it: 3043.
platform::Error ServerLost();

/// The last state named in a message of the client library about a failed connection ("... FATAL:  28P01"); "" if there is none.
std::string StateInMessage(const std::string& message);

/// Whether it is the server's warning that a commit is stored there and on no other server that had to confirm it.
bool MeansStoredHereAlone(const Failure& notice);

/// Whether a save that failed so may have been stored, and the server can tell.
bool CanBeAsked(const Failure& failure);

/// Nobody can know whether the save was stored for good.
Failure OutcomeUnknown();

/// Whether the statement must be prepared once more: the server forgot it, or its tables have changed under it.
bool MustPrepareAgain(const Failure& failure);

/// Whether the server couldn't tell of what type a parameter is: one that has had no value yet.
bool NeedsTypes(const Failure& failure);

}  // namespace engine::postgres
