#include "robot/language/vocabulary.h"

#include "robot/language/arguments.h"

namespace robot {
namespace {

Arguments Behind(const std::vector<Word>& words, std::size_t name) {
  return Arguments({words.begin() + static_cast<std::ptrdiff_t>(name + 1), words.end()});
}

}  // namespace

std::string CountMistake(std::string_view name, int count, int least, int most) {
  if (count >= least && (most == kAnyNumber || count <= most)) return "";
  std::string wanted = std::to_string(least);
  if (most == kAnyNumber)
    wanted += " or more";
  else if (most != least)
    wanted += " to " + std::to_string(most);
  return std::string(name) + " takes " + wanted + (wanted == "1" ? " word" : " words") + ", not " + std::to_string(count);
}

const CommandDefinition* Vocabulary::Find(const Word& word) const {
  for (const CommandDefinition& definition : commands_)
    if (word.Is(definition.name)) return &definition;
  return nullptr;
}

std::string Vocabulary::MistakeIn(const std::vector<Word>& words) const {
  const CommandDefinition* definition = Find(words.front());
  if (definition == nullptr) return "there is no command " + Quoted(words.front().text);
  const Arguments rest = Behind(words, 0);
  std::string mistake = CountMistake(words.front().text, static_cast<int>(rest.Count()), definition->least, definition->most);
  if (mistake.empty() && definition->mistake != nullptr) mistake = definition->mistake(rest);
  if (!mistake.empty() || definition->before == nullptr) return mistake;
  return MistakeIn(rest.From(static_cast<std::size_t>(definition->before(rest))));
}

std::size_t Vocabulary::InnermostCommand(const std::vector<Word>& words) const {
  std::size_t start = 0;
  while (start < words.size()) {
    const CommandDefinition* definition = Find(words[start]);
    if (definition == nullptr || definition->before == nullptr) break;
    start += 1 + static_cast<std::size_t>(definition->before(Behind(words, start)));
  }
  return start;
}

bool Vocabulary::IsExpectation(const std::vector<Word>& words, std::size_t from) const {
  if (from >= words.size()) return false;
  const CommandDefinition* definition = Find(words[from]);
  return definition != nullptr && definition->kind == CommandKind::Expectation;
}

}  // namespace robot
