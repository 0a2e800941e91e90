#include <algorithm>

#include "platform/values/format_section.h"
#include "platform/values/text.h"
#include "platform/values/unicode.h"

namespace platform {
namespace {

bool IsPlace(const FormatItem& item) { return item.Is(U'@') || item.Is(U'&'); }

bool Has(const FormatSection& section, char32_t meaning) {
  return std::any_of(section.begin(), section.end(), [&](const FormatItem& item) { return item.Is(meaning); });
}

std::u32string InCase(const FormatSection& section, std::u32string text) {
  if (Has(section, U'<')) std::transform(text.begin(), text.end(), text.begin(), LowerOf);
  if (Has(section, U'>')) std::transform(text.begin(), text.end(), text.begin(), UpperOf);
  return text;
}

/// What each place takes. From the right, the first place takes the surplus as well; from the left ("!"), the last.
std::vector<std::u32string> Filled(const FormatSection& section, std::u32string_view text) {
  const auto places = static_cast<std::size_t>(std::count_if(section.begin(), section.end(), IsPlace));
  const bool fromLeft = Has(section, U'!');
  std::vector<std::u32string> filled(places);
  if (places == 0) return filled;
  const std::size_t surplus = text.size() > places ? text.size() - places : 0;
  const std::size_t vacant = places > text.size() && !fromLeft ? places - text.size() : 0;
  std::size_t at = 0;
  for (std::size_t place = vacant; place < places && at < text.size(); ++place) {
    const bool takesSurplus = place == (fromLeft ? places - 1 : 0);
    const std::size_t count = 1 + (takesSurplus ? surplus : 0);
    filled[place] = text.substr(at, count);
    at += count;
  }
  return filled;
}

}  // namespace

std::string FormatText(std::string_view text, const FormatSection& section) {
  const std::u32string shown = InCase(section, ToCodePoints(text));
  const auto filled = Filled(section, shown);
  std::u32string out;
  std::size_t place = 0;
  for (const FormatItem& item : section) {
    if (IsPlace(item)) {
      const std::u32string& taken = filled[place++];
      out += taken.empty() && item.Is(U'@') ? U" " : taken;
    } else if (!item.Is(U'<') && !item.Is(U'>') && !item.Is(U'!')) {
      out += item.character;
    }
  }
  if (filled.empty()) out += shown;
  return FromCodePoints(out);
}

}  // namespace platform
