#pragma once

#include <istream>
#include <string>
#include <vector>

namespace robot {

/// One word of a command line. In expectations `like PATTERN` counts as one word with `pattern` set.
struct Word {
  std::string text;
  bool quoted = false;
  bool pattern = false;
  bool operator==(const Word&) const = default;
};

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
ScriptReading ReadScript(std::istream& input, std::string name);

/// The words of one line; the text after an unquoted "#" is a comment. On a mistake `error` is set and the words are worthless.
std::vector<Word> SplitLine(const std::string& line, std::string& error);

/// Where in `words` the command of an `at ...` or `refused` begins; 0 for a plain command.
std::size_t InnerCommand(const std::vector<Word>& words);

/// The text as a quoted word of the language, escapes included.
std::string Quoted(const std::string& text);
/// The words as the user wrote them, for messages.
std::string Written(const std::vector<Word>& words);

}  // namespace robot
