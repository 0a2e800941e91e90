#include "streets/import/base/zip_areas.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <numbers>
#include <optional>
#include <utility>

namespace streets {
namespace {

constexpr double kOneIsWrong = 50;     // kilometres between two positions of one ZIP
constexpr double kNextTown = 40;       // kilometres between two towns of one name

// Which of two positions has what is asked; nothing when both have it or neither.
template <typename Has>
std::optional<Position> OnlyOne(const Position& left, const Position& right, const Has& has) {
  const bool first = has(left);
  if (first == has(right)) return {};
  return first ? left : right;
}

class ZipBelief {
 public:
  ZipBelief(const ZipPoints& points, const PostOffices& offices, const Outlines& outlines)
      : points_(points), offices_(offices), outlines_(outlines) {
    for (const Outline& state : outlines.states) states_[std::string(StateOfNumber(state.code))] = &state;
    for (const Outline& county : outlines.counties) counties_[county.code] = &county;
  }

  std::vector<ZipArea> All() const {
    std::vector<ZipArea> zips;
    for (const auto& point : points_) zips.push_back(OfPoint(point.first, point.second));
    for (const auto& office : offices_)
      if (!points_.contains(office.first)) zips.push_back(OfOffice(office.first, office.second));
    std::ranges::sort(zips, {}, &ZipArea::zip);
    return zips;
  }

 private:
  ZipArea OfPoint(const std::string& zip, const Position& point) const {
    const auto office = offices_.find(zip);
    if (office == offices_.end()) return Unnamed(zip, point);
    return Named(zip, office->second, Believed(zip, point, office->second));
  }

  ZipArea Unnamed(const std::string& zip, const Position& point) const {
    const auto holding = [&](const std::vector<Outline>& outlines) -> const Outline* {
      const auto found = std::ranges::find_if(outlines, [&](const Outline& each) { return each.Holds(point); });
      return found == outlines.end() ? nullptr : &*found;
    };
    const Outline* state = holding(outlines_.states);
    const Outline* county = holding(outlines_.counties);
    return {zip, point, "", state ? std::string(StateOfNumber(state->code)) : "", county ? county->name : ""};
  }

  // The forces' offices have no state but its letters behind their name: "APO AE".
  static ZipArea Named(const std::string& zip, const PostOffice& office, const Position& at) {
    if (!office.state.empty()) return {zip, at, office.city, office.state, office.county};
    const std::size_t gap = office.city.rfind(' ');
    if (gap == std::string::npos || office.city.size() != gap + 3) return {zip, at, office.city, "", ""};
    return {zip, at, office.city.substr(0, gap), office.city.substr(gap + 1), ""};
  }

  Position Believed(const std::string& zip, const Position& point, const PostOffice& office) const {
    if (Kilometres(point, office.at) <= kOneIsWrong) return point;
    if (const auto one = OnlyOne(point, office.at, [&](const Position& at) { return InState(office, at); })) return *one;
    if (const auto one = OnlyOne(point, office.at, [&](const Position& at) { return InCounty(office, at); })) return *one;
    return ToNeighbour(zip, office.at) < ToNeighbour(zip, point) ? office.at : point;
  }

  bool InState(const PostOffice& office, const Position& at) const {
    const auto state = states_.find(office.state);
    return state != states_.end() && state->second->Holds(at);
  }

  bool InCounty(const PostOffice& office, const Position& at) const {
    const auto state = states_.find(office.state);
    if (state == states_.end()) return false;
    const auto county = counties_.find(state->second->code + office.countyCode);
    return county != counties_.end() && county->second->Holds(at);
  }

  double ToNeighbour(const std::string& zip, const Position& at) const {
    double nearest = std::numeric_limits<double>::max();
    const std::string region = zip.substr(0, 3);
    for (auto other = points_.lower_bound(region); other != points_.end() && other->first.starts_with(region); ++other)
      if (other->first != zip) nearest = std::min(nearest, Kilometres(at, other->second));
    return nearest;
  }

  ZipArea OfOffice(const std::string& zip, const PostOffice& office) const {
    if (!states_.contains(office.state) || InState(office, office.at)) return Named(zip, office, office.at);
    return Named(zip, office, TownOf(zip, office).value_or(office.at));
  }

  // Of the town's ZIPs that have an area in the state, the one with the nearest number.
  std::optional<Position> TownOf(const std::string& zip, const PostOffice& office) const {
    std::optional<Position> at;
    int nearest = std::numeric_limits<int>::max();
    for (const auto& other : offices_) {
      if (other.second.city != office.city || other.second.state != office.state) continue;
      const auto point = points_.find(other.first);
      if (point == points_.end() || !InState(office, point->second)) continue;
      const int away = std::abs(std::stoi(other.first) - std::stoi(zip));
      if (away < nearest) at = point->second;
      nearest = std::min(nearest, away);
    }
    return at;
  }

  const ZipPoints& points_;
  const PostOffices& offices_;
  const Outlines& outlines_;
  std::map<std::string, const Outline*> states_;
  std::map<std::string, const Outline*> counties_;
};

// The group's member that is nearest to its middle.
Position MiddleOf(const std::vector<const ZipArea*>& group) {
  double east = 0;
  double north = 0;
  for (const ZipArea* zip : group) {
    east += zip->at.longitude;
    north += zip->at.latitude;
  }
  const auto share = [&](double sum) { return static_cast<std::int32_t>(std::lround(sum / static_cast<double>(group.size()))); };
  const Position middle{share(east), share(north)};
  return (*std::ranges::min_element(group, {}, [&](const ZipArea* zip) { return Kilometres(middle, zip->at); }))->at;
}

// Splits ZIPs of one name into those that lie near one another: each joins the groups of all that are near, which become one.
std::vector<std::vector<const ZipArea*>> Near(const std::vector<const ZipArea*>& zips) {
  std::vector<std::vector<const ZipArea*>> groups;
  for (const ZipArea* zip : zips) {
    std::vector<const ZipArea*> joined{zip};
    std::erase_if(groups, [&](const std::vector<const ZipArea*>& group) {
      const bool near = std::ranges::any_of(group, [&](const ZipArea* other) { return Kilometres(zip->at, other->at) <= kNextTown; });
      if (near) joined.insert(joined.begin(), group.begin(), group.end());
      return near;
    });
    groups.push_back(std::move(joined));
  }
  return groups;
}

}  // namespace

double Kilometres(const Position& from, const Position& to) {
  constexpr double kEarth = 6371.0088;
  constexpr double kRadians = std::numbers::pi / 180e6;
  const double north = std::sin((1.0 * to.latitude - from.latitude) * kRadians / 2);
  const double east = std::sin((1.0 * to.longitude - from.longitude) * kRadians / 2);
  const double squared = north * north + std::cos(from.latitude * kRadians) * std::cos(to.latitude * kRadians) * east * east;
  return 2 * kEarth * std::asin(std::min(1.0, std::sqrt(squared)));
}

std::vector<ZipArea> BelievedZips(const ZipPoints& points, const PostOffices& offices, const Outlines& outlines) {
  return ZipBelief(points, offices, outlines).All();
}

std::vector<Place> PlacesOf(const std::vector<ZipArea>& zips) {
  std::map<std::pair<std::string, std::string>, std::vector<const ZipArea*>> named;
  for (const ZipArea& zip : zips)
    if (!zip.city.empty() && !zip.county.empty()) named[{zip.city, zip.state}].push_back(&zip);
  std::vector<Place> places;
  for (const auto& name : named) {
    for (const auto& group : Near(name.second)) {
      Place place{name.first.first, name.first.second, MiddleOf(group), {}};
      for (const ZipArea* zip : group) place.zips.push_back(zip->zip);
      std::ranges::sort(place.zips);
      places.push_back(std::move(place));
    }
  }
  return places;
}

}  // namespace streets
