#pragma once

#include <string>
#include <utility>
#include <vector>

#include "hostile/books.h"
#include "hostile/desk.h"

namespace platform {
class Form;
}

namespace hostile {

/// A setup screen, with what of it differs from the others. The table of them is all that a new one needs.
struct SetupScreenAtWork {
  std::string name;  ///< first word of its procedures
  std::string form;
  void (*open)(const Desk& desk);  ///< the main screen is up
  std::string list;                ///< its grid
  std::string table;
  std::string key;                                           ///< field by which a row is found
  std::string freeRow, usedRow;                              ///< keys of a row that can be deleted and of one that can't
  std::vector<std::pair<std::string, std::string>> entries;  ///< of its card, the needed one first, and what is typed into them
  std::string search = "txtSearch", order = "optOrder(1)";
  int tab = -1;  ///< on which its list stands; -1: the screen has no tabs
};

const std::vector<SetupScreenAtWork>& SetupScreens();

/// What on the standing setup screen does not go together, in sentences.
std::vector<std::string> Mismatches(const SetupScreenAtWork& setup, const platform::Form& screen);

/// Rows of the setup tables that went although nobody was asked about them, in sentences. `asked` are the questions of the case.
std::vector<std::string> Unasked(const Books& before, const Books& after, const std::vector<std::string>& asked);

}  // namespace hostile
