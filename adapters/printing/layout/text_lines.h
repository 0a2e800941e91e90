#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "printing/layout/page.h"

namespace printing {

/// Texts as lines of a width. Nothing is parted inside of what is read as one character: a letter and its accents, an emoji and
/// what belongs to it.

/// Where the character that begins at `offset` ends.
std::size_t EndOfCharacter(std::string_view text, std::size_t offset);

/// The lines of `text` by its own line ends and by words, each at most `width` ems wide; a longer word is parted. With `most`
/// the last line holds all the rest, however long (0: no limit). At least one line.
std::vector<std::string> WrapText(std::string_view text, double width, const TextStyle& style, const TextMeasure& measure,
                                  std::size_t most);

/// `text` where it is at most `width` ems wide. Otherwise a shorter one with an ellipsis, or for figures, of which a part would be
/// another number, as many "#" as there is room for.
std::string FitText(std::string text, double width, const TextStyle& style, const TextMeasure& measure, bool figures);

/// A text as it is printed: control characters as blanks, line ends as "\n" or, for one line, as blanks too. The mark of the page
/// count stays where it `mayCount`.
std::string CleanText(std::string_view text, bool oneLine, bool mayCount);

}  // namespace printing
