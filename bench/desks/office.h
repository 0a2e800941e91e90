#pragma once

#include <string>

#include "desks/clerk.h"

namespace bench::desks {

/// What an office of so many desks did.
struct Day {
  int desks = 0;
  double seconds = 0;
  DayBook book;
  double processor = 0;  ///< share of all processors that the desks' processes took, 0 to 1
  double server = 0;     ///< share that the server's processes for them took
  double machine = 0;    ///< share that was busy at all, with a server's and other programs' work
};

/// Starts the desks, each a process of this program, and waits until they have gone home. `server`: the server's first process, whose work
/// is counted, 0 for none. Throws std::runtime_error when one fails.
Day RunOffice(const std::string& program, const std::string& folder, int desks, const Habits& habits, int server = 0);

std::string TellOf(const Day& day);

}  // namespace bench::desks
