#pragma once

#include <string>
#include <vector>

#include "platform/services/map.h"
#include "streets/address/address.h"
#include "streets/geocoder/candidate.h"
#include "streets/geocoder/known_areas.h"
#include "streets/geocoder/locality.h"
#include "streets/index/street_index.h"

namespace streets {

/// From the text of an address to the places that it may mean. The same text has the same answer as long as the files are the same.
class Geocoder {
 public:
  /// The engine's result bit for a position that is a match for the text.
  static constexpr std::int32_t kMatch = 32;
  static constexpr std::size_t kMostCandidates = 25;

  /// The index must be there as long as this is.
  explicit Geocoder(StreetIndex& index) : index_(index), areas_(index) {}

  /// The candidates of "Addr1,City,State,Zip", best first, and the best one's position. A text without a street line has no candidate
  /// but a position: its ZIP's, else its town's. What can't be found leaves `positionFound` false.
  platform::GeocodeAnswer Find(const std::string& text);

 private:
  platform::GeocodeAnswer AnswerWithoutStreet(const Address& address, Locality& locality);
  std::vector<Candidate> Fallback(Locality& locality);

  StreetIndex& index_;
  KnownAreas areas_;
};

}  // namespace streets
