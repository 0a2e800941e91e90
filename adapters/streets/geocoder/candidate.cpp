#include "streets/geocoder/candidate.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>

#include "streets/address/house_number.h"
#include "streets/geocoder/geometry.h"
#include "streets/geocoder/penalties.h"

namespace streets {

namespace {

constexpr double kMile = 5280;
/// Each is compared with each.
constexpr std::ptrdiff_t kMostCompared = 200;

bool LiesAt(const Candidate& left, const Candidate& right) {
  constexpr int kNear = 5;
  const platform::MapPoint one = MapPointOf(left.spot.at);
  const platform::MapPoint other = MapPointOf(right.spot.at);
  return std::abs(one.latitude - other.latitude) <= kNear && std::abs(one.longitude - other.longitude) <= kNear;
}

/// Of ranges that overlap the tighter one is meant. Those of "3rd Ave NE" and "3rd Ave SE" don't, they are two streets; where two towns
/// share a name and a ZIP they lie apart.
bool IsOverruled(const Candidate& wide, const Candidate& tight) {
  return tight.penalty <= wide.penalty && tight.spot.width < wide.spot.width && tight.towards == wide.towards &&
         Feet(tight.spot.at, wide.spot.at) < kMile;
}

std::string LevelText(Level level) {
  switch (level) {
    case Level::OtherSide:
      return " (other side)";
    case Level::NearestNumber:
      return " (nearest number)";
    case Level::Street:
      return " (street)";
    case Level::Zip:
      return " (ZIP area)";
    case Level::Town:
      return " (town)";
    case Level::House:
      break;
  }
  return "";
}

void Append(std::string& text, const std::string& part, const char* between) {
  if (part.empty()) return;
  if (!text.empty()) text += between;
  text += part;
}

}  // namespace

std::vector<Candidate> Ranked(std::vector<Candidate> candidates) {
  const auto rank = [](const Candidate& one) {
    return std::tie(one.penalty, one.fromTown, one.spot.width, one.street, one.spot.zip, one.spot.at.latitude, one.spot.at.longitude);
  };
  std::sort(candidates.begin(), candidates.end(), [&](const Candidate& left, const Candidate& right) { return rank(left) < rank(right); });
  const auto isWorse = [&](const Candidate& one) {
    return one.penalty > candidates.front().penalty + penalty::Margin(candidates.front().penalty);
  };
  candidates.erase(std::find_if(candidates.begin(), candidates.end(), isWorse), candidates.end());
  // A known house leaves no doubt for a street's nearest number.
  if (!candidates.empty() && candidates.front().spot.level == Level::House)
    std::erase_if(candidates,
                  [](const Candidate& one) { return one.spot.level == Level::NearestNumber || one.spot.level == Level::Street; });
  if (candidates.size() > kMostCompared) candidates.erase(candidates.begin() + kMostCompared, candidates.end());
  std::vector<Candidate> kept;
  for (const Candidate& one : candidates) {
    const bool isNew = std::none_of(kept.begin(), kept.end(), [&](const Candidate& other) { return LiesAt(other, one); });
    const bool counts = std::none_of(candidates.begin(), candidates.end(), [&](const Candidate& other) { return IsOverruled(one, other); });
    if (isNew && counts) kept.push_back(one);
  }
  return kept;
}

std::string LineOf(const Candidate& candidate, KnownAreas& areas) {
  std::string address = candidate.spot.number ? ShownNumber(*candidate.spot.number) : "";
  Append(address, candidate.street, " ");
  if (const KnownArea* known = areas.Find(candidate.spot.zip)) {
    Append(address, known->area.city, ", ");
    Append(address, known->area.state, ", ");
  }
  Append(address, candidate.spot.zip, " ");
  const platform::MapPoint at = MapPointOf(candidate.spot.at);
  return std::to_string(at.longitude) + " " + std::to_string(at.latitude) + " " + address + LevelText(candidate.spot.level);
}

}  // namespace streets
