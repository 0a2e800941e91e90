#include "robot/language/words.h"

#include <optional>

#include "platform/values/text.h"

namespace robot {
namespace {

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

}  // namespace

bool Word::Is(std::string_view keyword) const { return !quoted && platform::EqualsNoCase(text, keyword); }

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
