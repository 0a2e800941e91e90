#include "streets/geocoder/town_teller.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string_view>
#include <utility>

#include "streets/address/house_number.h"
#include "streets/address/place_key.h"
#include "streets/address/reading.h"
#include "streets/address/words.h"

namespace streets {

Address TownTeller::Read(const std::string& text) {
  Address address = ParseAddress(text);
  TellTownFromStreet(address);
  return address;
}

bool TownTeller::IsTown(const std::string& key, const Address& address) {
  const KnownArea* area = areas_.Find(address.zip.zip);
  if (area != nullptr && area->townKey == key) return true;
  return !index_.Places(key, address.state).empty();
}

/// Whether words without a number, which are no town that is known, are a street and not a town that isn't: by a type that towns don't
/// bear, or because the ZIP has a street of that name.
bool TownTeller::NamesStreet(const Address& address) {
  static constexpr std::string_view kTypes[] = {"ST", "AVE", "RD", "LN", "DR", "BLVD", "CT", "CIR", "WAY", "TRL", "PKWY", "HWY", "RTE"};
  const StreetName name = PlainReading(address.street).street;
  const bool isHighway = name.type.find(' ') != std::string::npos;
  if (isHighway || std::find(std::begin(kTypes), std::end(kTypes), name.type) != std::end(kTypes)) return true;
  return address.zip && !index_.Named(name.key, std::span(&address.zip.zip, 1)).empty();
}

void TownTeller::TellTownFromStreet(Address& address) {
  if (!address.streetMayBeCity || address.street.empty()) return;
  auto& words = address.street;
  const auto number = LeadingHouseNumber(words);
  if (!number && (IsTown(PlaceKey(Join(words)), address) || !NamesStreet(address))) {
    address.city = std::move(words);
    words.clear();
    return;
  }
  // "100 Main St Springfield": the ZIP's own town, or another behind a street with its type.
  if (!address.zip && address.state.empty()) return;
  const KnownArea* area = areas_.Find(address.zip.zip);
  constexpr std::size_t kMostTownWords = 4;
  for (std::size_t count = std::min(kMostTownWords, words.size() - 1); count > 0; --count) {
    const std::size_t split = words.size() - count;
    const std::vector<std::string> line(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(split));
    const std::string key = PlaceKey(Join(words, split));
    const bool isZips = area != nullptr && area->townKey == key && line.size() > (number ? number->words : 0);
    if (!isZips && (PlainReading(line).street.type.empty() || !IsTown(key, address))) continue;
    address.city.assign(words.begin() + static_cast<std::ptrdiff_t>(split), words.end());
    words.resize(split);
    return;
  }
}

}  // namespace streets
