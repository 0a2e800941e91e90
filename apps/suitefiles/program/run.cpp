#include "suitefiles/program/commands.h"

namespace suitefiles {

int Run(const std::vector<std::string>& arguments, const Console& console) {
  static constexpr Command kCommands[] = {{"create", RunCreate}, {"demo", RunDemo},     {"temp", RunTemp}, {"check", RunCheck},
                                          {"backup", RunBackup}, {"copy", RunCopy}, {"relink", RunRelink}, {"upgrade", RunUpgrade}, {"sql", RunSql}};
  return RunProgram({"suitefiles", kCommands, HelpText}, arguments, console);
}

}  // namespace suitefiles
