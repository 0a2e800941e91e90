#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "hostile/acts.h"
#include "hostile/books.h"
#include "hostile/image.h"
#include "hostile/interrupting_front_end.h"
#include "hostile/procedures.h"

namespace hostile {

/// One procedure interrupted by one act at one of its yields.
struct Case {
  const Procedure* procedure = nullptr;
  const Act* act = nullptr;  ///< nullptr: the procedure runs through, and is looked at
  int yield = 0;
  bool live = false;  ///< small lists go through the code for large ones
  bool yes = true;    ///< how questions are answered
};

/// What can be done at the procedure's yields.
const std::vector<Act>& ActsFor(const Procedure& procedure);

/// The words that repeat the case.
std::string Words(const Case& one);

struct Outcome {
  bool performed = false;            ///< the act could be done there
  bool asked = false;                ///< a question was answered
  std::vector<Place> places;         ///< of a procedure that ran through: its yields
  std::optional<Books> before;       ///< of a procedure that ran through: the books when it began
  std::vector<std::string> faults;   ///< what must not be
  std::map<std::string, int> notes;  ///< reports by literal and number, errors that nobody handled
};

/// Runs it in this process on the restored company. `before` are the books when the procedure begins.
Outcome Run(const Image& image, const Case& one, const Books* before);

}  // namespace hostile
