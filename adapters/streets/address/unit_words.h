#pragma once

#include <string>
#include <vector>

namespace streets {

/// Whether the words name a part of a building and nothing else: "APT 5", "# 12", "SUITE B".
bool IsOnlyUnit(const std::vector<std::string>& words);

/// The street line without the part of a building at its end: "100 MAIN ST" of "100 MAIN ST APT 5", "# 5", "3RD FL", "REAR".
/// Words that are the street's own name stay: "100 FRONT ST", "12 PIER 5".
void CutUnit(std::vector<std::string>& words);

/// Whether the line names no street that can be found: a post office box, a rural route with its box, general delivery.
bool NamesNoStreet(const std::vector<std::string>& words);

/// A post office box behind a street is cut off: "100 MAIN ST PO BOX 5".
void CutBox(std::vector<std::string>& words);

}  // namespace streets
