#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace streets {

/// How houses are numbered in a street: whether "12-14" is one house, of the kind of "243-20", or those from 12 to 14. That is told by
/// its neighbours: a second number that isn't above the first, or begins with 0, is none of a range.
class NumberStyles {
 public:
  void Count(const std::string& street, const std::string& zip, std::string_view number);
  /// By the street, else by the ZIP.
  bool AreHyphenated(const std::string& street, const std::string& zip) const;

 private:
  struct Tally {
    std::int64_t hyphenated = 0;
    std::int64_t plain = 0;
  };
  void Add(const std::string& key, bool hyphenated);

  std::unordered_map<std::string, Tally> tallies_;
};

}  // namespace streets
