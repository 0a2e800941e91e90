#pragma once

namespace desktop {

/// The program that tries a display.
inline constexpr const char* kProbeName = "orcussch-display-probe";
/// The last thing that it says when the display opened.
inline constexpr const char* kProbeOpened = "opened\n";

}  // namespace desktop
