#include "streets/program/commands.h"

namespace streetsprogram {

int Run(const std::vector<std::string>& arguments, const Console& console) {
  static constexpr suitefiles::Command kCommands[] = {
      {"import", RunImport}, {"base", RunBase}, {"find", RunFind}, {"info", RunInfo}, {"check", RunCheck}};
  return suitefiles::RunProgram({"streets", kCommands, HelpText}, arguments, console);
}

}  // namespace streetsprogram
