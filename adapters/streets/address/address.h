#pragma once

#include <string>
#include <vector>

#include "streets/address/zip_text.h"

namespace streets {

/// The parts of "Addr1,City,State,Zip", any of which may be missing.
struct Address {
  std::vector<std::string> street;  ///< the street line's words without parts of buildings; empty: there is no street line
  bool noStreet = false;            ///< the line names no street, as a post office box doesn't
  std::vector<std::string> city;    ///< words of the town
  std::string state;                ///< two letters
  WrittenZip zip;
  /// `street` alone stands there: it can be the town, and where it is a street its last words can be the town's.
  bool streetMayBeCity = false;

  bool HasStreetLine() const { return noStreet || !street.empty(); }
};

/// The parts from the right: ZIP, state by code or name, town, and the rest is the street line, which may hold commas. Any bytes are
/// taken; the time grows with the text's length and no more.
Address ParseAddress(const std::string& text);

}  // namespace streets
