#include "streets/geocoder/street_search.h"

#include <algorithm>
#include <utility>

#include "streets/address/sound.h"
#include "streets/geocoder/geometry.h"
#include "streets/geocoder/name_match.h"
#include "streets/geocoder/penalties.h"

namespace streets {

namespace {

/// Of names that are spelt otherwise so many are looked at, the nearest first.
constexpr std::ptrdiff_t kMostSimilar = 12;

struct RankedName {
  int penalty;
  StreetName name;
};

/// What the name costs; nothing when it is another one.
std::optional<int> PenaltyOf(const StreetName& asked, const StreetName& street) {
  const auto spelling = SpellingPenalty(asked.key, street.key);
  if (!spelling) return std::nullopt;
  return *spelling + NamePenalty(asked, street);
}

std::vector<RankedName> RankedNames(const StreetName& asked, std::vector<StreetName> names) {
  std::vector<RankedName> ranked;
  for (StreetName& name : names)
    if (const auto penalty = PenaltyOf(asked, name)) ranked.push_back({*penalty, std::move(name)});
  std::stable_sort(ranked.begin(), ranked.end(),
                   [](const RankedName& left, const RankedName& right) { return left.penalty < right.penalty; });
  return ranked;
}

}  // namespace

std::vector<Candidate> StreetSearch::Find(const std::vector<std::string>& words) {
  const Reading plain = PlainReading(words);
  if (plain.street.key.empty()) return {};
  std::optional<std::vector<Reading>> others;  // made when the plain one alone doesn't do
  for (const Stage& stage : Stages()) {
    if (!CanBeBetter(stage.least)) break;
    if (!HasPlaces(stage)) continue;
    Ask(stage, plain);
    if (!CanBeBetter(stage.least + 1)) continue;
    if (!others) others = OtherReadings(words);
    for (const Reading& reading : *others)
      if (CanBeBetter(stage.least + reading.cost)) Ask(stage, reading);
  }
  MeasureFromTown();
  return std::move(found_);
}

std::vector<StreetSearch::Stage> StreetSearch::Stages() const {
  std::vector<Stage> stages;
  const auto add = [&](int least, Where where) {
    stages.push_back({least, Spelling::Same, where});
    stages.push_back({least + penalty::kOneLetter, Spelling::Similar, where});
  };
  const int otherZip = !locality_.NamesZip() ? 0 : locality_.Zip() == nullptr ? penalty::kUnknownZip : penalty::kOtherZip;
  const int neighbour = otherZip + (locality_.NamesTown() ? penalty::kNeighbour : locality_.NamesZip() ? penalty::kOtherTown : 0);
  if (locality_.NamesZip()) add(0, Where::Zip);
  if (locality_.NamesTown()) add(otherZip, Where::Town);
  add(neighbour, Where::County);
  add(neighbour, Where::Anywhere);
  std::stable_sort(stages.begin(), stages.end(), [](const Stage& left, const Stage& right) { return left.least < right.least; });
  return stages;
}

const std::vector<std::string>& StreetSearch::ZipsOf(Where where) {
  static const std::vector<std::string> kNone;
  switch (where) {
    case Where::Zip:
      break;
    case Where::Town:
      return locality_.TownZips();
    case Where::County:
      return locality_.CountyZips();
    case Where::Anywhere:
      return kNone;
  }
  zip_ = {locality_.ZipAsked()};
  return zip_;
}

bool StreetSearch::HasPlaces(const Stage& stage) {
  if (stage.where != Where::Anywhere) return !ZipsOf(stage.where).empty();
  // Anywhere is the state, or all there is where nothing but the street is named.
  return !locality_.IsKnown() && (locality_.NamesState() || locality_.NamesNothing());
}

void StreetSearch::Ask(const Stage& stage, const Reading& reading) {
  std::vector<RankedName> names = RankedNames(reading.street, NamesOf(stage, reading.street.key));
  if (stage.spelling == Spelling::Similar) {
    std::erase_if(names, [&](const RankedName& one) { return one.name.key == reading.street.key; });
    if (std::ssize(names) > kMostSimilar) names.erase(names.begin() + kMostSimilar, names.end());
  }
  for (const RankedName& one : names) Take(stage, reading, one.name, one.penalty);
}

std::vector<StreetName> StreetSearch::NamesOf(const Stage& stage, const std::string& key) {
  const auto& zips = ZipsOf(stage.where);
  if (stage.spelling == Spelling::Same) {
    // Many ZIPs are asked only for a name that there is.
    if (stage.where != Where::Zip && !ExistsAnywhere(key)) return {};
    return index_.Named(key, zips);
  }
  // Anywhere is too much to be read through, but for what sounds alike.
  return stage.where == Where::Anywhere ? index_.Sounding(Soundex(key)) : index_.Beginning(key.front(), zips);
}

void StreetSearch::Take(const Stage& stage, const Reading& reading, const StreetName& street, int namePenalty) {
  const int least = reading.cost + namePenalty;
  const int most = best_ > penalty::kMost ? penalty::kMost : std::min(penalty::kMost, best_ + penalty::Margin(best_));
  if (least > most) return;
  const auto& zips = ZipsOf(stage.where);
  const auto spots = reading.number ? HouseSpots(index_, street.id, *reading.number, zips) : StreetSpots(index_, street.id, zips);
  for (const Spot& spot : spots) {
    // Another name with another number is another address.
    const bool isHeld = spot.level == Level::House || spot.level == Level::OtherSide || !reading.number;
    if (stage.spelling == Spelling::Similar && !isHeld) continue;
    if (stage.where == Where::Anywhere && !locality_.IsInState(spot.zip)) continue;
    Candidate candidate;
    candidate.penalty = least + spot.penalty + locality_.Penalty(spot.zip);
    if (candidate.penalty > penalty::kMost) continue;
    const bool isName = stage.spelling == Spelling::Same && reading.cost < kGuess && !Contradict(reading.street, street);
    candidate.matches = isName && spot.level == Level::House && locality_.Matches(spot.zip);
    candidate.spot = spot;
    candidate.street = street.shown;
    candidate.towards = street.before + street.behind;
    best_ = std::min(best_, candidate.penalty);
    found_.push_back(std::move(candidate));
  }
}

bool StreetSearch::ExistsAnywhere(const std::string& key) {
  const auto found = exists_.find(key);
  if (found != exists_.end()) return found->second;
  const bool exists = !index_.Named(key, {}).empty();
  exists_.emplace(key, exists);
  return exists;
}

void StreetSearch::MeasureFromTown() {
  if (found_.size() < 2) return;
  for (Candidate& candidate : found_)
    for (const Place& town : locality_.Towns()) {
      const double feet = Feet(candidate.spot.at, town.at);
      candidate.fromTown = candidate.fromTown == 0 ? feet : std::min(candidate.fromTown, feet);
    }
}

}  // namespace streets
