#pragma once

#include <functional>
#include <string>

#include "hostile/image.h"

namespace hostile {

/// How a child process tells its parent what it does: one line each, a letter, a blank and a text.
class Teller {
 public:
  explicit Teller(int pipe) : pipe_(pipe) {}
  /// Written at once, so that it is known after a crash.
  void Tell(char kind, const std::string& text) const;

 private:
  int pipe_;
};

/// How a child ended.
struct Ending {
  bool well = false;
  std::string how;       ///< "signal 11", "status 1", "no end in 120 s"
  std::string messages;  ///< the telling lines of its standard error
};

/// Runs `body` in a process of its own; `onLine` gets each line that it tells.
Ending InProcessOfItsOwn(const Image& image, const std::function<void(const Teller&)>& body,
                         const std::function<void(char kind, const std::string& text)>& onLine);

/// The process is ended when no further call comes for that long: a loop without an end.
void BeginOfCase();

}  // namespace hostile
