#pragma once

#include <string>

#include "streets/address/address.h"
#include "streets/geocoder/known_areas.h"
#include "streets/index/street_index.h"

namespace streets {

/// Reads addresses, with what is known of towns and streets where the text alone doesn't tell its parts.
class TownTeller {
 public:
  /// Index and areas must be there as long as this is.
  TownTeller(StreetIndex& index, KnownAreas& areas) : index_(index), areas_(areas) {}

  /// The parts of "Addr1,City,State,Zip". "Springfield" is the town where there is one, and of "100 Main St Springfield" the last word
  /// is.
  Address Read(const std::string& text);

 private:
  void TellTownFromStreet(Address& address);
  bool IsTown(const std::string& key, const Address& address);
  bool NamesStreet(const Address& address);

  StreetIndex& index_;
  KnownAreas& areas_;
};

}  // namespace streets
