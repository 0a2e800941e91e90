#pragma once

#include <optional>
#include <string>
#include <vector>

namespace streets {

/// A highway with its number: "US HWY" and "89", "CO RD" and "12B".
struct Highway {
  std::string type;
  std::string number;
};

/// The highway that all the words from `first` to before `last` make: "US Hwy 89", "US 89", "State Route 3", "SR 3", "I 90", "Co Rd 12",
/// "CR 12", "Hwy 360", "NFS Rd 211", "FM 1960", "MT 287". Nothing when they make none.
std::optional<Highway> HighwayOf(const std::vector<std::string>& words, std::size_t first, std::size_t last);

}  // namespace streets
