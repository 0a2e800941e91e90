#pragma once

#include <optional>
#include <string>
#include <vector>

#include "streets/address/address.h"
#include "streets/geocoder/known_areas.h"
#include "streets/index/street_index.h"

namespace streets {

/// Where an address says that it lies: what is known of its ZIP, town and state, asked for as it is needed.
class Locality {
 public:
  Locality(StreetIndex& index, KnownAreas& areas, const Address& address);

  bool NamesZip() const { return !zip_.empty(); }
  bool NamesTown() const { return !townKey_.empty(); }
  bool NamesState() const { return !state_.empty(); }
  bool NamesNothing() const { return !NamesZip() && !NamesTown() && !NamesState(); }

  const std::string& ZipAsked() const { return zip_; }
  /// The address's ZIP, where it is known.
  const ZipArea* Zip() const { return area_ == nullptr ? nullptr : &area_->area; }
  /// The towns of that name, in the state where one is named.
  const std::vector<Place>& Towns();
  /// The ZIPs of the towns, without the address's own.
  const std::vector<std::string>& TownZips();
  /// The ZIPs of the counties in which the ZIP and the towns lie, without those of ZIP and towns.
  const std::vector<std::string>& CountyZips();
  /// Whether a ZIP or town is known that lies where the address says.
  bool IsKnown();

  /// What it costs to lie in that ZIP instead; `zip` "" is a place whose ZIP is not known.
  int Penalty(const std::string& zip);
  /// Whether that is the address's ZIP or lies in its town.
  bool Matches(const std::string& zip);
  /// Whether the ZIP lies in the state, where one is named and the ZIP is known.
  bool IsInState(const std::string& zip);

 private:
  bool IsInTown(const std::string& zip);

  StreetIndex& index_;
  KnownAreas& areas_;
  std::string zip_;
  std::string townKey_;
  std::string state_;
  const KnownArea* area_;
  std::optional<std::vector<Place>> towns_;
  std::optional<std::vector<std::string>> townZips_;
  std::optional<std::vector<std::string>> countyZips_;
};

}  // namespace streets
