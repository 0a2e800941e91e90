#pragma once

#include <limits>
#include <map>
#include <string>
#include <vector>

#include "streets/address/reading.h"
#include "streets/geocoder/candidate.h"
#include "streets/geocoder/locality.h"
#include "streets/index/street_index.h"

namespace streets {

/// The search for the places that a street line may mean: from the likeliest question on, as long as the next one could find
/// something better than what is known.
class StreetSearch {
 public:
  StreetSearch(StreetIndex& index, Locality& locality) : index_(index), locality_(locality) {}

  /// In no order.
  std::vector<Candidate> Find(const std::vector<std::string>& words);

 private:
  enum class Spelling { Same, Similar };
  enum class Where { Zip, Town, County, Anywhere };

  /// A question: names of which spelling are asked for where, and the least that its answers cost.
  struct Stage {
    int least = 0;
    Spelling spelling = Spelling::Same;
    Where where = Where::Zip;
  };

  std::vector<Stage> Stages() const;
  /// The ZIPs that a stage asks for.
  const std::vector<std::string>& ZipsOf(Where where);
  bool HasPlaces(const Stage& stage);
  void Ask(const Stage& stage, const Reading& reading);
  std::vector<StreetName> NamesOf(const Stage& stage, const std::string& key);
  void Take(const Stage& stage, const Reading& reading, const StreetName& street, int namePenalty);
  bool ExistsAnywhere(const std::string& key);
  void MeasureFromTown();
  bool CanBeBetter(int least) const { return least < best_; }

  StreetIndex& index_;
  Locality& locality_;
  std::vector<std::string> zip_;
  std::map<std::string, bool> exists_;
  std::vector<Candidate> found_;
  int best_ = std::numeric_limits<int>::max();
};

}  // namespace streets
