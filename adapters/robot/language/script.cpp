#include "robot/language/script.h"

#include <algorithm>

#include "platform/values/text.h"

namespace robot {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// In an expectation "like" and the word behind it become one.
void FoldPatterns(std::vector<Word>& words, const Vocabulary& vocabulary) {
  const std::size_t start = vocabulary.InnermostCommand(words);
  if (!vocabulary.IsExpectation(words, start)) return;
  std::vector<Word> folded(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(std::min(start + 2, words.size())));
  for (std::size_t i = start + 2; i < words.size(); ++i) {
    if (words[i].Is("like") && i + 1 < words.size()) {
      folded.push_back({words[i + 1].text, words[i + 1].quoted, true});
      ++i;
    } else {
      folded.push_back(words[i]);
    }
  }
  words = std::move(folded);
}

void ReadLine(const std::string& line, int number, const Vocabulary& vocabulary, ScriptReading& reading) {
  std::string error;
  std::vector<Word> words = SplitLine(line, error);
  if (error.empty() && words.empty()) return;
  if (error.empty()) {
    FoldPatterns(words, vocabulary);
    error = vocabulary.MistakeIn(words);
  }
  if (!error.empty()) {
    reading.errors.push_back({number, error});
    return;
  }
  if (const auto tell = vocabulary.Find(words.front())->tell) tell(reading.script);
  reading.script.commands.push_back({number, std::move(words)});
}

}  // namespace

ScriptReading ReadScript(std::istream& input, std::string name, const Vocabulary& vocabulary) {
  ScriptReading reading;
  reading.script.name = std::move(name);
  std::string line;
  for (int number = 1; std::getline(input, line); ++number) {
    if (number == 1 && line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const auto text = platform::Normalise(line);
    if (!text) {
      reading.errors.push_back({number, "the line is no valid UTF-8 text"});
      continue;
    }
    ReadLine(*text, number, vocabulary, reading);
  }
  if (input.bad()) reading.errors.push_back({0, "the file can't be read"});
  return reading;
}

}  // namespace robot
