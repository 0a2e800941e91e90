#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "robot/language/words.h"

namespace robot {

class Arguments;
class Runner;
struct Script;

/// How a command ended when it did not fail. A soft refusal (a tab that stays, a cell that stays open) is no failure by
/// itself, but `refused` accepts it.
enum class Outcome { Done, StayedAsItWas };

/// `Act`: something that the user or the host does; what is recorded "since the last user command" starts anew. `Expectation`: a
/// failure of it ends no run. `Around`: holds another command, whose words are not yet to be replaced.
enum class CommandKind { Act, Expectation, Around, Other };

/// A command: how it is written and what it does.
struct CommandDefinition {
  std::string_view name;
  /// How many words may follow.
  int least = 0;
  int most = 0;
  CommandKind kind = CommandKind::Other;
  Outcome (*handler)(Runner&, const Arguments&) = nullptr;

  /// What is wrong with the words behind the name beyond their number; "" when they can be run.
  std::string (*mistake)(const Arguments&) = nullptr;
  /// For `Around`: how many of the words behind the name stand before the command that it holds.
  int (*before)(const Arguments&) = nullptr;
  /// What the command says about the whole scenario as soon as it is read, wherever it stands.
  void (*tell)(Script&) = nullptr;
};
inline constexpr int kAnyNumber = -1;

using CommandList = std::vector<CommandDefinition>;

/// What is wrong with `count` words behind `name`; "" when it takes so many.
std::string CountMistake(std::string_view name, int count, int least, int most);

/// All commands of the language.
class Vocabulary {
 public:
  explicit Vocabulary(CommandList commands) : commands_(std::move(commands)) {}

  /// nullptr for a word that is no command; a quoted one never is.
  const CommandDefinition* Find(const Word& word) const;
  /// What is wrong with a command's form, that of the command that it holds included; "" when it can be run.
  std::string MistakeIn(const std::vector<Word>& words) const;
  /// Where in `words` the command begins that `at ...` or `refused` hold; 0 for a plain command.
  std::size_t InnermostCommand(const std::vector<Word>& words) const;
  bool IsExpectation(const std::vector<Word>& words, std::size_t from = 0) const;

 private:
  CommandList commands_;
};

}  // namespace robot
