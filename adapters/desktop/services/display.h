#pragma once

#include <string>
#include <vector>

namespace desktop {

/// Whether the environment names a display at all.
bool DisplayIsNamed();

/// Tries to open the display in a program of its own, which may end as it likes: the toolkit ends the process whose display it
/// can't open. `words` are the words that the toolkit's application object will get. "" when the display opened, else why it
/// did not, in one line.
std::string WhyNoDisplay(const std::vector<std::string>& words);

}  // namespace desktop
