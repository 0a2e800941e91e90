#include "robot/runner/substitution.h"

#include "platform/values/calendar.h"
#include "platform/values/text.h"
#include "robot/language/value_text.h"

namespace robot {
namespace {

/// The brace that closes the one at `open`; npos when there is none.
std::size_t ClosingBrace(const std::string& text, std::size_t open) {
  int depth = 0;
  for (std::size_t i = open; i < text.size(); ++i) {
    if (text[i] == '{') ++depth;
    if (text[i] == '}' && --depth == 0) return i;
  }
  return std::string::npos;
}

/// Where the part of a path behind the data folder begins that names a data file or lies in a company's folder; npos for other files,
/// which stay in the folder when the companies lie on a server.
std::size_t StartOnServer(const std::string& text, std::size_t at) {
  constexpr std::string_view kData = "/data/";
  if (text.compare(at, kData.size(), kData) == 0) return at + kData.size();
  const std::string path = text.substr(at, text.find_first_of(" {\n", at) - at);
  return path.starts_with('/') && path.find(".zdb") != std::string::npos ? at + 1 : std::string::npos;
}

}  // namespace

std::vector<Word> Substitution::In(std::vector<Word> words) const {
  for (Word& word : words)
    if (word.text.find('{') != std::string::npos) word.text = In(word.text);
  return words;
}

std::string Substitution::In(const std::string& text) const {
  std::string result;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t close = text[at] == '{' ? ClosingBrace(text, at) : std::string::npos;
    if (close == std::string::npos) {
      result += text[at++];
      continue;
    }
    const std::string inside = text.substr(at + 1, close - at - 1);
    if (!surroundings_.companies.empty() && platform::EqualsNoCase(inside, "DIR")) {
      if (const std::size_t start = StartOnServer(text, close + 1); start != std::string::npos) {
        result += surroundings_.companies;
        at = start;
        continue;
      }
    }
    if (const auto value = ValueOf(inside)) {
      result += *value;
      at = close + 1;
    } else {
      result += text[at++];
    }
  }
  return result;
}

std::optional<std::string> Substitution::ValueOf(const std::string& inside) const {
  if (platform::EqualsNoCase(inside, "today")) return platform::ShortDate(app_.System().Today());
  if (platform::EqualsNoCase(inside, "ThreadID")) return std::to_string(app_.ThreadID());
  if (platform::EqualsNoCase(inside, "DIR")) return surroundings_.directory;
  if (platform::EqualsNoCase(inside, "LOCAL")) return surroundings_.localRoot;
  if (platform::EqualsNoCase(inside, "SERVER") && !surroundings_.companies.empty())
    return surroundings_.companies.substr(0, surroundings_.companies.size() - 1);
  constexpr std::string_view kQuery = "value ";
  if (inside.size() <= kQuery.size() || !platform::EqualsNoCase(inside.substr(0, kQuery.size()), kQuery)) return std::nullopt;
  const std::string rest = In(inside.substr(kQuery.size()));
  const std::size_t blank = rest.find(' ');
  if (blank == std::string::npos) return std::nullopt;
  const auto value = others_.ValueOf(rest.substr(0, blank), rest.substr(blank + 1));
  return value ? TextOf(*value) : "none";
}

}  // namespace robot
