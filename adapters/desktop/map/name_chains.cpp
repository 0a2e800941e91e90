#include "desktop/map/name_chains.h"

#include <algorithm>
#include <cmath>
#include <deque>

namespace desktop {

namespace {

constexpr double kPerUnit = 16;  // the ends of two pieces meet in the sixteenth of a unit

}  // namespace

void NameChains::Add(const NamedLine& line) {
  Street& street = streets_[{line.kind, line.name}];
  const auto place = [](const PlanePoint& point) { return Place{std::llround(point.x() * kPerUnit), std::llround(point.y() * kPerUnit)}; };
  for (std::size_t i = 0; i + 1 < line.points.size(); ++i) {
    const auto ends = std::minmax({place(line.points[i]), place(line.points[i + 1])});
    if (ends.first != ends.second && street.known.insert(ends).second) street.pieces.push_back(ends);
  }
}

std::vector<NameChains::Chain> NameChains::Join() const {
  std::vector<Chain> chains;
  for (const auto& [key, street] : streets_) {
    std::map<Place, std::vector<std::size_t>> at;
    for (std::size_t i = 0; i < street.pieces.size(); ++i) {
      at[street.pieces[i].first].push_back(i);
      at[street.pieces[i].second].push_back(i);
    }
    std::vector<char> used(street.pieces.size());
    // From one end of what is there as far as it goes; where a street forks, along the first arm.
    const auto next = [&](Place& end) {
      for (const std::size_t piece : at[end]) {
        if (used[piece]) continue;
        used[piece] = 1;
        end = street.pieces[piece].first == end ? street.pieces[piece].second : street.pieces[piece].first;
        return true;
      }
      return false;
    };
    for (std::size_t i = 0; i < street.pieces.size(); ++i) {
      if (used[i]) continue;
      used[i] = 1;
      std::deque<Place> run{street.pieces[i].first, street.pieces[i].second};
      for (Place end = run.back(); next(end);) run.push_back(end);
      for (Place end = run.front(); next(end);) run.push_front(end);
      Chain chain{key.first, key.second, {}};
      for (const Place& place : run)
        chain.points.emplace_back(static_cast<double>(place.first) / kPerUnit, static_cast<double>(place.second) / kPerUnit);
      chains.push_back(std::move(chain));
    }
  }
  return chains;
}

}  // namespace desktop
