#pragma once

#include <exception>
#include <string>
#include <utility>

namespace platform {

/// What the data engine, the conversions and the controls raise: the number and description that the log and the
/// standard message show. Nothing else may leave them; broken invariants are assertions.
class Error final : public std::exception {
 public:
  Error(int number, std::string description) : number_(number), description_(std::move(description)) {}

  /// The same, where it tells that the data as a whole is out of reach: whatever else is asked of it now meets the same end.
  Error WhileOutOfReach() const {
    Error error = *this;
    error.outOfReach_ = true;
    return error;
  }
  bool OutOfReach() const noexcept { return outOfReach_; }

  /// The error's number as the suite's log knows it (3021 "No current record.", 13 "Type mismatch" ...).
  int Number() const noexcept { return number_; }
  const std::string& Description() const noexcept { return description_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  int number_;
  std::string description_;
  bool outOfReach_ = false;
};

/// Errors that carry no inserted text and are raised outside of the engine too: the language's own (5 to 438), and some of the
/// recordsets. All others are made in the engine.
namespace error {

/// Numbers by which a program tells an error from others.
namespace number {
inline constexpr int InvalidCall = 5;
inline constexpr int DuplicateKey = 3022;
inline constexpr int RecordDeleted = 3167;
inline constexpr int FileExists = 3204;
}  // namespace number

Error InvalidCall();          ///< 5
Error Overflow();             ///< 6
Error OutOfMemory();          ///< 7
Error SubscriptOutOfRange();  ///< 9
Error DivisionByZero();       ///< 11
Error TypeMismatch();         ///< 13
Error FileNotFound();         ///< 53
Error PathNotFound();         ///< 76
Error ObjectNotSet();         ///< 91
Error InvalidPattern();       ///< 93
Error InvalidUseOfNull();     ///< 94
Error ObjectRequired();       ///< 424
Error NoSuchProperty();       ///< 438
Error NoCurrentRecord();      ///< 3021
Error RecordDeleted();        ///< 3167
Error ItemNotFound();         ///< 3265, member of a collection
Error ObjectClosed();         ///< 3420
Error ActionCancelled();      ///< 3426, an event's handler or an open cell stopped a move or a write
}  // namespace error

}  // namespace platform
