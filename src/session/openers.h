#pragma once

namespace orcussch {

/// How the session reaches the screens. They stand above it and use it; it knows of them only these calls.
struct SessionOpeners {
  void (*showMain)() = nullptr;     ///< shows the main screen modally
  void (*giveUpMain)() = nullptr;   ///< gives its instance up, so that the next show makes a fresh one
  void (*showQueries)() = nullptr;  ///< shows the query screen modally; nullptr while there is none
};

/// Filled from above (ConnectScreens).
inline SessionOpeners gSessionOpeners;

}  // namespace orcussch
