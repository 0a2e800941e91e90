#include "streets/geocoder/house_match.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "streets/geocoder/geometry.h"
#include "streets/geocoder/penalties.h"

namespace streets {

namespace {

/// More places of one number in one street say nothing.
constexpr std::size_t kMostSpots = 100;
/// Of a street's pieces so many are looked at for its middle.
constexpr std::size_t kMostEdges = 200;
/// Numbers of a block or two.
constexpr std::int64_t kNear = 200;

bool FitsParity(Parity parity, std::int64_t number) { return parity == Parity::Both || (parity == Parity::Odd) == (number % 2 != 0); }

std::int64_t Width(const HouseRange& range) { return std::abs(range.to - range.from); }

/// How far the number lies outside; 0 inside.
std::int64_t Outside(const HouseRange& range, std::int64_t number) {
  const auto [least, most] = std::minmax(range.from, range.to);
  return std::max<std::int64_t>({0, least - number, number - most});
}

double PartOf(const HouseRange& range, std::int64_t number) {
  if (range.from == range.to) return 0.5;
  return static_cast<double>(number - range.from) / static_cast<double>(range.to - range.from);
}

std::vector<Spot> PointSpots(StreetIndex& index, std::int64_t street, const HouseNumber& number, std::span<const std::string> zips) {
  std::vector<Spot> spots;
  for (const AddressPoint& point : index.Points(street, zips)) {
    if (point.number.number != number.number || point.number.prefix != number.prefix) continue;
    const int penalty = point.number.suffix == number.suffix ? 0 : penalty::kOtherSuffix;
    spots.push_back({point.at, Level::House, penalty, point.number, point.zip, 0});
  }
  const bool hasExact = std::any_of(spots.begin(), spots.end(), [](const Spot& spot) { return spot.penalty == 0; });
  if (hasExact) std::erase_if(spots, [](const Spot& spot) { return spot.penalty != 0; });
  return spots;
}

class RangeSpots {
 public:
  RangeSpots(StreetIndex& index, const HouseNumber& number, std::vector<HouseRange> ranges)
      : index_(index), number_(number), ranges_(std::move(ranges)) {
    std::erase_if(ranges_, [&](const HouseRange& range) { return range.prefix != number.prefix; });
  }

  std::vector<Spot> Find() {
    for (const HouseRange& range : ranges_)
      if (Outside(range, number_.number) == 0 && FitsParity(range.parity, number_.number))
        Add(range, number_.number, Level::House, 0, false);
    if (!spots_.empty()) return std::move(spots_);
    for (const HouseRange& range : ranges_)
      if (Outside(range, number_.number) == 0) Add(range, number_.number, Level::OtherSide, penalty::kOtherSide, true);
    if (!spots_.empty()) return std::move(spots_);
    AddNearest();
    return std::move(spots_);
  }

 private:
  /// The ends that come nearest, of the sides that fit before the others.
  void AddNearest() {
    const auto rank = [&](const HouseRange& range) {
      return std::pair(Outside(range, number_.number), !FitsParity(range.parity, number_.number));
    };
    const auto nearest =
        std::min_element(ranges_.begin(), ranges_.end(), [&](const auto& left, const auto& right) { return rank(left) < rank(right); });
    if (nearest == ranges_.end()) return;
    const auto best = rank(*nearest);
    const int penalty = best.first <= kNear ? penalty::kNumberNear : penalty::kNumberFar;
    for (const HouseRange& range : ranges_) {
      if (rank(range) != best) continue;
      const auto [least, most] = std::minmax(range.from, range.to);
      Add(range, number_.number < least ? least : most, Level::NearestNumber, penalty, false);
    }
  }

  void Add(const HouseRange& range, std::int64_t number, Level level, int penalty, bool across) {
    if (spots_.size() >= kMostSpots) return;
    const Side side = range.right != across ? Side::Right : Side::Left;
    const auto at = BesideLine(index_.Shape(range.edge), PartOf(range, number), side);
    if (at) spots_.push_back({*at, level, penalty, number_, range.zip, Width(range)});
  }

  StreetIndex& index_;
  const HouseNumber& number_;
  std::vector<HouseRange> ranges_;
  std::vector<Spot> spots_;
};

/// The middle of the piece that lies nearest to the middle of all.
std::optional<Position> MiddleOfStreet(StreetIndex& index, std::int64_t street, std::span<const std::string> zips) {
  std::vector<std::int64_t> edges = index.Edges(street, zips);
  if (edges.size() > kMostEdges) edges.resize(kMostEdges);
  std::vector<Position> middles;
  std::int64_t longitudes = 0;
  std::int64_t latitudes = 0;
  for (const std::int64_t edge : edges) {
    const auto middle = MiddleOf(index.Shape(edge));
    if (!middle) continue;
    middles.push_back(*middle);
    longitudes += middle->longitude;
    latitudes += middle->latitude;
  }
  if (middles.empty()) return std::nullopt;
  const auto count = static_cast<std::int64_t>(middles.size());
  const Position centre{static_cast<std::int32_t>(longitudes / count), static_cast<std::int32_t>(latitudes / count)};
  return *std::min_element(middles.begin(), middles.end(),
                           [&](const Position& left, const Position& right) { return Feet(left, centre) < Feet(right, centre); });
}

}  // namespace

std::vector<Spot> HouseSpots(StreetIndex& index, std::int64_t street, const HouseNumber& number, std::span<const std::string> zips) {
  std::vector<Spot> spots = PointSpots(index, street, number, zips);
  if (spots.empty()) spots = RangeSpots(index, number, index.Ranges(street, zips)).Find();
  if (!spots.empty()) return spots;
  spots = StreetSpots(index, street, zips);
  for (Spot& spot : spots) spot.penalty += penalty::kNoNumbers;
  return spots;
}

std::vector<Spot> StreetSpots(StreetIndex& index, std::int64_t street, std::span<const std::string> zips) {
  constexpr std::size_t kMostZips = 25;
  std::vector<std::string> known(zips.begin(), zips.end());
  if (known.size() != 1) {
    // Of many ZIPs those that the street has numbers in.
    known.clear();
    for (const HouseRange& range : index.Ranges(street, zips)) known.push_back(range.zip);
    for (const AddressPoint& point : index.Points(street, zips)) known.push_back(point.zip);
    std::sort(known.begin(), known.end());
    known.erase(std::unique(known.begin(), known.end()), known.end());
    std::erase(known, "");
    if (known.size() > kMostZips) known.resize(kMostZips);
  }
  std::vector<Spot> spots;
  for (const std::string& zip : known)
    if (const auto middle = MiddleOfStreet(index, street, std::span(&zip, 1)))
      spots.push_back({*middle, Level::Street, 0, std::nullopt, zip, 0});
  if (!spots.empty()) return spots;
  if (const auto middle = MiddleOfStreet(index, street, zips)) spots.push_back({*middle, Level::Street, 0, std::nullopt, "", 0});
  return spots;
}

}  // namespace streets
