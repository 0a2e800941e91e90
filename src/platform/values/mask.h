#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The edit mask of a text edit. In a mask '%' and '_' take one digit, every other character is a literal that the
/// control shows by itself. An empty mask takes any character. Pure functions on (content, caret): the text edit model
/// keeps the state, a widget shows the answer.
///
/// "Raw" is the text without the literals (a text edit's Text), "display" the text with them (DisplayText). A raw text
/// fills the places from the left; a display shows the literals up to the last place filled, those behind the last place
/// once it is filled, and "" for an empty raw.
struct MaskedText {
  std::string raw;        ///< without literals
  std::size_t caret = 0;  ///< in characters of raw, 0..length
};

/// Number of places that `mask` offers.
std::size_t MaskPlaces(std::string_view mask);
/// `raw` as shown: "612" under "(%%%)" is "(612)", "61" is "(61", "" is "".
std::string MaskDisplay(std::string_view mask, std::string_view raw);
/// The characters of `typed` (a key, a paste, a whole display text with its literals) that fit are put in at the
/// caret over the selection of `selected` characters; what the mask refuses or `maxLength` (0: none) has no room for is
/// passed over. When nothing is left of it, text and selection stay as they are.
MaskedText MaskInsert(std::string_view mask, const MaskedText& before, std::size_t selected, std::string_view typed, std::size_t maxLength);
MaskedText MaskBackspace(const MaskedText& before, std::size_t selected);
MaskedText MaskDelete(const MaskedText& before, std::size_t selected);
/// Caret positions between raw and display, for widgets.
std::size_t MaskDisplayCaret(std::string_view mask, std::size_t rawCaret);
std::size_t MaskRawCaret(std::string_view mask, std::size_t displayCaret);

}  // namespace platform
