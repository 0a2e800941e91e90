#include "streets/geocoder/geocoder.h"

#include "streets/geocoder/geometry.h"
#include "streets/geocoder/street_search.h"
#include "streets/geocoder/town_teller.h"

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
  const Address address = TownTeller(index_, areas_).Read(text);
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
