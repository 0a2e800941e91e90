#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "robot/language/script.h"

namespace robot {

class Interpreter;
class Arguments;

/// How a command ended when it did not fail. A soft refusal (a tab that stays, a cell that stays open) is no failure by
/// itself, but `refused` accepts it.
enum class Outcome { Done, StayedAsItWas };

/// `Act`: something that the user or the host does; what is recorded "since the last user command" starts anew. `Around`: holds
/// another command, whose words are not yet to be replaced.
enum class CommandKind { Act, Other, Around };

using CommandHandler = Outcome (*)(Interpreter&, const Arguments&);

/// A command word, how many words may follow it (`most` -1: any number), and what it does.
struct CommandDefinition {
  std::string_view name;
  int least = 0;
  int most = 0;
  CommandKind kind = CommandKind::Other;
  CommandHandler handler = nullptr;
};

/// nullptr for a word that is no command.
const CommandDefinition* FindCommand(std::string_view name);

/// An expectation's first word (or two: "not said"), how many words follow. A first word that is none of them is a control.
struct ExpectationDefinition {
  std::string_view name;
  int least = 0;
  int most = 0;
  void (*handler)(Interpreter&, const Arguments&) = nullptr;
};
/// The definition for the words behind "expect"; `taken` becomes the number of words that name it (0: a control's value).
const ExpectationDefinition& FindExpectation(const std::vector<Word>& words, std::size_t from, std::size_t& taken);

/// What is wrong with a command's form; "" when it can be run.
std::string CommandMistake(const std::vector<Word>& words);

/// The tables' parts, one for each family of commands.
using CommandList = std::vector<CommandDefinition>;
using ExpectationList = std::vector<ExpectationDefinition>;
CommandList HostCommands();
CommandList UserCommands();
CommandList ListCommands();
CommandList AnswerCommands();
CommandList OtherUserCommands();
CommandList FrameCommands();
ExpectationList ValueExpectations();
ExpectationList ScreenExpectations();
ExpectationList ListExpectations();
ExpectationList RecordExpectations();
ExpectationList DoubleExpectations();

}  // namespace robot
