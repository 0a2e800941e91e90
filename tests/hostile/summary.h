#pragma once

#include <map>
#include <set>
#include <string>

namespace hostile {

/// What all cases came to.
struct Summary {
  int procedures = 0;
  int withoutYields = 0;
  int yields = 0;   ///< of all procedures that ran through
  int cases = 0;    ///< that were run, those that ran through without interruption among them
  int refused = 0;  ///< where the screen refused the act
  int crashes = 0;
  std::set<std::string> faulty;      ///< the cases with faults
  std::map<std::string, int> notes;  ///< reports and unhandled errors

  bool Clean() const { return crashes == 0 && faulty.empty(); }
};

/// The last line, and the notes when they are wanted.
void Tell(const Summary& summary, bool notes, double seconds);

}  // namespace hostile
