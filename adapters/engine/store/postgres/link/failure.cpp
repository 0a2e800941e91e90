#include "engine/store/postgres/link/failure.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "engine/errors.h"

namespace engine::postgres {
namespace {

using platform::Error;

Error NoResources() { return {3035, "System resource exceeded."}; }

Error Unforeseen(const Failure& failure) {
  return {3000, "Reserved error (" + failure.state + "): " + failure.message};
}

bool IsOneOf(std::string_view state, std::initializer_list<std::string_view> states) {
  return std::find(states.begin(), states.end(), state) != states.end();
}

// Terminated, shutting down, starting, cut; without a state nobody was there to name one.
bool IsLoss(const Failure& failure) {
  return failure.lost || failure.state.starts_with("08") || IsOneOf(failure.state, {"57P01", "57P02", "57P03"});
}

// The dialect's functions name their error's number in a state of their own: "OR013".
std::optional<Error> FunctionError(std::string_view state) {
  using Make = Error (*)();
  constexpr std::array<std::pair<std::string_view, Make>, 5> kStates{{{"OR005", platform::error::InvalidCall},
                                                                      {"OR006", platform::error::Overflow},
                                                                      {"OR011", platform::error::DivisionByZero},
                                                                      {"OR013", platform::error::TypeMismatch},
                                                                      {"OR093", platform::error::InvalidPattern}}};
  for (const auto& known : kStates)
    if (known.first == state) return known.second();
  return {};
}

// The name in `relation "orv1_customer.Phones" does not exist`, without its schema.
std::string MissingTable(const std::string& message) {
  const std::size_t from = message.find('"');
  const std::size_t to = message.rfind('"');
  if (from == std::string::npos || to <= from) return {};
  const std::string name = message.substr(from + 1, to - from - 1);
  const std::size_t dot = name.find('.');
  return dot == std::string::npos ? name : name.substr(dot + 1);
}

Error RightsError(Doing doing, const std::string& asked) {
  return doing == Doing::Writing ? errors::ReadOnly() : errors::OpenedExclusively(asked);
}

}  // namespace

Error ServerLost() { return errors::DiskOrNetwork().WhileOutOfReach(); }

Error StatementError(const Failure& failure, Doing doing, const std::string& asked) {
  const std::string_view state = failure.state;
  if (IsLoss(failure)) return ServerLost();
  if (const auto raised = FunctionError(state)) return *raised;
  if (state == "23505") return errors::DuplicateKey();
  if (state == "23502") return errors::NullInKey();
  if (IsOneOf(state, {"22001", "54000"})) return errors::FieldTooSmall();
  if (state == "22003") return errors::NumericOverflow();
  if (state == "22012") return platform::error::DivisionByZero();
  if (state == "22021") return errors::DataConversion();
  if (IsOneOf(state, {"55P03", "40P01", "40001"})) return doing == Doing::Writing ? errors::UpdateLocked() : errors::FileInUse(asked);
  if (IsOneOf(state, {"25006", "42501"})) return RightsError(doing, asked);
  if (state == "53100") return errors::DiskOrNetwork();
  if (IsOneOf(state, {"53200", "53400"})) return NoResources();
  if (IsOneOf(state, {"54001", "54011", "54023"})) return errors::QueryTooComplex();
  if (state == "42P01") return errors::UnknownTable(MissingTable(failure.message));
  if (state == "3F000") return errors::ObjectNotFound(asked);
  if (state == "42P06") return {platform::error::number::FileExists, "Database '" + asked + "' already exists."};
  return Unforeseen(failure);
}

Error ConnectError(const Failure& failure, const std::string& asked) {
  if (IsOneOf(failure.state, {"28P01", "28000", "42501"})) return errors::OpenedExclusively(asked);
  if (failure.state == "3D000") return errors::InvalidPath(asked).WhileOutOfReach();
  if (failure.state == "53300") return errors::FileInUse(asked);
  return ServerLost();
}

std::string StateInMessage(const std::string& message) {
  // The word before it is in the server's language.
  constexpr std::string_view kLead = ":  ";
  constexpr std::size_t kLength = 5;
  std::string found;
  for (std::size_t at = message.find(kLead); at != std::string::npos; at = message.find(kLead, at + 1)) {
    const std::string state = message.substr(at + kLead.size(), kLength);
    const std::size_t behind = at + kLead.size() + kLength;
    const bool whole = behind <= message.size() && (behind == message.size() || message[behind] == '\n');
    if (whole && std::ranges::all_of(state, [](char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z'); })) found = state;
  }
  return found;
}

// Somebody ended the wait for them, or the whole connection. A server that is stopped at once warns with the same state, and knows
// nothing of a commit then.
bool MeansStoredHereAlone(const Failure& notice) {
  return IsOneOf(notice.state, {"01000", "57P01"}) && notice.toldBy == "SyncRepWaitForLSN";
}

bool CanBeAsked(const Failure& failure) { return failure.lost && failure.state != OutcomeUnknown().state; }

Failure OutcomeUnknown() { return {"08007", "", "", false}; }

bool MustPrepareAgain(const Failure& failure) { return IsOneOf(failure.state, {"26000", "0A000"}); }

bool NeedsTypes(const Failure& failure) { return failure.state == "42P18"; }

}  // namespace engine::postgres
