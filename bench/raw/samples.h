#pragma once

#include <string>

struct sqlite3;

namespace bench::raw {

/// Values that a company's data hold, found by looking at some rows here and there and by skipping along indexes, so that a company
/// of millions is asked about as quickly as a small one.
struct Samples {
  explicit Samples(sqlite3* db);
  std::string commonArea;  ///< of about 80,000 customers in a million
  std::string rareArea;    ///< the one with the fewest phones
  std::string commonWord;
  std::string rareWord;    ///< the one with the fewest customers, but at least ten
  std::string invoice;     ///< of a customer in the middle of the file
  std::string middleDate;  ///< since which about one half of all were entered, "month/day/year"
};

}  // namespace bench::raw
