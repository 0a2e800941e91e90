#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace robot {

/// One word of a command line. In expectations `like PATTERN` counts as one word with `pattern` set.
struct Word {
  std::string text;
  bool quoted = false;
  bool pattern = false;
  /// Whether it is this keyword, unquoted, in any case.
  bool Is(std::string_view keyword) const;
  bool operator==(const Word&) const = default;
};

/// The words of one line; the text after an unquoted "#" is a comment. On a mistake `error` is set and the words are worthless.
std::vector<Word> SplitLine(const std::string& line, std::string& error);

/// The text as a quoted word of the language, escapes included.
std::string Quoted(const std::string& text);
/// The words as the user wrote them, for messages.
std::string Written(const std::vector<Word>& words);

}  // namespace robot
