#include "printing/layout/text_lines.h"

#include <algorithm>

#include "platform/values/text.h"

namespace printing {

namespace {

constexpr std::string_view kEllipsis = "\xE2\x80\xA6";
/// Lengths that differ by less are the same.
constexpr double kHair = 1e-6;
constexpr char32_t kJoiner = 0x200D;

struct Range {
  char32_t first, last;
};
/// What goes on top of the character before: accents, points, selectors of variants, tones of skin, tags.
constexpr Range kExtenders[] = {{0x300, 0x36F},   {0x483, 0x489},   {0x591, 0x5BD},     {0x610, 0x61A},    {0x64B, 0x65F},
                                {0x670, 0x670},   {0x6D6, 0x6DC},   {0x900, 0x903},     {0x93A, 0x94F},    {0xE31, 0xE31},
                                {0xE34, 0xE3A},   {0xE47, 0xE4E},   {0x1AB0, 0x1AFF},   {0x1DC0, 0x1DFF},  {0x20D0, 0x20FF},
                                {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0x1F3FB, 0x1F3FF}, {0xE0020, 0xE007F}};

bool IsExtender(char32_t c) {
  if (c < kExtenders[0].first) return false;
  return c == kJoiner || std::any_of(std::begin(kExtenders), std::end(kExtenders), [c](Range r) { return c >= r.first && c <= r.last; });
}

bool IsFlagLetter(char32_t c) { return c >= 0x1F1E6 && c <= 0x1F1FF; }

/// The bytes of `text` from `begin` on that are at most `room` wide; at least one character where `atLeastOne`.
std::size_t EndOfRoom(std::string_view text, std::size_t begin, double room, const TextStyle& style, const TextMeasure& measure,
                      bool atLeastOne) {
  std::size_t end = begin;
  double width = 0;
  while (end < text.size()) {
    const std::size_t next = EndOfCharacter(text, end);
    width += measure.Width(text.substr(end, next - end), style);
    if (width > room + kHair && (end > begin || !atLeastOne)) break;
    end = next;
  }
  return end;
}

/// One paragraph; `lines` grows. Stops one line before `most` and gives where it stopped.
std::size_t WrapParagraph(std::string_view text, double width, const TextStyle& style, const TextMeasure& measure, std::size_t most,
                          std::vector<std::string>& lines) {
  const double blank = measure.Width(" ", style);
  std::size_t at = 0;
  do {
    if (most > 0 && lines.size() + 1 >= most) return at;
    const std::size_t begin = at;
    std::size_t end = begin;
    double used = 0;
    while (at < text.size()) {
      std::size_t word = text.find(' ', at);
      if (word == std::string_view::npos) word = text.size();
      const double wide = measure.Width(text.substr(at, word - at), style);
      if (used + wide > width + kHair) break;
      used += wide + blank;
      end = word;
      at = std::min(word + 1, text.size());
      if (word == text.size()) break;
    }
    if (end == begin && at == begin && at < text.size()) at = end = EndOfRoom(text, begin, width, style, measure, true);
    lines.emplace_back(text.substr(begin, end - begin));
  } while (at < text.size());
  return at;
}

}  // namespace

std::size_t EndOfCharacter(std::string_view text, std::size_t offset) {
  const char32_t first = platform::NextCodePoint(text, offset);
  bool joined = false;
  bool flag = IsFlagLetter(first);
  while (offset < text.size() && static_cast<unsigned char>(text[offset]) >= 0x80) {
    std::size_t next = offset;
    const char32_t c = platform::NextCodePoint(text, next);
    if (!joined && !IsExtender(c) && !(flag && IsFlagLetter(c))) break;
    flag = false;
    joined = c == kJoiner;
    offset = next;
  }
  return offset;
}

std::vector<std::string> WrapText(std::string_view text, double width, const TextStyle& style, const TextMeasure& measure,
                                  std::size_t most) {
  while (!text.empty() && text.back() == '\n') text.remove_suffix(1);
  std::vector<std::string> lines;
  std::size_t at = 0;
  for (;;) {
    if (most > 0 && lines.size() + 1 >= most) break;
    const std::size_t end = std::min(text.find('\n', at), text.size());
    const std::size_t stopped = WrapParagraph(text.substr(at, end - at), width, style, measure, most, lines);
    at += stopped;
    if (at < end) break;
    if (end == text.size()) return lines;
    at = end + 1;
  }
  std::string rest(text.substr(at));
  std::replace(rest.begin(), rest.end(), '\n', ' ');
  lines.push_back(std::move(rest));
  return lines;
}

std::string FitText(std::string text, double width, const TextStyle& style, const TextMeasure& measure, bool figures) {
  if (measure.Width(text, style) <= width + kHair) return text;
  if (figures) {
    const double one = measure.Width("#", style);
    return std::string(one > 0 ? static_cast<std::size_t>(std::max(0.0, width) / one) : 0, '#');
  }
  const double room = width - measure.Width(kEllipsis, style);
  if (room < 0) return {};
  text.resize(EndOfRoom(text, 0, room, style, measure, false));
  while (!text.empty() && text.back() == ' ') text.pop_back();
  return text.append(kEllipsis);
}

std::string CleanText(std::string_view text, bool oneLine, bool mayCount) {
  std::string clean(text);
  const auto plain = [](char c) { return static_cast<unsigned char>(c) >= 0x20 && c != 0x7F; };
  if (std::all_of(clean.begin(), clean.end(), plain)) return clean;
  std::size_t to = 0;
  for (std::size_t at = 0; at < clean.size(); ++at) {
    char c = clean[at];
    if (c == '\r' && at + 1 < clean.size() && clean[at + 1] == '\n') continue;
    if (c == '\r') c = '\n';
    if (c == '\n' ? oneLine : !plain(c) && !(mayCount && c == kPageCountMark)) c = ' ';
    clean[to++] = c;
  }
  clean.resize(to);
  return clean;
}

}  // namespace printing
