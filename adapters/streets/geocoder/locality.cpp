#include "streets/geocoder/locality.h"

#include <algorithm>
#include <set>
#include <utility>

#include "streets/address/place_key.h"
#include "streets/address/words.h"
#include "streets/geocoder/penalties.h"

namespace streets {

namespace {

/// More ZIPs than any town or county has.
constexpr std::size_t kMostZips = 500;

}  // namespace

Locality::Locality(StreetIndex& index, KnownAreas& areas, const Address& address)
    : index_(index),
      areas_(areas),
      zip_(address.zip.zip),
      townKey_(PlaceKey(Join(address.city))),
      state_(address.state),
      area_(areas.Find(address.zip.zip)) {}

const std::vector<Place>& Locality::Towns() {
  if (!towns_) towns_ = NamesTown() ? index_.Places(townKey_, state_) : std::vector<Place>();
  return *towns_;
}

const std::vector<std::string>& Locality::TownZips() {
  if (townZips_) return *townZips_;
  townZips_.emplace();
  for (const Place& town : Towns())
    for (const std::string& zip : town.zips)
      if (zip != zip_ && townZips_->size() < kMostZips) townZips_->push_back(zip);
  std::sort(townZips_->begin(), townZips_->end());
  townZips_->erase(std::unique(townZips_->begin(), townZips_->end()), townZips_->end());
  return *townZips_;
}

const std::vector<std::string>& Locality::CountyZips() {
  if (countyZips_) return *countyZips_;
  std::set<std::pair<std::string, std::string>> counties;
  const auto addCounty = [&](const ZipArea& area) { counties.emplace(area.state, area.county); };
  if (area_ != nullptr) addCounty(area_->area);
  for (const std::string& zip : TownZips())
    if (const KnownArea* known = areas_.Find(zip)) addCounty(known->area);
  countyZips_.emplace();
  for (const auto& county : counties) {
    if (county.second.empty()) continue;
    for (const std::string& zip : index_.ZipsOfCounty(county.first, county.second)) {
      const bool isOther = zip != zip_ && !std::binary_search(TownZips().begin(), TownZips().end(), zip);
      if (isOther && countyZips_->size() < kMostZips) countyZips_->push_back(zip);
    }
  }
  return *countyZips_;
}

bool Locality::IsKnown() { return (area_ != nullptr && IsInState(zip_)) || !Towns().empty(); }

int Locality::Penalty(const std::string& zip) {
  const int state = IsInState(zip) ? 0 : penalty::kOtherState;
  if (zip.empty()) return NamesZip() || NamesTown() ? penalty::kUnknownPlace : 0;
  if (zip == zip_) return state + (NamesTown() && !IsInTown(zip) ? penalty::kOtherTown : 0);
  const int otherZip = !NamesZip() ? 0 : area_ == nullptr ? penalty::kUnknownZip : penalty::kOtherZip;
  if (NamesTown()) return state + otherZip + (IsInTown(zip) ? 0 : penalty::kNeighbour);
  return state + otherZip + (NamesZip() ? penalty::kOtherTown : 0);
}

bool Locality::Matches(const std::string& zip) { return !zip.empty() && IsInState(zip) && (zip == zip_ || (NamesTown() && IsInTown(zip))); }

bool Locality::IsInTown(const std::string& zip) {
  const KnownArea* known = areas_.Find(zip);
  if (known != nullptr && known->townKey == townKey_) return true;
  return std::any_of(Towns().begin(), Towns().end(),
                     [&](const Place& town) { return std::find(town.zips.begin(), town.zips.end(), zip) != town.zips.end(); });
}

bool Locality::IsInState(const std::string& zip) {
  if (!NamesState()) return true;
  const KnownArea* known = areas_.Find(zip);
  return known == nullptr || known->area.state == state_;
}

}  // namespace streets
