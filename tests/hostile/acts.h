#pragma once

#include <string>
#include <vector>

#include "hostile/desk.h"

namespace hostile {

/// Something that the user, or the host, does while a procedure is at a yield. Raises robot::ActionFailed when the screen
/// refuses it there. The table is all that a new act needs.
struct Act {
  std::string name;
  bool writes = false;  ///< may change the records of the customer named at that moment
  void (*run)(const Desk& desk) = nullptr;
  bool release = false;  ///< the host calls in to give the session up; `run` is not called
};

/// On the main screen.
const std::vector<Act>& Acts();
/// On a setup screen; `writes`: into its table.
const std::vector<Act>& SetupActs();
/// On the query screen.
const std::vector<Act>& QueryActs();

}  // namespace hostile
