#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <vector>

namespace suitefiles {

/// Where a command writes: answers to `out`, progress and complaints to `err`.
struct Console {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  bool errIsTerminal = false;
};

inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kMisused = 2;

/// Takes its own words and returns the exit status.
struct Command {
  const char* name;
  int (*run)(const std::vector<std::string>& words, const Console& console);
};

/// A program of commands.
struct Program {
  const char* name;
  std::span<const Command> commands;
  /// The help text of a command, of the program for ""; "" for an unknown command.
  std::string (*help)(const std::string& command);
};

/// The whole program behind its arguments (without its name); the exit status.
int RunProgram(const Program& program, const std::vector<std::string>& arguments, const Console& console);

}  // namespace suitefiles
