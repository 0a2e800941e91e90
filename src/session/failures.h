#pragma once

#include <functional>
#include <new>
#include <string>
#include <utility>

#include "platform/values/error.h"

/// What a procedure does when one of its statements fails. Each procedure's first line shows which of the shapes it has:
/// Trap (report and leave), ResumeNext (report and go on at the next statement), Ignore (go on in silence), or none at
/// all (the error goes to the nearest caller that has one).
namespace orcussch {

/// Reports the pending error under a procedure's literal: one log record, one box.
void ReportFailure(const platform::Error& error, const std::string& literal, bool terminate);

/// How often memory lacked: the user is told each time, and the host, who can do something about it, at the end of its let.
inline int gMemoryLacked = 0;

/// The lack of memory is a failure of the statement that needed it, like any other.
inline platform::Error OutOfMemory() {
  ++gMemoryLacked;
  return platform::error::OutOfMemory();
}

/// Runs a procedure's body; a failure is reported under the literal and ends the body. Returns whether it ran to its end.
template <class Body>
bool Trap(const std::string& literal, Body&& body, bool terminate = false) {
  try {
    std::forward<Body>(body)();
    return true;
  } catch (const platform::Error& error) {
    ReportFailure(error, literal, terminate);
    return false;
  } catch (const std::bad_alloc&) {
    ReportFailure(OutOfMemory(), literal, terminate);
    return false;
  }
}

/// The same for a literal that holds values of the moment of the failure.
template <class Body>
bool TrapWith(const std::function<std::string()>& literal, Body&& body) {
  try {
    std::forward<Body>(body)();
    return true;
  } catch (const platform::Error& error) {
    ReportFailure(error, literal(), false);
    return false;
  } catch (const std::bad_alloc&) {
    ReportFailure(OutOfMemory(), literal(), false);
    return false;
  }
}

/// One object a procedure: each statement that can fail is one call of it. A failing statement is reported and the next
/// one runs; what it should have set keeps its value, a condition read in it counts as not met.
class ResumeNext {
 public:
  explicit ResumeNext(std::string literal, std::function<void()> onFailure = {})
      : literal_(std::move(literal)), onFailure_(std::move(onFailure)) {}

  /// Returns whether the statement succeeded.
  template <class Statement>
  bool operator()(Statement&& statement) {
    try {
      std::forward<Statement>(statement)();
      return true;
    } catch (const platform::Error& error) {
      return Fail(error);
    } catch (const std::bad_alloc&) {
      return Fail(OutOfMemory());
    }
  }

 private:
  bool Fail(const platform::Error& error) {
    ReportFailure(error, literal_, false);
    if (onFailure_) onFailure_();
    return false;
  }

  std::string literal_;
  std::function<void()> onFailure_;
};

/// For closing down: a failing statement is passed over in silence.
class Ignore {
 public:
  template <class Statement>
  bool operator()(Statement&& statement) const {
    try {
      std::forward<Statement>(statement)();
      return true;
    } catch (const platform::Error&) {
      return false;
    } catch (const std::bad_alloc&) {
      return false;
    }
  }
};

}  // namespace orcussch
