#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace streets {

/// The words of an address in capitals. Accents of the western alphabets are dropped and so are points and apostrophes inside a
/// word ("N.W.", "John's"); "#" is a word of its own; "-" and "/" stay between digits ("243-20", "1/2") and part words elsewhere, as
/// everything does that is neither letter nor digit. Letters of other alphabets stay as they are.
std::vector<std::string> Words(std::string_view text);

/// The words with a blank between each two; from the first to before the last given.
std::string Join(const std::vector<std::string>& words, std::size_t first = 0, std::size_t last = std::string::npos);

bool IsDigit(char character);
bool IsLetter(char character);
bool IsNumber(std::string_view word);   ///< digits alone, at least one
bool IsOrdinal(std::string_view word);  ///< "1ST", "23RD"

}  // namespace streets
