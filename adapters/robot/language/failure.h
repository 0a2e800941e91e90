#pragma once

#include <stdexcept>
#include <string>

namespace robot {

/// A command that can't be done: it ends the run. The text says what was in the way.
class ActionFailed : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The program's state refuses the action (disabled, hidden, not on top, no such row); `refused COMMAND` waits for this.
class Refused final : public ActionFailed {
 public:
  using ActionFailed::ActionFailed;
};

/// An expectation that does not hold; the run goes on.
class Unmet final : public std::runtime_error {
 public:
  Unmet(const std::string& expected, const std::string& was) : std::runtime_error("expected " + expected + ", was " + was) {}
};

}  // namespace robot
