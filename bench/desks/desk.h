#pragma once

#include <string>

#include "desks/clerk.h"

namespace bench::desks {

/// A desk's place in its office: the desks tell that they are ready, and begin together, by files of this folder.
struct Place {
  std::string folder;   ///< the company's
  std::string meeting;  ///< the office's own
  int number = 1;       ///< also the user's
};

std::string BookOf(const std::string& meeting, int desk);
std::string ReadyMark(const std::string& meeting, int desk);
std::string BeginMark(const std::string& meeting);

/// The process of one desk: opens the company, waits for the others, works, leaves its book.
void WorkAtDesk(const Place& place, const Habits& habits);

}  // namespace bench::desks
