#pragma once

#include <istream>
#include <string>
#include <vector>

#include "robot/language/vocabulary.h"
#include "robot/language/words.h"

namespace robot {

struct Command {
  int line = 0;
  std::vector<Word> words;
};

/// A scenario as it was written; what stands in braces is replaced when a command runs.
struct Script {
  std::string name;  ///< the file as the user named it, for messages
  std::vector<Command> commands;
  bool allowBoxes = false;
};

struct ScriptError {
  int line = 0;
  std::string message;
};

struct ScriptReading {
  Script script;
  std::vector<ScriptError> errors;  ///< empty: the script can be run
};

/// Reads a scenario: UTF-8 (a byte order mark is passed over), one command a line, every command known and with as many words
/// as it takes.
ScriptReading ReadScript(std::istream& input, std::string name, const Vocabulary& vocabulary);

}  // namespace robot
