#pragma once

#include <string>
#include <vector>

#include "suitefiles/program/program.h"

/// The program "streets". Its words, its console and its exit states are those of "suitefiles".
namespace streetsprogram {

using suitefiles::Console;
using suitefiles::kDone;
using suitefiles::kFailed;
using suitefiles::kMisused;

/// The whole program behind its arguments (without the program's name); the exit status.
int Run(const std::vector<std::string>& arguments, const Console& console);

// The commands. Each takes its own words and returns the exit status.
int RunImport(const std::vector<std::string>& words, const Console& console);
int RunBase(const std::vector<std::string>& words, const Console& console);
int RunFind(const std::vector<std::string>& words, const Console& console);
int RunInfo(const std::vector<std::string>& words, const Console& console);
int RunCheck(const std::vector<std::string>& words, const Console& console);

/// The help text of a command, of the program for ""; "" for an unknown command.
std::string HelpText(const std::string& command);

}  // namespace streetsprogram
