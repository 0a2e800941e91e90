#include "streets/geocoder/known_areas.h"

#include "streets/address/place_key.h"

namespace streets {

const KnownArea* KnownAreas::Find(const std::string& zip) {
  auto found = areas_.find(zip);
  if (found == areas_.end()) {
    std::optional<KnownArea> known;
    if (auto area = zip.empty() ? std::nullopt : index_.Zip(zip)) {
      const std::string key = PlaceKey(area->city);
      known = KnownArea{std::move(*area), key};
    }
    found = areas_.emplace(zip, std::move(known)).first;
  }
  return found->second ? &*found->second : nullptr;
}

}  // namespace streets
