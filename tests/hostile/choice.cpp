#include "hostile/choice.h"

#include <algorithm>
#include <map>
#include <set>

namespace hostile {
namespace {

/// `most` of them, evenly spread, first and last among them.
std::vector<int> Spread(const std::vector<int>& all, std::size_t most) {
  if (all.size() <= most) return all;
  std::vector<int> some;
  for (std::size_t i = 0; i < most; ++i) some.push_back(all[most == 1 ? 0 : i * (all.size() - 1) / (most - 1)]);
  return some;
}

}  // namespace

std::vector<int> ChooseYields(const std::vector<Place>& places) {
  std::map<Place, std::vector<int>> yieldsAt;
  for (std::size_t i = 0; i < places.size(); ++i) yieldsAt[places[i]].push_back(static_cast<int>(i) + 1);
  std::set<int> ofLoops;
  std::vector<int> single;
  for (const auto& [place, yields] : yieldsAt) {
    if (yields.size() == 1)
      single.push_back(yields.front());
    else
      ofLoops.insert({yields[0], yields[1], yields.back()});
  }
  std::sort(single.begin(), single.end());
  std::vector<int> chosen = Spread({ofLoops.begin(), ofLoops.end()}, kMostYields);
  if (chosen.size() < kMostYields)
    for (const int yield : Spread(single, kMostYields - chosen.size())) chosen.push_back(yield);
  std::sort(chosen.begin(), chosen.end());
  return chosen;
}

std::uint64_t NumberOf(const std::string& text, std::uint64_t seed) {
  std::uint64_t number = 14695981039346656037U ^ (seed * 0x9E3779B97F4A7C15U);
  for (const char letter : text) number = (number ^ static_cast<unsigned char>(letter)) * 1099511628211U;
  number ^= number >> 32U;
  number *= 0xD6E8FEB86659FD93U;
  return number ^ (number >> 32U);
}

bool InShare(const std::string& words, std::uint64_t seed, int share) {
  return share <= 1 || NumberOf(words, seed) % static_cast<std::uint64_t>(share) == 0;
}

}  // namespace hostile
