#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/host/application.h"
#include "robot/language/words.h"
#include "robot/runner/others.h"
#include "robot/runner/surroundings.h"

namespace robot {

/// Replaces what stands in braces when a command runs: {today}, {ThreadID}, {DIR}, {LOCAL}, {value FILE STATEMENT}. Other texts
/// in braces stay as they are. Raises platform::Error for a statement that fails.
class Substitution {
 public:
  Substitution(const platform::Application& app, const Surroundings& surroundings, OtherUsers& others)
      : app_(app), surroundings_(surroundings), others_(others) {}

  std::vector<Word> In(std::vector<Word> words) const;
  std::string In(const std::string& text) const;

 private:
  /// nothing when it is no name that the language knows.
  std::optional<std::string> ValueOf(const std::string& inside) const;

  const platform::Application& app_;
  const Surroundings& surroundings_;
  OtherUsers& others_;
};

}  // namespace robot
