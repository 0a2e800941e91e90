#include "engine/sql/date_literal.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "engine/sql/keywords.h"
#include "platform/convert.h"
#include "platform/text.h"

namespace engine::sql {
namespace {

constexpr std::array<std::string_view, 12> months{"january", "february", "march",     "april",   "may",      "june",
                                                  "july",    "august",   "september", "october", "november", "december"};

struct Part {
  enum class Kind { Number, Word, Mark } kind = Kind::Mark;
  int number = 0;
  std::size_t digits = 0;
  std::string word;  // lower case
  char mark = ' ';
};

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

// Numbers, words and marks; blanks only part them. Nothing for a character that no date holds.
std::optional<std::vector<Part>> Split(std::string_view text) {
  std::vector<Part> parts;
  for (std::size_t at = 0; at < text.size();) {
    const char c = text[at];
    const std::size_t begin = at;
    if (c == ' ' || c == '\t') {
      ++at;
    } else if (IsDigit(c)) {
      Part part{.kind = Part::Kind::Number, .word = {}};
      while (at < text.size() && IsDigit(text[at])) ++at;
      part.digits = at - begin;
      if (part.digits > 4) return std::nullopt;
      for (const char digit : text.substr(begin, part.digits)) part.number = part.number * 10 + (digit - '0');
      parts.push_back(part);
    } else if (IsLetter(c)) {
      while (at < text.size() && IsLetter(text[at])) ++at;
      parts.push_back({.kind = Part::Kind::Word, .word = platform::ToLowerAscii(text.substr(begin, at - begin))});
    } else if (c == '/' || c == '-' || c == ',' || c == ':') {
      parts.push_back({.kind = Part::Kind::Mark, .word = {}, .mark = c});
      ++at;
    } else {
      return std::nullopt;
    }
  }
  return parts;
}

// Reads a split literal from left to right.
class Reader {
 public:
  explicit Reader(std::vector<Part> parts) : parts_(std::move(parts)) {}

  std::optional<platform::Date> Run() {
    if (parts_.empty()) return std::nullopt;
    double day = 0;
    if (!AtTime()) {
      const std::optional<platform::Date> date = ReadDay();
      if (!date) return std::nullopt;
      day = date->serial;
    }
    double time = 0;
    if (at_ < parts_.size()) {
      const std::optional<int> seconds = ReadTime();
      if (!seconds || at_ < parts_.size()) return std::nullopt;
      time = *seconds / 86400.0;
    }
    return platform::Date{day < 0 ? day - time : day + time};
  }

 private:
  const Part* Peek(std::size_t ahead = 0) const { return at_ + ahead < parts_.size() ? &parts_[at_ + ahead] : nullptr; }
  bool IsMark(char mark, std::size_t ahead = 0) const {
    const Part* part = Peek(ahead);
    return part != nullptr && part->kind == Part::Kind::Mark && part->mark == mark;
  }
  bool AtTime() const { return IsMark(':', 1); }

  bool SkipMark(char mark) {
    if (!IsMark(mark)) return false;
    ++at_;
    return true;
  }

  std::optional<Part> Number() {
    const Part* part = Peek();
    if (part == nullptr || part->kind != Part::Kind::Number) return std::nullopt;
    ++at_;
    return *part;
  }

  // A month's name, whole or its first three letters or more.
  std::optional<int> Month() {
    const Part* part = Peek();
    if (part == nullptr || part->kind != Part::Kind::Word || part->word.size() < 3) return std::nullopt;
    for (std::size_t i = 0; i < months.size(); ++i) {
      if (months[i].starts_with(part->word)) {
        ++at_;
        return static_cast<int>(i) + 1;
      }
    }
    return std::nullopt;
  }

  static int Year(const Part& part) {
    if (part.digits > 2) return part.number;
    return part.number + (part.number < 30 ? 2000 : 1900);
  }

  std::optional<platform::Date> ReadDay() {
    if (const std::optional<int> month = Month()) return MonthFirst(*month);
    const std::optional<Part> first = Number();
    if (!first) return std::nullopt;
    char mark = ' ';
    if (SkipMark('/'))
      mark = '/';
    else if (SkipMark('-'))
      mark = '-';
    if (const std::optional<int> month = Month()) return DayFirst(first->number, *month, mark);
    if (mark == ' ') return std::nullopt;
    const std::optional<Part> second = Number();
    if (!second || !SkipMark(mark)) return std::nullopt;
    const std::optional<Part> third = Number();
    if (!third) return std::nullopt;
    return Numbers(*first, *second, *third);
  }

  static std::optional<platform::Date> Numbers(const Part& first, const Part& second, const Part& third) {
    if (first.digits > 2) return third.digits > 2 ? std::nullopt : platform::DateSerial(first.number, second.number, third.number);
    if (second.digits > 2) return std::nullopt;
    const int year = Year(third);
    if (first.number > 12) return platform::DateSerial(year, second.number, first.number);
    return platform::DateSerial(year, first.number, second.number);
  }

  std::optional<platform::Date> MonthFirst(int month) {
    const std::optional<Part> day = Number();
    if (!day) return std::nullopt;
    SkipMark(',');
    const std::optional<Part> year = Number();
    if (!year) return std::nullopt;
    return platform::DateSerial(Year(*year), month, day->number);
  }

  std::optional<platform::Date> DayFirst(int day, int month, char mark) {
    if (mark != ' ' ? !SkipMark(mark) : (SkipMark(','), false)) return std::nullopt;
    const std::optional<Part> year = Number();
    if (!year) return std::nullopt;
    return platform::DateSerial(Year(*year), month, day);
  }

  // Seconds since midnight.
  std::optional<int> ReadTime() {
    const std::optional<Part> hour = Number();
    if (!hour || !SkipMark(':')) return std::nullopt;
    const std::optional<Part> minute = Number();
    if (!minute || minute->number > 59) return std::nullopt;
    int second = 0;
    if (SkipMark(':')) {
      const std::optional<Part> read = Number();
      if (!read || read->number > 59) return std::nullopt;
      second = read->number;
    }
    const std::optional<int> hours = Halves(hour->number);
    if (!hours) return std::nullopt;
    return *hours * 3600 + minute->number * 60 + second;
  }

  // The hour of the day, with AM or PM behind it taken into account.
  std::optional<int> Halves(int hour) {
    const Part* half = Peek();
    if (half == nullptr || half->kind != Part::Kind::Word) return hour <= 23 ? std::optional(hour) : std::nullopt;
    const bool morning = half->word == "am" || half->word == "a";
    if ((!morning && half->word != "pm" && half->word != "p") || hour > 12) return std::nullopt;
    ++at_;
    return hour % 12 + (morning ? 0 : 12);
  }

  std::vector<Part> parts_;
  std::size_t at_ = 0;
};

void AppendTwo(std::string& text, int number) {
  if (number < 10) text += '0';
  text += std::to_string(number);
}

}  // namespace

std::optional<platform::Date> ReadDateLiteral(std::string_view text) {
  std::optional<std::vector<Part>> parts = Split(text);
  if (!parts) return std::nullopt;
  return Reader(std::move(*parts)).Run();
}

std::string PrintDateLiteral(platform::Date date) {
  const platform::CalendarDay day = platform::CalendarOf(date);
  std::string text = std::to_string(day.month) + '/' + std::to_string(day.day) + '/' + std::to_string(day.year);
  const int seconds = platform::SecondsOf(date);
  if (seconds == 0) return text;
  text += ' ';
  text += std::to_string(seconds / 3600) + ':';
  AppendTwo(text, seconds / 60 % 60);
  text += ':';
  AppendTwo(text, seconds % 60);
  return text;
}

}  // namespace engine::sql
