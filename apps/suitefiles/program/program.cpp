#include "suitefiles/program/program.h"

#include <algorithm>
#include <exception>
#include <iostream>

#include "platform/values/error.h"
#include "suitefiles/program/command_line.h"

namespace suitefiles {

namespace {

bool AsksForHelp(const std::vector<std::string>& words) {
  const auto end = std::find(words.begin(), words.end(), "--");
  return std::any_of(words.begin(), end, [](const std::string& word) { return word == "--help" || word == "-h"; });
}

int Help(const Program& program, const std::string& command, const Console& console) {
  const std::string text = program.help(command);
  if (text.empty()) throw UsageError("there is no command \"" + command + "\"");
  console.out << text;
  return kDone;
}

int Dispatch(const Program& program, const std::vector<std::string>& arguments, const Console& console) {
  if (arguments.empty()) throw UsageError("a command is missing");
  const std::string& name = arguments[0];
  if (name == "--help" || name == "-h") return Help(program, "", console);
  if (name == "help") return Help(program, arguments.size() > 1 ? arguments[1] : "", console);
  if (name == "--version") {
    console.out << program.name << " " << ORCUSSCH_VERSION << "\n";
    return kDone;
  }
  const auto command = std::ranges::find_if(program.commands, [&](const Command& each) { return name == each.name; });
  if (command == program.commands.end()) throw UsageError("there is no command \"" + name + "\"");
  const std::vector<std::string> words(arguments.begin() + 1, arguments.end());
  if (AsksForHelp(words)) return Help(program, name, console);
  return command->run(words, console);
}

}  // namespace

int RunProgram(const Program& program, const std::vector<std::string>& arguments, const Console& console) {
  const std::string told = std::string(program.name) + ": ";
  int status = kFailed;
  try {
    status = Dispatch(program, arguments, console);
    console.out.flush();
    if (!console.out) throw CommandError("the output can't be written");
  } catch (const UsageError& problem) {
    console.err << told << problem.what() << "\nTry \"" << program.name << " --help\".\n";
    status = kMisused;
  } catch (const platform::Error& problem) {
    console.err << told << problem.Description() << " (error " << problem.Number() << ")\n";
  } catch (const std::exception& problem) {
    console.err << told << problem.what() << "\n";
  }
  console.err.flush();
  return status;
}

}  // namespace suitefiles
