#include "streets/geocoder/geocoder.h"

#include <algorithm>
#include <utility>

#include "streets/address/house_number.h"
#include "streets/address/place_key.h"
#include "streets/address/reading.h"
#include "streets/address/words.h"
#include "streets/geocoder/geometry.h"
#include "streets/geocoder/street_search.h"

namespace streets {

namespace {

void SetPosition(platform::GeocodeAnswer& answer, const Position& position) {
  const platform::MapPoint at = MapPointOf(position);
  answer.positionFound = true;
  answer.latitude = at.latitude;
  answer.longitude = at.longitude;
}

Candidate CandidateAt(const Position& at, Level level, const std::string& name, const std::string& zip) {
  Candidate candidate;
  candidate.spot = {at, level, 0, std::nullopt, zip, 0};
  candidate.street = name;
  return candidate;
}

}  // namespace

platform::GeocodeAnswer Geocoder::Find(const std::string& text) {
  const QuestionsTogether together(index_);
  Address address = ParseAddress(text);
  Settle(address);
  Locality locality(index_, areas_, address);
  if (!address.HasStreetLine()) return AnswerWithoutStreet(address, locality);
  std::vector<Candidate> candidates =
      address.noStreet ? std::vector<Candidate>() : Ranked(StreetSearch(index_, locality).Find(address.street));
  if (candidates.empty()) candidates = Fallback(locality);
  if (candidates.size() > kMostCandidates) candidates.resize(kMostCandidates);
  platform::GeocodeAnswer answer;
  if (candidates.empty()) return answer;
  for (const Candidate& candidate : candidates) answer.candidates.push_back(LineOf(candidate, areas_));
  SetPosition(answer, candidates.front().spot.at);
  if (candidates.front().matches) answer.result = kMatch;
  return answer;
}

bool Geocoder::IsTown(const std::string& key, const Address& address) {
  const KnownArea* area = areas_.Find(address.zip.zip);
  if (area != nullptr && area->townKey == key) return true;
  return !index_.Places(key, address.state).empty();
}

void Geocoder::Settle(Address& address) {
  if (!address.streetMayBeCity || address.street.empty()) return;
  auto& words = address.street;
  const auto number = LeadingHouseNumber(words);
  if (!number && IsTown(PlaceKey(Join(words)), address)) {
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

platform::GeocodeAnswer Geocoder::AnswerWithoutStreet(const Address& address, Locality& locality) {
  platform::GeocodeAnswer answer;
  if (const ZipArea* area = locality.Zip()) {
    SetPosition(answer, area->at);
    const bool isAlone = address.city.empty() && address.state.empty();
    if (isAlone && address.zip.whole) answer.result = kMatch;
  } else if (!locality.Towns().empty()) {
    SetPosition(answer, locality.Towns().front().at);
  }
  return answer;
}

std::vector<Candidate> Geocoder::Fallback(Locality& locality) {
  std::vector<Candidate> candidates;
  if (const ZipArea* area = locality.Zip()) {
    candidates.push_back(CandidateAt(area->at, Level::Zip, "", area->zip));
  } else {
    for (const Place& town : locality.Towns()) candidates.push_back(CandidateAt(town.at, Level::Town, town.name + ", " + town.state, ""));
  }
  return candidates;
}

}  // namespace streets
