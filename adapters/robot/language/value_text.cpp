#include "robot/language/value_text.h"

#include <charconv>

#include "platform/values/calendar.h"
#include "platform/values/convert.h"
#include "platform/values/text.h"

namespace robot {

using platform::Value;
using platform::ValueKind;

std::string TextOf(const Value& value) {
  switch (value.Kind()) {
    case ValueKind::Empty:
      return "";
    case ValueKind::Null:
      return "Null";
    case ValueKind::Date:
      return platform::ShortDate(value.As<platform::Date>());
    default:
      return platform::CStr(value);
  }
}

bool MatchesPattern(std::string_view text, std::string_view pattern) {
  const std::u32string t = platform::ToCodePoints(text);
  const std::u32string p = platform::ToCodePoints(pattern);
  std::size_t ti = 0;
  std::size_t pi = 0;
  std::size_t star = std::u32string::npos;
  std::size_t mark = 0;
  while (ti < t.size()) {
    if (pi < p.size() && p[pi] == U'*') {
      star = pi++;
      mark = ti;
    } else if (pi < p.size() && (p[pi] == U'?' || p[pi] == t[ti])) {
      ++pi;
      ++ti;
    } else if (star != std::u32string::npos) {
      pi = star + 1;
      ti = ++mark;
    } else {
      return false;
    }
  }
  while (pi < p.size() && p[pi] == U'*') ++pi;
  return pi == p.size();
}

bool PlainNumber(const std::string& text, double& number) {
  if (text.empty() || text.find_first_not_of("-.0123456789") != std::string::npos) return false;
  const auto [end, mistake] = std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
  return mistake == std::errc{} && end == text.data() + text.size();
}

bool MeetsText(const std::string& actual, const Word& expected) {
  return expected.pattern ? MatchesPattern(actual, expected.text) : actual == expected.text;
}

bool Meets(const Value& actual, const Word& expected) {
  double wanted = 0;
  const bool number = actual.IsNumber() && actual.Kind() != ValueKind::Boolean;
  if (number && !expected.pattern && PlainNumber(expected.text, wanted)) return platform::CDbl(actual) == wanted;
  return MeetsText(TextOf(actual), expected);
}

std::string Wanted(const Word& expected) { return (expected.pattern ? "like " : "") + Quoted(expected.text); }

std::string Shown(const Value& actual) { return actual.IsText() || actual.IsEmpty() ? Quoted(TextOf(actual)) : TextOf(actual); }

std::string ShownList(const std::vector<std::string>& texts) {
  if (texts.empty()) return "nothing";
  std::string list;
  for (const std::string& text : texts) list += (list.empty() ? "" : " ") + Quoted(text);
  return list;
}

std::string WantedList(const std::vector<Word>& words) {
  if (words.empty()) return "nothing";
  std::string list;
  for (const Word& word : words) list += (list.empty() ? "" : " ") + Wanted(word);
  return list;
}

}  // namespace robot
