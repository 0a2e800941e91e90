#pragma once

#include <string>
#include <vector>

#include "suitefiles/program/program.h"

namespace suitefiles {

/// The whole program behind its arguments (without the program's name); the exit status.
int Run(const std::vector<std::string>& arguments, const Console& console);

// The commands. Each takes its own words and returns the exit status.
int RunCreate(const std::vector<std::string>& words, const Console& console);
int RunDemo(const std::vector<std::string>& words, const Console& console);
int RunTemp(const std::vector<std::string>& words, const Console& console);
int RunCheck(const std::vector<std::string>& words, const Console& console);
int RunBackup(const std::vector<std::string>& words, const Console& console);
int RunCopy(const std::vector<std::string>& words, const Console& console);
int RunRelink(const std::vector<std::string>& words, const Console& console);
int RunUpgrade(const std::vector<std::string>& words, const Console& console);
int RunSql(const std::vector<std::string>& words, const Console& console);

/// The help text of a command, of the program for ""; "" for an unknown command.
std::string HelpText(const std::string& command);

}  // namespace suitefiles
