#pragma once

#include <map>
#include <string>
#include <string_view>

#include "printing/definition/line_reader.h"
#include "printing/definition/report_definition.h"

namespace printing {

/// Named styles, by their names in small letters.
using Styles = std::map<std::string, TextStyle, std::less<>>;

/// Lengths and places that a page can have, in inches.
inline constexpr double kLongestLength = 200;

/// What stands behind "style".
TextStyle ReadStyle(LineReader& line, const Styles& styles);
/// What stands behind "band".
Band ReadBand(LineReader& line);
/// Whether a line that begins with that word puts something into a band.
bool IsElementWord(std::string_view word);
/// What stands behind that word. `right`: where the right margin is, counted from the left one.
Element ReadElement(LineReader& line, std::string_view word, const Styles& styles, double right);

}  // namespace printing
