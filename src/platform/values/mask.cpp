#include "platform/values/mask.h"

#include <algorithm>
#include <optional>

#include "platform/values/text.h"

namespace platform {
namespace {

bool IsPlace(char32_t character) { return character == U'%' || character == U'_'; }
bool IsDigit(char32_t character) { return character >= U'0' && character <= U'9'; }

std::size_t PlacesIn(std::u32string_view mask) { return static_cast<std::size_t>(std::count_if(mask.begin(), mask.end(), IsPlace)); }

/// How many characters of the mask a raw text of `filled` characters shows: up to its last place, and what follows the
/// mask's last place once that is filled.
std::size_t ShownOf(std::u32string_view mask, std::size_t filled) {
  if (filled == 0) return 0;
  if (filled >= PlacesIn(mask)) return mask.size();
  std::size_t shown = 0;
  for (std::size_t places = 0; places < filled; ++shown)
    if (IsPlace(mask[shown])) ++places;
  return shown;
}

/// How many characters the text may have in all; nothing when there is no bound.
std::optional<std::size_t> Limit(std::u32string_view mask, std::size_t maxLength) {
  std::optional<std::size_t> limit;
  if (!mask.empty()) limit = PlacesIn(mask);
  if (maxLength > 0) limit = std::min(maxLength, limit.value_or(maxLength));
  return limit;
}

struct Parts {
  std::u32string front;
  std::u32string back;
  std::size_t selected = 0;
};

/// The text without the selection, parted at the caret.
Parts PartsOf(const MaskedText& text, std::size_t selected) {
  const std::u32string raw = ToCodePoints(text.raw);
  const std::size_t start = std::min(text.caret, raw.size());
  const std::size_t count = std::min(selected, raw.size() - start);
  return {raw.substr(0, start), raw.substr(start + count), count};
}

}  // namespace

std::size_t MaskPlaces(std::string_view mask) { return PlacesIn(ToCodePoints(mask)); }

std::string MaskDisplay(std::string_view mask, std::string_view raw) {
  if (mask.empty()) return std::string(raw);
  const std::u32string characters = ToCodePoints(raw);
  std::u32string display = ToCodePoints(mask);
  display.resize(ShownOf(display, characters.size()));
  auto next = characters.begin();
  for (char32_t& character : display)
    if (IsPlace(character)) character = *next++;
  return FromCodePoints(display);
}

namespace {

/// Where each byte is a character, and no mask asks more of them.
MaskedText InsertPlain(const MaskedText& before, std::size_t selected, std::string_view typed, std::size_t maxLength) {
  const std::size_t start = std::min(before.caret, before.raw.size());
  const std::size_t replaced = std::min(selected, before.raw.size() - start);
  const std::size_t kept = before.raw.size() - replaced;
  if (maxLength > 0) typed = typed.substr(0, maxLength - std::min(maxLength, kept));
  if (typed.empty()) return before;
  MaskedText after{before.raw, start + typed.size()};
  after.raw.replace(start, replaced, typed);
  return after;
}

}  // namespace

MaskedText MaskInsert(std::string_view mask, const MaskedText& before, std::size_t selected, std::string_view typed,
                      std::size_t maxLength) {
  if (mask.empty() && IsAscii(before.raw) && IsAscii(typed) && typed.find('\0') == std::string_view::npos)
    return InsertPlain(before, selected, typed, maxLength);
  Parts parts = PartsOf(before, selected);
  std::u32string accepted = ToCodePoints(typed);
  if (!mask.empty()) std::erase_if(accepted, [](char32_t c) { return !IsDigit(c); });
  if (const auto limit = Limit(ToCodePoints(mask), maxLength)) {
    const std::size_t kept = parts.front.size() + parts.back.size();
    accepted.resize(std::min(accepted.size(), *limit - std::min(*limit, kept)));
  }
  if (accepted.empty()) return before;

  // A mark that is typed behind its letter becomes one character with it.
  const std::string front = NormaliseLossy(FromCodePoints(parts.front + accepted));
  return {NormaliseLossy(front + FromCodePoints(parts.back)), CharacterCount(front)};
}

MaskedText MaskBackspace(const MaskedText& before, std::size_t selected) {
  Parts parts = PartsOf(before, selected);
  if (parts.selected == 0 && !parts.front.empty()) parts.front.pop_back();
  return {FromCodePoints(parts.front + parts.back), parts.front.size()};
}

MaskedText MaskDelete(const MaskedText& before, std::size_t selected) {
  Parts parts = PartsOf(before, selected);
  if (parts.selected == 0 && !parts.back.empty()) parts.back.erase(0, 1);
  return {FromCodePoints(parts.front + parts.back), parts.front.size()};
}

std::size_t MaskDisplayCaret(std::string_view mask, std::size_t rawCaret) {
  return mask.empty() ? rawCaret : ShownOf(ToCodePoints(mask), rawCaret);
}

std::size_t MaskRawCaret(std::string_view mask, std::size_t displayCaret) {
  if (mask.empty()) return displayCaret;
  const std::u32string characters = ToCodePoints(mask);
  return PlacesIn(std::u32string_view(characters).substr(0, displayCaret));
}

}  // namespace platform
