#include "robot/commands/commands.h"

#include <algorithm>
#include <charconv>

#include "platform/values/text.h"

namespace robot {
namespace {

const CommandList& AllCommands() {
  static const CommandList all = [] {
    CommandList list;
    for (const CommandList& part : {HostCommands(), UserCommands(), ListCommands(), AnswerCommands(), OtherUserCommands(), FrameCommands()})
      list.insert(list.end(), part.begin(), part.end());
    return list;
  }();
  return all;
}

const ExpectationList& AllExpectations() {
  static const ExpectationList all = [] {
    ExpectationList list;
    for (const ExpectationList& part :
         {ValueExpectations(), ScreenExpectations(), ListExpectations(), RecordExpectations(), DoubleExpectations()})
      list.insert(list.end(), part.begin(), part.end());
    return list;
  }();
  return all;
}

const ExpectationDefinition& ControlExpectation() {
  const auto found = std::find_if(AllExpectations().begin(), AllExpectations().end(), [](const auto& one) { return one.name.empty(); });
  return *found;
}

std::string CountMistake(std::string_view name, std::size_t count, int least, int most) {
  const auto given = static_cast<int>(count);
  if (given >= least && (most < 0 || given <= most)) return "";
  std::string wanted = std::to_string(least);
  if (most < 0)
    wanted += " or more";
  else if (most != least)
    wanted += " to " + std::to_string(most);
  return std::string(name) + " takes " + wanted + (wanted == "1" ? " word" : " words") + ", not " + std::to_string(given);
}

std::string ExpectationMistake(const std::vector<Word>& words) {
  std::size_t taken = 0;
  const ExpectationDefinition& definition = FindExpectation(words, 1, taken);
  const std::string name = taken == 0 ? "expect" : "expect " + std::string(definition.name);
  return CountMistake(name, words.size() - 1 - taken, definition.least, definition.most);
}

std::string HostMistake(const std::vector<Word>& words) {
  const bool alone = platform::EqualsNoCase(words[1].text, "ShowUser") || platform::EqualsNoCase(words[1].text, "release");
  return CountMistake("host " + words[1].text, words.size() - 2, alone ? 0 : 1, alone ? 0 : 1);
}

std::string AtMistake(const std::vector<Word>& words) {
  if (platform::EqualsNoCase(words[1].text, "box")) return "";
  if (!platform::EqualsNoCase(words[1].text, "yield")) return "at is followed by yield or box";
  int number = 0;
  const std::string& text = words[2].text;
  const auto [end, mistake] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (mistake != std::errc{} || end != text.data() + text.size() || number < 1) return "at yield takes the yield's number, from 1";
  return words.size() > 3 ? "" : "at yield takes a command";
}

}  // namespace

const CommandDefinition* FindCommand(std::string_view name) {
  for (const CommandDefinition& definition : AllCommands())
    if (platform::EqualsNoCase(definition.name, name)) return &definition;
  return nullptr;
}

const ExpectationDefinition& FindExpectation(const std::vector<Word>& words, std::size_t from, std::size_t& taken) {
  const auto named = [&](std::string_view name) -> const ExpectationDefinition* {
    for (const ExpectationDefinition& one : AllExpectations())
      if (!one.name.empty() && platform::EqualsNoCase(one.name, name)) return &one;
    return nullptr;
  };
  taken = 0;
  if (from >= words.size() || words[from].quoted) return ControlExpectation();
  if (from + 1 < words.size()) {
    if (const auto* two = named(words[from].text + " " + words[from + 1].text)) {
      taken = 2;
      return *two;
    }
  }
  if (const auto* one = named(words[from].text)) {
    taken = 1;
    return *one;
  }
  return ControlExpectation();
}

std::string CommandMistake(const std::vector<Word>& words) {
  const std::string& name = words.front().text;
  const CommandDefinition* definition = words.front().quoted ? nullptr : FindCommand(name);
  if (definition == nullptr) return "there is no command " + Quoted(name);
  if (std::string mistake = CountMistake(name, words.size() - 1, definition->least, definition->most); !mistake.empty()) return mistake;
  if (platform::EqualsNoCase(name, "expect")) return ExpectationMistake(words);
  if (platform::EqualsNoCase(name, "host")) return HostMistake(words);
  if (platform::EqualsNoCase(name, "allow") && !platform::EqualsNoCase(words[1].text, "boxes")) return "allow is followed by boxes";
  std::size_t inner = 0;
  if (platform::EqualsNoCase(name, "refused")) {
    inner = 1;
  } else if (platform::EqualsNoCase(name, "at")) {
    if (std::string mistake = AtMistake(words); !mistake.empty()) return mistake;
    inner = platform::EqualsNoCase(words[1].text, "box") ? 2 : 3;
  }
  return inner == 0 ? "" : CommandMistake({words.begin() + static_cast<std::ptrdiff_t>(inner), words.end()});
}

}  // namespace robot
