#include <array>
#include <vector>

#include "platform/values/calendar.h"
#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "platform/values/text.h"

namespace platform {
namespace {

constexpr std::array<std::string_view, 12> kMonths = {"january", "february", "march",     "april",   "may",      "june",
                                                      "july",    "august",   "september", "october", "november", "december"};
constexpr std::size_t kAbbreviation = 3;
constexpr std::size_t kMostDigits = 4;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsBlank(char c) { return c == ' ' || c == '\t'; }

/// A number, a word or a single other character; blanks only part them.
struct Token {
  enum class Kind { Number, Word, Mark } kind = Kind::Mark;
  std::string text;  ///< words in lower case
  int number = 0;
  bool blankBefore = false;

  bool Is(char mark) const { return kind == Kind::Mark && text[0] == mark; }
  bool IsHalfOfDay() const { return kind == Kind::Word && (text == "am" || text == "pm"); }
  std::size_t Digits() const { return text.size(); }
};

/// Nothing when a character occurs that no date has, or a number is too long for one.
std::optional<std::vector<Token>> Tokens(std::string_view text) {
  std::vector<Token> tokens;
  bool blank = false;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t start = at;
    if (IsBlank(text[at])) {
      blank = true;
      ++at;
      continue;
    }
    Token token;
    token.blankBefore = blank;
    blank = false;
    if (IsDigit(text[at])) {
      for (; at < text.size() && IsDigit(text[at]); ++at) {
        if (at - start == kMostDigits) return {};
        token.number = token.number * 10 + (text[at] - '0');
      }
      token.kind = Token::Kind::Number;
    } else if (IsLetter(text[at])) {
      while (at < text.size() && IsLetter(text[at])) ++at;
      token.kind = Token::Kind::Word;
    } else if (text[at] == '/' || text[at] == '-' || text[at] == ',' || text[at] == ':') {
      ++at;
    } else {
      return {};
    }
    token.text = ToLowerAscii(text.substr(start, at - start));
    tokens.push_back(std::move(token));
  }
  return tokens;
}

/// What was read of a time: whether there is one, and whether there can be one like it.
struct TimeReading {
  bool present = false;
  bool possible = true;
  int seconds = 0;
};

/// hour ":" minute [":" second] ["AM"|"PM"], or hour "AM"|"PM", at `at`, which moves behind it.
TimeReading ReadTime(const std::vector<Token>& tokens, std::size_t& at) {
  const auto number = [&](std::size_t i) { return i < tokens.size() && tokens[i].kind == Token::Kind::Number; };
  const auto colon = [&](std::size_t i) { return i < tokens.size() && tokens[i].Is(':'); };
  const auto half = [&](std::size_t i) { return i < tokens.size() && tokens[i].IsHalfOfDay(); };
  if (!number(at) || !(colon(at + 1) || half(at + 1))) return {};

  TimeReading time{true, true, 0};
  int parts[3] = {tokens[at++].number, 0, 0};
  for (int part = 1; part < 3 && colon(at); ++part) {
    if (!number(at + 1) || tokens[at + 1].Digits() > 2) return {true, false, 0};
    parts[part] = tokens[at + 1].number;
    at += 2;
  }
  auto& [hour, minute, second] = parts;
  time.possible = hour < 24 && minute < 60 && second < 60;
  if (half(at)) {
    const bool afternoon = tokens[at++].text[0] == 'p';
    if (hour > 12) time.possible = false;
    if (afternoon && hour < 12)
      hour += 12;
    else if (!afternoon && hour == 12)
      hour = 0;
  }
  time.seconds = (hour * 60 + minute) * 60 + second;
  return time;
}

int MonthOf(std::string_view word) {
  for (std::size_t month = 0; month < kMonths.size(); ++month)
    if (word == kMonths[month] || word == kMonths[month].substr(0, kAbbreviation)) return static_cast<int>(month) + 1;
  return 0;
}

/// One part of the date: a number or a month's name.
struct Part {
  int number = 0;
  std::size_t digits = 0;
  bool isMonth = false;

  bool IsLongYear() const { return !isMonth && digits > 2; }
};

int YearOf(const Part& part) {
  if (part.IsLongYear()) return part.number;
  return part.number + (part.number < 30 ? 2000 : 1900);
}

std::optional<Date> DateOf(const Part& year, const Part& month, const Part& day) {
  if (month.IsLongYear() || day.IsLongYear() || day.isMonth || year.isMonth) return {};
  return DateSerial(YearOf(year), month.number, day.number);
}

std::optional<Date> ThreeParts(const Part& a, const Part& b, const Part& c) {
  if (c.isMonth) return {};
  if (a.isMonth) {
    if (auto date = DateOf(c, a, b)) return date;
    return DateOf(b, a, c);
  }
  if (b.isMonth) {
    if (auto date = DateOf(c, b, a)) return date;
    return DateOf(a, b, c);
  }
  if (auto date = DateOf(c, a, b)) return date;
  if (auto date = DateOf(a, b, c)) return date;
  return DateOf(c, b, a);
}

/// Month and day of this year, if there is one, or a month and a year of at least three digits.
std::optional<Date> TwoParts(const Part& a, const Part& b, int thisYear) {
  const Part firstDay{1, 1, false};
  if (b.IsLongYear()) return DateOf(b, a, firstDay);
  if (a.IsLongYear()) return DateOf(a, b, firstDay);
  if (thisYear == 0) return {};
  const Part year{thisYear, 4, false};
  if (!b.isMonth)
    if (auto date = DateOf(year, a, b)) return date;
  return a.isMonth ? std::nullopt : DateOf(year, b, a);
}

/// The parts in their order; nothing unless exactly one separator, or a blank, stands between two of them ("Jan 31, 1999"
/// has a blank behind its comma).
std::optional<std::vector<Part>> DateParts(const std::vector<Token>& tokens, std::size_t from, std::size_t to) {
  std::vector<Part> parts;
  bool separated = true;
  for (std::size_t at = from; at < to; ++at) {
    const Token& token = tokens[at];
    if (token.kind == Token::Kind::Mark) {
      if (separated || token.Is(':')) return {};
      separated = true;
      continue;
    }
    if (!separated && !token.blankBefore) return {};
    separated = false;
    const int month = token.kind == Token::Kind::Word ? MonthOf(token.text) : 0;
    if (token.kind == Token::Kind::Word && month == 0) return {};
    parts.push_back(month ? Part{month, 0, true} : Part{token.number, token.Digits(), false});
  }
  if (separated && from != to) return {};
  return parts;
}

}  // namespace

std::optional<Date> ParseDate(std::string_view text, int thisYear) {
  const auto tokens = Tokens(text);
  if (!tokens || tokens->empty()) return {};

  // The time stands in front of the date or behind it; only one of the two places can hold it.
  std::size_t from = 0;
  std::size_t to = tokens->size();
  TimeReading time = ReadTime(*tokens, from);
  for (std::size_t at = from; !time.present && at < tokens->size(); ++at) {
    std::size_t end = at;
    time = ReadTime(*tokens, end);
    if (!time.present) continue;
    if (end != tokens->size()) return {};
    to = at;
  }
  if (!time.possible) return {};

  const auto parts = DateParts(*tokens, from, to);
  if (!parts) return {};
  if (parts->empty()) return time.present ? std::optional(MomentOf(0, time.seconds)) : std::nullopt;
  std::optional<Date> date;
  if (parts->size() == 2) date = TwoParts((*parts)[0], (*parts)[1], thisYear);
  if (parts->size() == 3) date = ThreeParts((*parts)[0], (*parts)[1], (*parts)[2]);
  return date ? std::optional(MomentOf(date->serial, time.seconds)) : std::nullopt;
}

Date CDate(const Value& value, int thisYear) {
  if (value.Kind() == ValueKind::Date) return value.As<Date>();
  if (value.IsText()) {
    const auto date = ParseDate(value.As<std::string>(), thisYear);
    if (!date) throw error::TypeMismatch();
    return *date;
  }
  const double serial = CDbl(value);
  constexpr double kFirst = -657434;  // 1 Jan 100
  constexpr double kAfterLast = 2958466;
  if (!(serial > kFirst - 1 && serial < kAfterLast)) throw error::Overflow();
  return {serial};
}

bool IsDate(const Value& value, int thisYear) {
  if (value.Kind() == ValueKind::Date) return true;
  return value.IsText() && ParseDate(value.As<std::string>(), thisYear).has_value();
}

}  // namespace platform
