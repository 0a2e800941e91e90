#include "robot/language/script.h"

#include <algorithm>
#include <optional>

#include "platform/values/text.h"
#include "robot/commands/commands.h"

namespace robot {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

std::optional<char> Escaped(char c) {
  switch (c) {
    case '"':
    case '\\':
      return c;
    case 'r':
      return '\r';
    case 'n':
      return '\n';
    case 't':
      return '\t';
    default:
      return std::nullopt;
  }
}

/// Reads a quoted text from behind its first quote; `at` ends behind the last one.
Word QuotedWord(const std::string& line, std::size_t& at, std::string& error) {
  Word word;
  word.quoted = true;
  while (at < line.size() && line[at] != '"') {
    if (line[at] != '\\') {
      word.text += line[at++];
      continue;
    }
    const auto escaped = at + 1 < line.size() ? Escaped(line[at + 1]) : std::nullopt;
    if (!escaped) {
      error = "a backslash in quotes stands before \" \\ r n or t only";
      return word;
    }
    word.text += *escaped;
    at += 2;
  }
  if (at == line.size()) {
    error = "a quote is not closed";
    return word;
  }
  ++at;
  if (at < line.size() && !IsBlank(line[at]) && line[at] != '#') error = "a blank must follow a closing quote";
  return word;
}

Word PlainWord(const std::string& line, std::size_t& at, std::string& error) {
  Word word;
  while (at < line.size() && !IsBlank(line[at]) && line[at] != '#') {
    if (line[at] == '"') {
      error = "a quote stands inside a word";
      return word;
    }
    word.text += line[at++];
  }
  return word;
}

bool IsKeyword(const Word& word, std::string_view keyword) { return !word.quoted && platform::EqualsNoCase(word.text, keyword); }

/// In an expectation "like" and the word behind it become one.
void FoldPatterns(std::vector<Word>& words) {
  const std::size_t start = InnerCommand(words);
  if (start >= words.size() || !IsKeyword(words[start], "expect")) return;
  std::vector<Word> folded(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(std::min(start + 2, words.size())));
  for (std::size_t i = start + 2; i < words.size(); ++i) {
    if (IsKeyword(words[i], "like") && i + 1 < words.size()) {
      folded.push_back({words[i + 1].text, words[i + 1].quoted, true});
      ++i;
    } else {
      folded.push_back(words[i]);
    }
  }
  words = std::move(folded);
}

void ReadLine(const std::string& line, int number, ScriptReading& reading) {
  std::string error;
  std::vector<Word> words = SplitLine(line, error);
  if (error.empty() && words.empty()) return;
  if (error.empty()) {
    FoldPatterns(words);
    error = CommandMistake(words);
  }
  if (!error.empty()) {
    reading.errors.push_back({number, error});
    return;
  }
  if (IsKeyword(words.front(), "allow")) reading.script.allowBoxes = true;
  reading.script.commands.push_back({number, std::move(words)});
}

}  // namespace

std::vector<Word> SplitLine(const std::string& line, std::string& error) {
  std::vector<Word> words;
  std::size_t at = 0;
  while (at < line.size() && error.empty()) {
    if (IsBlank(line[at])) {
      ++at;
    } else if (line[at] == '#') {
      break;
    } else if (line[at] == '"') {
      words.push_back(QuotedWord(line, ++at, error));
    } else {
      words.push_back(PlainWord(line, at, error));
    }
  }
  return words;
}

std::size_t InnerCommand(const std::vector<Word>& words) {
  std::size_t start = 0;
  while (start < words.size()) {
    if (IsKeyword(words[start], "refused")) {
      start += 1;
    } else if (IsKeyword(words[start], "at") && start + 1 < words.size()) {
      start += IsKeyword(words[start + 1], "yield") ? 3 : 2;
    } else {
      break;
    }
  }
  return start;
}

ScriptReading ReadScript(std::istream& input, std::string name) {
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
    ReadLine(*text, number, reading);
  }
  if (input.bad()) reading.errors.push_back({0, "the file can't be read"});
  return reading;
}

std::string Quoted(const std::string& text) {
  std::string quoted = "\"";
  for (const char c : text) {
    switch (c) {
      case '\r':
        quoted += "\\r";
        break;
      case '\n':
        quoted += "\\n";
        break;
      case '\t':
        quoted += "\\t";
        break;
      case '"':
      case '\\':
        quoted += '\\';
        [[fallthrough]];
      default:
        quoted += c;
    }
  }
  return quoted + '"';
}

std::string Written(const std::vector<Word>& words) {
  std::string text;
  for (const Word& word : words) {
    if (!text.empty()) text += ' ';
    if (word.pattern) text += "like ";
    text += word.quoted ? Quoted(word.text) : word.text;
  }
  return text;
}

}  // namespace robot
