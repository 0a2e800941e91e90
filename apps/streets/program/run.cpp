#include <algorithm>
#include <exception>
#include <iostream>

#include "streets/program/commands.h"
#include "suitefiles/program/command_line.h"

namespace streetsprogram {

namespace {

using suitefiles::UsageError;

struct Command {
  const char* name;
  int (*run)(const std::vector<std::string>&, const Console&);
};

constexpr Command kCommands[] = {{"import", RunImport}, {"base", RunBase}, {"find", RunFind}, {"info", RunInfo}, {"check", RunCheck}};

bool AsksForHelp(const std::vector<std::string>& words) {
  const auto end = std::find(words.begin(), words.end(), "--");
  return std::any_of(words.begin(), end, [](const std::string& word) { return word == "--help" || word == "-h"; });
}

int Help(const std::string& command, const Console& console) {
  const std::string text = HelpText(command);
  if (text.empty()) throw UsageError("there is no command \"" + command + "\"");
  console.out << text;
  return kDone;
}

int Dispatch(const std::vector<std::string>& arguments, const Console& console) {
  if (arguments.empty()) throw UsageError("a command is missing");
  const std::string& name = arguments[0];
  if (name == "--help" || name == "-h") return Help("", console);
  if (name == "help") return Help(arguments.size() > 1 ? arguments[1] : "", console);
  if (name == "--version") {
    console.out << "streets " << ORCUSSCH_VERSION << "\n";
    return kDone;
  }
  const auto command = std::find_if(std::begin(kCommands), std::end(kCommands), [&](const Command& each) { return name == each.name; });
  if (command == std::end(kCommands)) throw UsageError("there is no command \"" + name + "\"");
  const std::vector<std::string> words(arguments.begin() + 1, arguments.end());
  if (AsksForHelp(words)) return Help(name, console);
  return command->run(words, console);
}

}  // namespace

int Run(const std::vector<std::string>& arguments, const Console& console) {
  int status = kFailed;
  try {
    status = Dispatch(arguments, console);
    console.out.flush();
    if (!console.out) throw suitefiles::CommandError("the output can't be written");
  } catch (const UsageError& problem) {
    console.err << "streets: " << problem.what() << "\nTry \"streets --help\".\n";
    status = kMisused;
  } catch (const std::exception& problem) {
    console.err << "streets: " << problem.what() << "\n";
  }
  console.err.flush();
  return status;
}

}  // namespace streetsprogram
