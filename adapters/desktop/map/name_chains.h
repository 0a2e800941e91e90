#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "desktop/map/tile.h"

namespace desktop {

/// Joins the pieces of a street, which the ground gives from crossing to crossing and tiles give twice, into lines that are long
/// enough for its name.
class NameChains {
 public:
  void Add(const NamedLine& line);

  struct Chain {
    platform::MapLine kind;
    std::string name;
    std::vector<PlanePoint> points;
  };
  /// All of them, the most important kind first, then as they were added.
  std::vector<Chain> Join() const;

 private:
  using Place = std::pair<long long, long long>;
  struct Street {
    std::set<std::pair<Place, Place>> known;  ///< each piece, its lower end first
    std::vector<std::pair<Place, Place>> pieces;
  };
  std::map<std::pair<platform::MapLine, std::string>, Street> streets_;
};

}  // namespace desktop
